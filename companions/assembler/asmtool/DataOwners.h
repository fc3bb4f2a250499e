// Which function's own each byte of data memory is.
#pragma once

#include <cstdint>
#include <vector>

#include "LinkReferences.h"
#include "coff/FunctionSplit.h"

// Bytes of data memory by function: those under labels that this function alone refers to. What several functions
// refer to, initialized data refers to, or nobody does, is no function's.
std::vector<uint32_t> OwnDataSizes(const CLinkedImage &image, const std::vector<LinkReference> &references,
                                   const std::vector<FunctionRange> &functions);
