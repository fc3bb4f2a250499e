// Splits a program into functions by the way control goes. Knows addresses only. Any thread.
//
// A function begins where a part of the program begins, at its entries, at each labelled target of a call, and at each
// labelled target of a jump out of another function. It reaches to the next function of its part. So a label inside a
// function that only the function itself jumps to begins none.
#pragma once

#include <cstdint>
#include <vector>

struct ProgramPart {  // one object's share of one section
    uint32_t begin = 0, end = 0;
    std::vector<uint32_t> labels;   // in ascending order, some may be equal
    std::vector<uint32_t> entries;  // those of the labels that begin a function in any case
};

struct Transfer {  // a call, jump or branch
    uint32_t from = 0, to = 0;
    bool isCall = false;
};

struct FunctionRange {
    uint32_t begin = 0, end = 0;
    int part = 0;
};

// `parts` by address, without overlap. The functions by address; together they are all of the parts.
std::vector<FunctionRange> SplitIntoFunctions(const std::vector<ProgramPart> &parts,
                                              const std::vector<Transfer> &transfers);

int FunctionAt(const std::vector<FunctionRange> &functions, uint32_t address);  // -1: none
