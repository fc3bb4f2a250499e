#include "editor/FileKind.h"

#include <gtest/gtest.h>

#include "support/ScratchDirectory.h"

TEST(FileKindOf, GoesByTheExtension) {
    const struct {
        const char *path;
        FileKind kind;
    } cases[] = {
        {"c:\\a\\MAIN.C", FileKind::c}, {"x.Hpp", FileKind::c},          {"x.asm", FileKind::assembler},
        {"x.INC", FileKind::assembler}, {"x.casm", FileKind::assembler}, {"x.pas", FileKind::pascal},
        {"x.bas", FileKind::basic},     {"main", FileKind::other},       {"a.c\\main", FileKind::other},
        {"x.c.txt", FileKind::other},   {".c", FileKind::other},         {"", FileKind::other},
    };
    for (const auto &c : cases) EXPECT_EQ(FileKindOf(c.path), c.kind) << c.path;
}

TEST(CounterpartOf, TakesTheFirstThatExists) {
    const CScratchDirectory scratch;
    scratch.Write("a.c", "");
    scratch.Write("a.hpp", "");
    scratch.Write("b.cxx", "");
    scratch.Write("b.cpp", "");
    scratch.Write("b.h", "");
    scratch.Write("alone.c", "");
    scratch.Write("t.asm", "");
    scratch.Write("t.h/inside", "");
    scratch.Write("t.c", "");
    const struct {
        const char *file, *counterpart;
    } cases[] = {{"a.c", "a.hpp"}, {"b.h", "b.cpp"}, {"b.CXX", "b.h"}, {"alone.c", ""}, {"t.asm", ""}, {"t.c", ""}};
    for (const auto &c : cases)
        EXPECT_EQ(CounterpartOf(scratch.Windows(c.file)), *c.counterpart ? scratch.Windows(c.counterpart) : "")
            << c.file;
}
