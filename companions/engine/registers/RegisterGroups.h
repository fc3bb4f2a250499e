// The groups in which a chip's registers are shown.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

std::span<const std::string_view> RegisterGroupNames();  // in the order in which they are shown

// The index of the group of a register, by its name in capitals.
size_t RegisterGroupOf(std::string_view name);

// Whether `name` is of the form of `pattern`: "*" stands for any characters, "#" for one digit or more, "?" for one
// character.
bool IsOfForm(std::string_view name, std::string_view pattern);
