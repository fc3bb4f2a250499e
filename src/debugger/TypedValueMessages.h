// What the build list says about values typed into the bars of a debug run.
#pragma once

#include <string>

void TellNoNumber(int format);  // the text is no number in a NumberFormat

// `text`: of a value that can't be set, about `name`; `why`: the engine's words for it, if it has any.
void TellNotSet(int text, const std::string &name, const std::string &why);
