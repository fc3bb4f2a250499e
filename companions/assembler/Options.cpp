#include "Options.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/ChildProcess.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"

namespace {

constexpr const char *kAssembler = "Assembler";
constexpr const char *kLinker = "Linker";
constexpr uint32_t kLongestValue = 16 * 1024;
constexpr std::array<const char *, 3> kRadixNames = {"hex", "dec", "oct"};

std::vector<std::string> SplitList(const std::string &text) {
    std::vector<std::string> items;
    for (size_t begin = 0; begin <= text.size();) {
        const size_t end = std::min(text.find(';', begin), text.size());
        const size_t first = text.find_first_not_of(" \t", begin);
        if (first < end) items.push_back(text.substr(first, text.find_last_not_of(" \t", end - 1) + 1 - first));
        begin = end + 1;
    }
    return items;
}

std::string JoinList(const std::vector<std::string> &items) {
    std::string text;
    for (const std::string &item : items) text += (text.empty() ? "" : ";") + item;
    return text;
}

bool IsNameCharacter(char c, bool first) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '.' || c == '?' || c == '@' ||
           (!first && c >= '0' && c <= '9');
}

bool HasControl(const std::string &text) {
    return std::any_of(text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 127; });
}

}  // namespace

std::string ConfigurationName(const std::string &project, const std::string &config) {
    const std::string title = _splitpath(project).name + ".";
    const std::string name = _splitpath(config).name;
    return StartsWithNoCase(name, title) ? name.substr(title.size()) : name;
}

Options LoadOptions(const std::string &project, const std::string &config) {
    const auto text = [&](const char *section, const char *key, const char *fallback) {
        return ReadProfileString(section, key, fallback, config, kLongestValue);
    };
    const auto number = [&](const char *key) { return GetPrivateProfileIntA(kAssembler, key, 0, config.c_str()); };
    const bool debug = EqualNoCase(ConfigurationName(project, config), "Debug");

    Options options;
    options.defines = SplitList(text(kAssembler, "Defines", debug ? "__DEBUG=1" : ""));
    options.includePaths = SplitList(text(kAssembler, "IncludePath", ""));
    const std::string radix = text(kAssembler, "Radix", kRadixNames[0]);
    for (size_t i = 0; i < kRadixNames.size(); ++i)
        if (EqualNoCase(radix, kRadixNames[i])) options.radix = static_cast<Options::Radix>(i);
    options.ignoreCase = number("IgnoreCase") != 0;
    options.messages = static_cast<Options::Messages>(std::clamp(number("WarningLevel"), 0, 2));
    options.assemblerExtra = text(kAssembler, "Extra", "");
    options.linkerScript = text(kLinker, "Script", "");
    options.linkerExtra = text(kLinker, "Extra", "");
    return options;
}

bool SaveOptions(const Options &options, const std::string &config) {
    const std::array<std::pair<std::string, std::string>, 6> assembler = {{
        {"Defines", JoinList(options.defines)},
        {"IncludePath", JoinList(options.includePaths)},
        {"Radix", RadixName(options.radix)},
        {"IgnoreCase", options.ignoreCase ? "1" : "0"},
        {"WarningLevel", std::to_string(static_cast<int>(options.messages))},
        {"Extra", options.assemblerExtra},
    }};
    const std::array<std::pair<std::string, std::string>, 2> linker = {{
        {"Script", options.linkerScript},
        {"Extra", options.linkerExtra},
    }};
    return WritePrivateProfileKeys(kAssembler, assembler, config.c_str()) &&
           WritePrivateProfileKeys(kLinker, linker, config.c_str());
}

const char *RadixName(Options::Radix radix) {
    return kRadixNames[static_cast<size_t>(radix)];
}

std::string CheckDefine(const std::string &define) {
    const std::string name = define.substr(0, define.find('='));
    const bool named = !name.empty() && IsNameCharacter(name[0], true) &&
                       std::all_of(name.begin() + 1, name.end(), [](char c) { return IsNameCharacter(c, false); });
    if (!named) return "\"" + define + "\" does not begin with a name. Write NAME or NAME=value.";
    if (define.find(';') != std::string::npos || HasControl(define)) return "\"" + define + "\" must not hold \";\".";
    return {};
}

std::string CheckIncludePath(const std::string &path) {
    if (path.find_first_of(";|") != std::string::npos || HasControl(path))
        return "\"" + path + "\" holds a character that a build can't handle.";
    return {};
}

std::string CheckExtra(const std::string &extra) {
    if (HasControl(extra)) return "The further options must stand on one line.";
    if (std::count(extra.begin(), extra.end(), '"') % 2 != 0)
        return "A double quote is missing in the further options.";
    return {};
}

std::vector<std::string> LinkerWords(const std::string &linkerExtra) {
    std::vector<std::string> words = SplitCommandLine(linkerExtra);
    std::erase_if(words, [](const std::string &word) { return word == "-swcs" || word == "/swcs"; });
    return words;
}
