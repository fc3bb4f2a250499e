#include "DependencyFile.h"

#include <algorithm>

#include "MakeText.h"

namespace {

constexpr std::string_view kHeaderDirectory = "/usr/share/gputils/header";

// The names under which the include would have been taken instead, had they been there. The current directory is
// searched first, then `includes`, then the assembler's own headers.
std::vector<std::string> EarlierNames(const std::string &file, const std::vector<std::string> &includes) {
    std::vector<std::string> directories = {""};
    for (const std::string &directory : includes) directories.push_back(directory + "/");
    const size_t slash = file.rfind('/');
    directories.push_back(slash == std::string::npos ? "" : file.substr(0, slash + 1));

    for (size_t i = 1; i < directories.size(); ++i) {
        const bool last = i + 1 == directories.size();
        if (last && !file.starts_with(kHeaderDirectory)) break;
        if (!file.starts_with(directories[i])) continue;
        std::vector<std::string> names;
        for (size_t k = 0; k < i; ++k) names.push_back(directories[k] + file.substr(directories[i].size()));
        return names;
    }
    return {};
}

}  // namespace

std::vector<std::string> ReadAssemblerDependencies(std::string_view text) {
    std::vector<std::string> files;
    bool first = true;
    while (!text.empty()) {
        const size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with(" \\")) line.remove_suffix(2);
        if (!first && line.starts_with("  ") && line.size() > 2) files.emplace_back(line.substr(2));
        first = false;
    }
    return files;
}

std::string DependencyRules(const std::string &object, const std::vector<std::string> &files,
                            const std::vector<std::string> &includes) {
    const std::string target = MakeWord(object, MakeRole::target);
    std::string rules;
    for (size_t i = 0; i < files.size(); ++i) {
        if (!FitsMakefile(files[i])) continue;
        rules += target + ": " + MakeWord(files[i], MakeRole::prerequisite) + "\n";
        if (i == 0) continue;  // the source has a rule of its own
        rules += MakeWord(files[i], MakeRole::target) + ":\n";
        for (const std::string &name : EarlierNames(files[i], includes)) {
            const std::string word = WildcardWord(name);
            if (word.empty() || !FitsMakefile(name)) continue;
            rules += target + ": $(if $(wildcard " + word + ")," + word + ")\n";
        }
    }
    return rules;
}
