// The built language library, loaded as the program loads it.
#pragma once

#include <span>
#include <string>

#include "framework/LanguageApi.h"

namespace module {

const char *String(int id);
std::span<const LangMenuEntry> Menu(int id);
std::span<const LangToolButton> ToolBar(int id);
std::span<const LangAccelerator> Accelerators(int id);
const char *CommandIcon(int command);

// The letter behind the "&" of a menu text, lower case; 0 without one.
char AccessKey(const std::string &text);

}  // namespace module
