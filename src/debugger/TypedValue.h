// Numbers of the target by name, read and written, where only the engine knows how many bytes the name has.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

std::optional<int64_t> ReadNumber(const std::string &name);  // empty when it has none

// False, with the value as it was, when the engine refuses, then with its words in `why`, or when the target has no
// room for all of the number.
bool SetTypedValue(const std::string &name, int64_t value, std::string &why);

// Whether `now`, which the target has after `value` was written, is only the lowest of its bytes.
bool IsCutOff(int64_t now, int64_t value);
