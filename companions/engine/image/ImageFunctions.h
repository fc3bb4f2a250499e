// The functions of a linked program: see FunctionSplit.h for where one begins.
#pragma once

#include <vector>

#include "coff/LinkedImage.h"
#include "image/Image.h"

// By address, without overlap; together they are all that the linker put into program memory. One without a label is
// named after its section.
std::vector<ImageFunction> FindFunctions(const CLinkedImage &image);
