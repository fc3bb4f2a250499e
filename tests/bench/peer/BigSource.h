// A C source as a generator or a vendor's header might leave it, the same at each call.
#pragma once

#include <cstddef>
#include <string>

// `size` bytes or a little more. Its first 14 lines are a comment that fills the width of a page; after it no line
// reaches a page's middle.
std::string BigSource(size_t size);
