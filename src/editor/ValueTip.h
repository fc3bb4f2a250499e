// The tip that shows the value of the variable under the pointer during a debug run.
#pragma once

#include <functional>
#include <string>

// Asks the target for the value of `name`, as text in a number format (see debugger/ValueFormat.h). False when it knows
// no such name.
using EvaluateFn = std::function<bool(const std::string &name, int format, std::string &value)>;

// The tip for `word` of the source file `path`, "word = value" with the value in `format`. Empty: no tip, because of
// the file, the word or the target. In files of the high-level languages the name on the assembler's level, with "_" in
// front, is tried too.
std::string ValueTip(const std::string &path, const std::string &word, int format, const EvaluateFn &evaluate);

// The same for a tip that stands while the target stops anew: hexadecimal, by the name on the assembler's level at
// once.
std::string ValueTipAtStop(const std::string &path, const std::string &word, const EvaluateFn &evaluate);
