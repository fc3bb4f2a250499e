#include <gtest/gtest.h>

#include <string>

#include "AssemblerScan.h"

namespace {

// "name:line:kind" of each tag, with a blank between.
std::string Tags(const std::string &text) {
    std::string tags;
    for (const AssemblerTag &tag : ScanAssembler(text, {'f', 'v', 'd'}))
        tags += (tags.empty() ? "" : " ") + std::string(tag.name) + ":" + std::to_string(tag.line) + ":" + tag.kind;
    return tags;
}

}  // namespace

TEST(AssemblerScan, FindsTheNamesOfStatements) {
    const struct {
        const char *text, *tags;
    } cases[] = {
        {"main nop\nloop: goto loop\nalone\n.dot ; text\n", "main:1:f loop:2:f alone:3:f .dot:4:f"},
        {"tables: dt \"a;b\", 0\r\nnext\r\n", "tables:1:f next:2:f"},
        // Values
        {"RATE EQU 1\nlimit = 3\nlimit = 4\nlow: set 1\n", "RATE:1:d limit:2:d low:4:d"},
        {"limit += 1\ncount++\nsame == 1\n", ""},
        {" constant A=1, B = (2,3), C=','\nvariable d, e = ';' ; f\n", "A:1:d B:1:d C:1:d d:2:d e:2:d"},
        {"#define LED PORTB,0\n  #DEFINE F(x) x\n #undefine LED\n#include \"x.inc\"\n", "LED:1:d F:2:d"},
        // Data memory
        {"a res 1\nb: RES 2\n", "a:1:v b:2:v"},
        {" org 0x2100\nstored de 1\n", "stored:2:v"},
        {" cblock 0x20 ; of bank 0\none, two:2,three ; four\n\n  five:1\n  ENDC\nmain\n",
         "one:2:v two:2:v three:2:v five:4:v main:6:f"},
        // Sections: their names are none of the source's
        {"vars udata\nx\n res 1\ny db 1\nprog code 0\nmain\n", "x:2:v y:4:v main:6:f"},
        {"vars UDATA_SHR\nx res 1\n org 4\nisr\n", "x:2:v isr:4:f"},
        // Macros: what is inside belongs to each use
        {"wait macro n\n local again, k\nagain decfsz n,f\nother\nk set 1\nTOTAL set n\n endm\nagain nop\n",
         "wait:1:d TOTAL:6:d again:8:f"},
        {"lab#v(3) nop\n", ""},
        // The first column
        {"goto main\norg 4\nnop\nmain goto main\nnop: nop\n", "main:4:f nop:5:f"},
        {"push movwf w_temp\nreset\n", "push:1:f reset:2:f"},
        {" indented nop\n ; comment\n;label\n\tmain\n", ""},
        {"main\n end\nnothing\n", "main:1:f"},
        {"m macro\n end\n endm\nmain\n", "m:1:d main:4:f"},
    };
    for (const auto &c : cases) EXPECT_EQ(Tags(c.text), c.tags) << c.text;
}

TEST(AssemblerScan, LeavesOutWhatIsNotWanted) {
    const char text[] = "main\nx res 1\nR equ 1\n";
    const auto labels = ScanAssembler(text, {.label = 'f'});
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_EQ(labels[0].name, "main");
    const auto variables = ScanAssembler(text, {.variable = 'd'});
    ASSERT_EQ(variables.size(), 1u);
    EXPECT_EQ(variables[0].kind, 'd');
}

TEST(AssemblerScan, TakesAnyBytes) {
    const std::string name(10000, 'n');
    const struct {
        std::string text, tags;
    } cases[] = {
        {"", ""},
        {"main", "main:1:f"},
        {" cblock", ""},
        {" constant", ""},
        {" constant =,,=,(", ""},
        {" local ,,\n endm\n", ""},
        {"x macro", "x:1:d"},
        {std::string("a\0b nop\n\0\n\xff\xfe equ 1\nz\n", 22), "a:1:f z:4:f"},
        {name + " equ 1\r" + name + "\r", name + ":1:d " + name + ":2:f"},
        {" constant a='", "a:1:d"},
    };
    for (const auto &c : cases) EXPECT_EQ(Tags(c.text), c.tags) << c.text.substr(0, 40);
}

TEST(AssemblerScan, TellsIncludeFilesApart) {
    const struct {
        const char *text;
        bool assembler;
    } cases[] = {
        {"; registers\nW EQU H'0000'\n", true},
        {"  ifndef x\n  variable x = 1\n  endif\n", true},
        {"/* shared; by all */\nint count;\nvoid f(void) {\n}\n", false},
        {"#define A 1\n#define B 2\n", false},
        {"const x = 1;\nprocedure p;\nbegin\nend;\n", false},
        {"", false},
        {"LED = 3\nKEY=LED\n", true},
        {"enum {\nRED = 1,\nBLUE = 2\n};\n", false},
    };
    for (const auto &c : cases) EXPECT_EQ(LooksLikeAssembler(c.text), c.assembler) << c.text;
}
