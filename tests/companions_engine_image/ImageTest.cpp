// What is read from the linker's images, against what the utilities print of the same files.
#include "image/Image.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>

#include "LinkedProgram.h"

namespace {

// "2007:3ff8 2008:3fff"
std::string TextOf(const std::vector<ChipProgram::Word> &words) {
    std::ostringstream text;
    text << std::hex;
    for (const auto &[address, value] : words) text << (text.tellp() > 0 ? " " : "") << address << ':' << value;
    return text.str();
}

std::string TextOf(const std::vector<ImageFunction> &functions) {
    std::ostringstream text;
    text << std::hex;
    for (const ImageFunction &function : functions)
        text << (text.tellp() > 0 ? " " : "") << function.name << ':' << function.begin << '-' << function.end;
    return text.str();
}

struct Printed {  // by gpvo
    std::map<uint32_t, uint16_t> words;
    std::map<uint32_t, std::pair<std::string, int>> lines;
    std::map<std::string, uint32_t> symbols;
};

Printed PrintedOf(const CLinkedProgram &program, uint32_t programEnd) {
    Printed printed;
    std::istringstream lines(program.Run("gpvo -s -t Debug/demo.cof"));
    enum { other, data, lineNumbers, symbols } table = other;
    bool inProgram = false;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        if (line.starts_with("Flags")) inProgram = (std::stoul(line.substr(5), nullptr, 16) & 0x120) != 0;
        if (line == "Data") {
            table = data;
        } else if (line.starts_with("Line ")) {
            table = lineNumbers;
        } else if (line.starts_with("Idx")) {
            table = symbols;
        } else if (line.empty() || line.starts_with("Section")) {
            if (table != symbols) table = other;
        } else if (table == data && inProgram) {
            uint32_t address, word;
            char colon;
            fields >> std::hex >> address >> colon >> word;
            if (address < programEnd) printed.words[address] = static_cast<uint16_t>(word);
        } else if (table == lineNumbers) {
            std::string address, file;
            int number;
            fields >> number >> address >> file;
            const uint32_t at = static_cast<uint32_t>(std::stoul(address, nullptr, 16));
            if (at < programEnd) printed.lines[at] = {file, number};
        } else if (table == symbols) {
            std::string index, name, section, value, type, dataType, storage;
            fields >> index >> name >> section >> value >> type >> dataType >> storage;
            const bool counts = storage == "C_EXT" || storage == "C_STAT" || storage == "C_LABEL";
            if (counts && !name.starts_with("_.code"))
                printed.symbols.insert({name, static_cast<uint32_t>(std::stoul(value, nullptr, 16))});
        }
    }
    return printed;
}

}  // namespace

TEST(EngineImage, AgreesWithWhatTheUtilitiesPrint) {
    struct {
        const ProgramSources &sources;
        uint32_t programEnd, wordSize;
    } cases[] = {{kMidRange, 0x2000, 1}, {kEnhanced, 0x8000, 1}, {kPic18, 0x200000, 2}};
    for (const auto &[sources, programEnd, wordSize] : cases) {
        SCOPED_TRACE(sources.chip);
        const CLinkedProgram program(sources);
        const auto image = program.Load();
        ASSERT_TRUE(image);
        const Printed printed = PrintedOf(program, programEnd);
        ASSERT_GT(printed.words.size(), 8u);
        ASSERT_GT(printed.symbols.size(), 2u);

        std::map<uint32_t, uint16_t> words;
        for (const auto &[address, value] : image->Program().code) words[address] = value;
        EXPECT_EQ(words, printed.words);

        std::pair<std::string, int> before;
        uint32_t next = UINT32_MAX;
        for (const auto &[address, line] : printed.lines) {
            const auto place = image->PlaceAt(address);
            ASSERT_TRUE(place) << std::hex << address;
            EXPECT_EQ(place->file, program.Windows(line.first)) << std::hex << address;
            EXPECT_EQ(place->line, line.second) << std::hex << address;
            EXPECT_EQ(image->IsLineStart(address), address != next || line != before) << std::hex << address;
            before = line;
            next = address + wordSize;
        }
        for (const auto &[name, address] : printed.symbols) {
            const ImageSymbol *symbol = image->FindSymbol(name);
            ASSERT_TRUE(symbol) << name;
            EXPECT_EQ(symbol->address, address) << name;
            EXPECT_TRUE(image->SymbolAt(address, symbol->inProgram)) << name;
        }
    }
}

TEST(EngineImage, PutsEachFamiliesPartsWhereTheyBelong) {
    struct {
        const ProgramSources &sources;
        const char *chip, *config, *eeprom, *functions;
    } cases[] = {
        {kMidRange, "PIC16F628A", "2000:1 2001:2 2002:3 2003:4 2007:3ff8", "0:48 1:69 2:0",
         "start:0-1 .idata_i:1-4 isr:4-5 main:5-c inner:c-e helper:e-13 _cinit:13-1b"},
        {kEnhanced, "PIC16F1847", "8007:3fe4 8008:1fff", "0:9 1:8 2:7",
         "start:0-2 first:10-12 second:12-14 main:800-806"},
        {kPic18, "PIC18F4520", "300001:8 300003:1e", "0:48 1:69 2:1",
         "start:0-4 main:4-12 inner:12-1c _cinit:1c-2a .idata_i:2a-2e"},
    };
    for (const auto &c : cases) {
        const auto image = CLinkedProgram(c.sources).Load();
        ASSERT_TRUE(image);
        EXPECT_EQ(image->Chip(), c.chip);
        EXPECT_EQ(TextOf(image->Program().config), c.config) << c.chip;
        EXPECT_EQ(TextOf(image->Program().eeprom), c.eeprom) << c.chip;
        EXPECT_EQ(TextOf(image->Functions()), c.functions);
    }
}

TEST(EngineImage, KnowsSymbolsAndFunctions) {
    const CLinkedProgram program(kMidRange);
    std::ofstream(program.Native("Debug/demo.lst"), std::ios::app)
        << "\nSYMBOL TABLE\n  LABEL VALUE\ncount 0000007F\nplaced   00000070\nbent 7x\nempty\nlast 00000071";
    const auto image = program.Load();
    ASSERT_TRUE(image);
    const std::map<std::string, std::pair<bool, uint32_t>> expected = {
        {"count", {false, 2}}, {"flag", {false, 1}},   {"saved", {false, 1}},
        {"table", {false, 3}}, {"shared", {false, 3}}, {"main", {true, 1}},
        {"again", {true, 1}},  {"placed", {false, 1}}, {"last", {false, 1}}};
    for (const auto &[name, facts] : expected) {
        const ImageSymbol *symbol = image->FindSymbol(name);
        ASSERT_TRUE(symbol) << name;
        EXPECT_EQ(std::pair(symbol->inProgram, symbol->size), facts) << name;
    }
    for (const char *none : {"Main", "bent", "empty"}) EXPECT_FALSE(image->FindSymbol(none)) << none;
    EXPECT_EQ(image->FindSymbol("placed")->address, 0x70u);
    const uint32_t count = image->FindSymbol("count")->address;
    EXPECT_NE(count, 0x7fu) << "the image's own goes before the listing's";
    EXPECT_EQ(image->SymbolAt(count, false)->name, "count");
    EXPECT_FALSE(image->SymbolAt(count + 1, false));
    EXPECT_FALSE(image->SymbolAt(count, true));

    const uint32_t main = image->FindSymbol("main")->address;
    ASSERT_TRUE(image->FunctionAt(main + 6));
    EXPECT_EQ(image->FunctionAt(main + 6)->name, "main");  // behind the label of a loop
    EXPECT_EQ(image->FunctionAt(main + 7)->name, "inner");
    EXPECT_FALSE(image->FunctionAt(0x600));
    EXPECT_FALSE(image->FunctionAt(UINT32_MAX));
}

TEST(EngineImage, FindsLinesByEveryNameOfTheirFile) {
    const CLinkedProgram program(kMidRange);
    const auto image = program.Load();
    ASSERT_TRUE(image);
    const uint32_t helper = image->FindSymbol("helper")->address;
    const std::string full = program.Windows("parts/helper.asm");
    for (const std::string &name : {full, "c:" + full, program.Windows("Debug/../parts/helper.asm"),
                                    program.Windows("PARTS/Helper.asm"), std::string("helper.asm")}) {
        const auto line = image->FindLine(name, 2);  // the first with code behind it
        ASSERT_TRUE(line) << name;
        EXPECT_EQ(line->line, 7) << name;
        EXPECT_EQ(line->address, helper) << name;
        EXPECT_EQ(image->AddressesOf(name, 10), std::vector<uint32_t>{helper + 3}) << name;
    }
    EXPECT_FALSE(image->FindLine(full, 12));
    EXPECT_TRUE(image->AddressesOf(full, 6).empty());
    for (const char *name : {"p16f628a.inc", "other.asm", ""}) EXPECT_FALSE(image->FindLine(name, 1)) << name;
    EXPECT_FALSE(image->PlaceAt(image->FindSymbol("_cinit")->address));  // the linker's own
    EXPECT_FALSE(image->PlaceAt(0x2007));
}

TEST(EngineImage, HasLinesOfCWhereACompilerNamesThem) {
    const CLinkedProgram program({"16f628a", R"(
#include <p16f628a.inc>
        .file "parts/prog.c"
        udata
_ticks  res 2
        code
_main
        .line 5; "prog.c"
        movlw 1
        movwf _ticks
        .line 6; "prog.c"
        incf _ticks, f
        .file "parts/other.h"
        .line 8; "other.h"
        btfss _ticks, 0
        .file "parts/prog.c"
        .line 6; "prog.c"
        goto _main
        call _wait
        goto $
_wait   return
        global _main, _ticks
        end
)",
                                  nullptr, "-g"});
    const auto image = program.Load();
    ASSERT_TRUE(image);
    const std::string source = program.Windows("parts/prog.c");
    EXPECT_EQ(image->AddressesOf(source, 5), std::vector<uint32_t>{0});
    EXPECT_EQ(image->AddressesOf(source, 6), (std::vector<uint32_t>{2, 4}));
    ASSERT_TRUE(image->PlaceAt(3));
    EXPECT_EQ(image->PlaceAt(3)->file, program.Windows("parts/other.h"));
    ASSERT_TRUE(image->FindSymbol("main"));  // by its name in C
    EXPECT_EQ(image->FindSymbol("main")->name, "_main");
    ASSERT_TRUE(image->FindSymbol("ticks"));
    EXPECT_EQ(image->FindSymbol("ticks")->size, 2u);
    EXPECT_EQ(TextOf(image->Functions()), "_main:0-7 _wait:7-8");
}

TEST(EngineImage, TellsTheChip) {
    const char *bare = "\tcode\n\tnop\n\tend\n";
    for (const auto &[chip, name] : std::map<const char *, const char *>{{"16c84", "PIC16C84"},
                                                                         {"12lf1840", "PIC12LF1840"},
                                                                         {"18lf45k22", "PIC18LF45K22"},
                                                                         {"12ce674", "PIC12CE674"},
                                                                         {"mcv28a", "MCV28A"}}) {
        const CLinkedProgram program({chip, bare});
        const auto image = program.Load();
        ASSERT_TRUE(image);
        EXPECT_EQ(image->Chip(), name);
    }
    constexpr size_t kProcessor = 26;  // of the file's bytes
    std::string error;
    for (const auto &[source, expected] :
         {std::pair<ProgramSources, const char *>{kMidRange, "PIC16F628A"}, {{"16f84a", bare}, ""}}) {
        const CLinkedProgram program(source);
        const auto image =
            CImage::FromBytes(program.ImageBytes().replace(kProcessor, 2, "\x01\x00", 2), program.ImageName(), error);
        ASSERT_TRUE(image) << error;
        EXPECT_EQ(image->Chip(), expected);
    }
}
