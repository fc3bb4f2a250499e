// What an expression is turned into: steps of a machine with a stack. A flat list can't be too deep to be run or to be
// given back, however its text is built.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Expression.h"

enum class Op : uint8_t {
    number,   // pushes `number`
    value,    // pushes the value of the name
    address,  // pushes the address of the name
    byteAt,   // address, index: the byte there
    negate,
    invert,
    logicalNot,
    truth,
    multiply,
    divide,
    remainder,
    add,
    subtract,
    shiftLeft,
    shiftRight,
    less,
    lessEqual,
    greater,
    greaterEqual,
    equal,
    notEqual,
    bitAnd,
    bitXor,
    bitOr,
    jump,        // to step `number`
    jumpIfZero,  // takes a value
    keepIfZero,  // for &&: goes to step `number` with a zero, or takes the value
    keepIfTrue,  // for ||: goes there with a 1, or takes the value
};

struct Step {
    Op op;
    int column = 0;      // from 1, of the operator or the name
    int64_t number = 0;  // a value, a step's index, or the index of a name
};

struct CExpression::Code {
    std::vector<Step> steps;
    std::vector<std::string> names;
};
