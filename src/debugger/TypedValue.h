// Brings typed numbers into names of which only the engine knows how many bytes they have.
#pragma once

#include <cstdint>
#include <string>

// False, with the value as it was, when the engine refuses, then with its words in `why`, or when the target has no
// room for all of the number.
bool SetTypedValue(const std::string &name, int64_t value, std::string &why);

// Whether `now`, which the target has after `value` was written, is only the lowest of its bytes.
bool IsCutOff(int64_t now, int64_t value);
