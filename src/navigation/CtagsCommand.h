// The tag generator's command lines.
#pragma once

#include <string>

#include "navigation/TagFile.h"

inline constexpr const char *kExtraLocationKinds = "fvdcsuegt";  // in every language
inline constexpr const char *kPrototypeKinds = "p";

// What the tag generator is told for the sources of a toolsuite.
struct CtagsLanguage {
    const char *toolsuite;  // its name, in any case; null for all others
    const char *option;     // takes the kinds
    const char *indexKinds;
    const char *documentOption;  // with its kinds
    TagLanguage language;
};

const CtagsLanguage &CtagsLanguageOf(const std::string &toolsuite);

// A run for the index. `outputFile` is a native name, `arguments` go behind it as they stand.
std::string IndexCommandLine(const std::string &option, const std::string &kinds, const std::string &outputFile,
                             const std::string &arguments);

// A run on one document; both names are native.
std::string DocumentCommandLine(const CtagsLanguage &language, const std::string &outputFile,
                                const std::string &source);

// The arguments for the extra location of index `index`; `location` is a native name.
std::string LocationArguments(int index, const std::string &location, bool isFolder);
