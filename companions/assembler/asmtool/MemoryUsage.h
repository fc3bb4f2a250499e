// How much of the chip's memory a linked program takes.
#pragma once

#include <cstdint>
#include <string>

// `image`: native path of the linked ".cof". `programSize`: the chip's program memory in words or, with `inBytes`
// (chips that address bytes), in bytes; 0 when it isn't known. Two lines for the build list, empty for a file that is
// no image.
std::string DescribeMemoryUsage(const std::string &image, uint32_t programSize, bool inBytes);
