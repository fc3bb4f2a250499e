// Sends recorded steps back to a component window.
#pragma once

#include <span>

#include "editor/KeyMacro.h"

class CSciWindow;

// All steps in their order. A step of another type than 0 is passed over, and so is a message that the component never
// records: the settings that macros come from can be edited by hand, and other messages take more than a number and a
// text.
void PlayMacro(const CSciWindow &window, std::span<const CMacroCommand> steps);
