#include "editor/FunctionData.h"

#include <gtest/gtest.h>

TEST(CFunctionData, HoldsTheMarksOfFourViews) {
    // Views are only told apart here, never touched.
    char places[5];
    const auto view = [&](int i) { return reinterpret_cast<const CIDEView *>(&places[i]); };
    CFunctionData function;
    for (int i = 0; i < 4; ++i) EXPECT_TRUE(function.SetMark(view(i), 10 + i));
    EXPECT_FALSE(function.SetMark(view(4), 14));
    EXPECT_FALSE(function.FindMark(view(4)));
    EXPECT_TRUE(function.SetMark(view(2), 22));
    EXPECT_EQ(function.FindMark(view(2))->handle, 22);

    function.DropMark(view(1));
    EXPECT_FALSE(function.FindMark(view(1)));
    EXPECT_TRUE(function.SetMark(view(4), 14));
    EXPECT_EQ(function.FindMark(view(4))->handle, 14);
    EXPECT_EQ(function.FindMark(view(0))->handle, 10);
}
