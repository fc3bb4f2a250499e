// Names of build steps.
#pragma once

#include <string>

// Whether two names are the same to a reader: letter case, kana type and character width don't count.
bool SameStepName(const std::string &a, const std::string &b);
