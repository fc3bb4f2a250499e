#include "navigation/CtagsCommand.h"

#include "platform/PathCalls.h"

namespace {

constexpr CtagsLanguage kLanguages[] = {
    {"OspreyP", "--pascal-types", "fp", "--pascal-types=fp", TagLanguage::pascal},
    {"LarkBasic", "--basic-types", "fsdt", "--basic-types=fs", TagLanguage::basic},
    {nullptr, "--c-types", "fvdcsuegt", "--c-types=fp", TagLanguage::c},
};

}  // namespace

const CtagsLanguage &CtagsLanguageOf(const std::string &toolsuite) {
    const CtagsLanguage *language = kLanguages;
    while (language->toolsuite && !EqualNoCase(toolsuite, language->toolsuite)) ++language;
    return *language;
}

std::string IndexCommandLine(const std::string &option, const std::string &kinds, const std::string &outputFile,
                             const std::string &arguments) {
    return "ctags.exe " + option + "=" + kinds + " -f \"" + outputFile + "\" " + arguments;
}

std::string DocumentCommandLine(const CtagsLanguage &language, const std::string &outputFile,
                                const std::string &source) {
    return std::string("ctags.exe -n ") + language.documentOption + " -f \"" + outputFile + "\" \"" + source + "\"";
}

std::string LocationArguments(int index, const std::string &location, bool isFolder) {
    std::string arguments = "-n ";
    if (index != 0) arguments += "-a ";
    if (isFolder) arguments += "--recurse=yes ";
    const char *quote = location.find(' ') != std::string::npos ? "\"" : "";
    arguments += quote + location;
    if (isFolder) arguments += location.ends_with('/') ? "*" : "/*";
    return arguments + quote;
}
