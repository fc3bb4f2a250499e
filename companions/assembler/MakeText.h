// Names and words as a makefile has to spell them. Any thread; pure string work.
#pragma once

#include <string>
#include <string_view>

enum class MakeRole { target, prerequisite };

// A file name in a rule. The makefile has to define what can't be escaped: kMakeDefinitions.
std::string MakeWord(std::string_view name, MakeRole role);
inline constexpr const char *kMakeDefinitions = "equals := =\n";

// A file name as the pattern of $(wildcard ...), so that it matches itself only. Empty for a name that can't stand in a
// function's argument.
std::string WildcardWord(std::string_view name);

// One word of a recipe: quoted for the shell, then for make. Words that need no quotes stay as they are.
std::string RecipeWord(std::string_view text);

// False for a name that no makefile can hold: with a control character, ';' or '|'.
bool FitsMakefile(std::string_view name);
