// The tables behind the library's exports. Each lookup is empty or null for an unknown id.
#pragma once

#include <span>

#include "framework/LanguageApi.h"

namespace language {

const char *FindText(int id);
const char *FindTip(int index);  // from 0
const char *FindCommandIcon(int command);
std::span<const LangMenuEntry> FindMenu(int id);
std::span<const LangToolButton> FindToolBar(int id);
std::span<const LangAccelerator> FindAccelerators(int id);

}  // namespace language
