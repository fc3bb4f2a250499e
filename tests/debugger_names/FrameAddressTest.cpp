#include "debugger/FrameAddress.h"

#include <gtest/gtest.h>

TEST(FrameAddress, ReadsRows) {
    const struct { const char *row; int address; } cases[] = {
        {"0x000A", 10},       {"0X1f2e3", 0x1F2E3}, {"0x12G4", 0x12}, {"0x", 0}, {"0xG", 0},
        {"No call stack", 0}, {" 12 rows", 12},     {"12x", 12},      {"", 0},   {"0xFFFFFFFF", -1},
    };
    for (const auto &c : cases) EXPECT_EQ(FrameAddress(c.row), c.address) << c.row;
}
