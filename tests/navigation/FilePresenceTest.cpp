#include "navigation/FilePresence.h"

#include <gtest/gtest.h>

#include "ScratchFiles.h"
#include "platform/PathCalls.h"

TEST(FilePresence, AgreesWithTheDisk) {
    const ScratchFiles scratch;
    scratch.Make("Main.asm");
    scratch.Make("src/delay.asm");
    scratch.Make("Makefile");
    std::filesystem::create_directory(scratch.Native("lib"));
    std::filesystem::create_symlink("nowhere", scratch.Native("dangling.c"));
    const struct {
        const char *file;
        bool exists;
    } cases[] = {
        {"Main.asm", true},
        {"MAIN.ASM", true},
        {"SRC\\Delay.ASM", true},
        {"src/delay.asm", true},
        {"src\\..\\main.asm", true},
        {"Makefile", true},
        {"lib", false},
        {"dangling.c", false},
        {"main.as", false},
        {"gone\\x.asm", false},
        {"", false},
    };
    CFilePresence presence;
    for (const auto &c : cases) {
        EXPECT_EQ(presence.Exists(scratch.PathOf(c.file)), c.exists) << c.file;
        EXPECT_EQ(FileExists(scratch.PathOf(c.file)), c.exists) << c.file;
    }
    EXPECT_FALSE(presence.Exists(""));
}
