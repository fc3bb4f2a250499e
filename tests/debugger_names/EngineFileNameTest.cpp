#include "debugger/EngineFileName.h"

#include <gtest/gtest.h>

#include "platform/PathCalls.h"
#include "support/ScratchDirectory.h"

namespace {

TEST(EngineFileName, IsFullAndReduced) {
    const CScratchDirectory scratch;
    const std::string here = scratch.Windows(), before = GetCurrentDirectoryA();
    ASSERT_TRUE(SetCurrentDirectoryA(here));
    const struct { std::string name, expected; } cases[] = {
        {"a\\b\\..\\c.c", here + "\\a\\c.c"},
        {".\\x.c", here + "\\x.c"},
        {"../x.c", here.substr(0, here.rfind('\\')) + "\\x.c"},
        {"\"my lib\\\xc3\xa4.c\"", here + "\\my lib\\\xc3\xa4.c"},
        {"/home/u/./x.c", "\\home\\u\\x.c"},
        {"c:\\a\\.\\b\\..\\..\\..\\x.c", "c:\\..\\x.c"},  // nothing lies above a root: left to the engine
        {"\\\\server\\a/x.c", "\\\\server\\a\\x.c"},
        {"it's, [so].c", "it's, [so].c"},
        {"a\\\\b.c", "a\\\\b.c"},
        {"", ""},
    };
    for (const auto &c : cases) EXPECT_EQ(EngineFileName(c.name), c.expected) << c.name;
    SetCurrentDirectoryA(before);
}

}  // namespace
