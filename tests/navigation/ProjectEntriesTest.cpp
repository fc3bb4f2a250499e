#include "navigation/ProjectEntries.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "ScratchFiles.h"

using Texts = std::vector<std::string>;

TEST(ProjectEntries, SplitsOutputLists) {
    const struct {
        const char *list;
        Texts expected;
    } cases[] = {
        {"%config%/%name%.asm;%config%/%name%.hex", {"%config%/%name%.asm", "%config%/%name%.hex"}},
        {" a.hex ,;\t b.lst;", {"a.hex", "b.lst"}},
        {"one", {"one"}},
        {"", {}},
        {" ;,\t", {}},
    };
    for (const auto &c : cases) EXPECT_EQ(SplitOutputList(c.list), c.expected) << c.list;
}

TEST(ProjectEntries, ListsOutputsWhetherOrNotTheyExist) {
    const ScratchFiles scratch;
    scratch.Make("Debug/blink.hex");
    scratch.Make("Debug/blink.lst");
    std::filesystem::create_directory(scratch.Native("Debug/map"));
    const auto expand = [](std::string text) {
        if (text == "%none%") return std::string();
        if (const size_t at = text.find("%config%"); at != std::string::npos) text.replace(at, 8, "Debug");
        return text;
    };
    const auto fullPath = [&](const std::string &name) { return scratch.PathOf(name); };

    const auto entries = MakeOutputEntries(
        "%none%;%config%/blink.lst;%config%/blink.cof,%config%/map;%config%/BLINK.hex", expand, fullPath);

    Texts shown;
    for (const FileEntry &entry : entries) shown.push_back(entry.name + (entry.exists ? "" : " missing"));
    EXPECT_EQ(shown, (Texts{"Debug/blink.lst", "Debug/blink.cof missing", "Debug/map missing", "Debug/BLINK.hex"}));
}

TEST(ProjectEntries, SortsByNameWithoutRegardToCase) {
    std::vector<FileEntry> files = {{"uart.c"}, {"LCD.c"}, {"b.asm"}, {"lcd.C"}, {"\xc3\x84.c"}, {"Adc.c"}};
    std::sort(files.begin(), files.end(), ComesBefore);
    Texts names;
    for (const FileEntry &file : files) names.push_back(file.name);
    EXPECT_EQ(names, (Texts{"Adc.c", "b.asm", "LCD.c", "lcd.C", "uart.c", "\xc3\x84.c"}));
}

TEST(ProjectEntries, ChoosesIconsByExtension) {
    const struct {
        const char *file, *icon;
    } cases[] = {
        {"main.asm", "file-asm"},      {"src\\MAIN.ASM", "file-asm"},
        {"a.b\\readme", "file-other"}, {"x.INC", "file-header"},
        {"Debug/blink.hex", "chip"},   {"..\\x.lib", "file-lib"},
        {"x.cpp", "file-c"},           {"", "file-other"},
    };
    for (const auto &c : cases) EXPECT_STREQ(FileIconName(c.file), c.icon) << c.file;
}
