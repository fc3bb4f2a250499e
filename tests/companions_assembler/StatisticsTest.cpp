// Call tree and function information of real links. What is expected was worked out by hand from the sources.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <map>
#include <random>

#include "ScratchProject.h"
#include "asmtool/LinkStatistics.h"
#include "asmtool/StatisticsFiles.h"
#include "navigation/CallTreeFile.h"
#include "navigation/FunctionStats.h"
#include "platform/Profile.h"

namespace {

bool Contains(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}

// "a(b c(d))" of the tree as its reader takes it.
std::string Calls(const CallTreeNode *node) {
    std::string text;
    for (; node; node = node->next) {
        text += (text.empty() ? "" : " ") + node->name;
        if (node->firstChild) text += "(" + Calls(node->firstChild) + ")";
    }
    return text;
}

std::string Tree(const CScratchProject &project) {
    const auto tree = ParseCallTree(project.Read("Debug/" + project.title + ".tree"));
    return tree ? Calls(tree->First()) : "no call tree";
}

std::vector<SStatData> Functions(const CScratchProject &project) {
    return ParseFunctionStats(project.Read("Debug/" + project.title + ".stat")).value_or(std::vector<SStatData>());
}

// "name ram rom" of each function, by name; "ram" left out where it is 0.
std::string Sizes(const CScratchProject &project) {
    std::vector<std::string> lines;
    for (const SStatData &f : Functions(project))
        lines.push_back(f.name + (f.ramWhole ? " " + std::to_string(f.ramWhole) + "+" : " ") + std::to_string(f.rom));
    std::sort(lines.begin(), lines.end());
    std::string text;
    for (const std::string &line : lines) text += (text.empty() ? "" : ", ") + line;
    return text;
}

// The sums of all functions, as the memory usage tells them.
void ExpectWholeMemory(const CScratchProject &project, const std::string &output) {
    int rom = 0, ram = 0;
    for (const SStatData &f : Functions(project)) rom += f.rom, ram += f.ramWhole;
    EXPECT_TRUE(Contains(output, "Program memory: " + std::to_string(rom) + " of ")) << rom << "\n" << output;
    EXPECT_TRUE(Contains(output, "Data memory: " + std::to_string(ram) + " bytes")) << ram << "\n" << output;
}

struct Place {
    const char *name, *file;
    int line;
};

void ExpectPlaces(const CScratchProject &project, const std::vector<Place> &places) {
    const std::vector<SStatData> functions = Functions(project);
    for (const Place &place : places) {
        const auto found =
            std::find_if(functions.begin(), functions.end(), [&](const SStatData &f) { return f.name == place.name; });
        ASSERT_NE(found, functions.end()) << place.name;
        EXPECT_EQ(found->file, place.file) << place.name;
        EXPECT_EQ(found->line, place.line) << place.name;
    }
}

struct Program {
    const char *name, *target;
    std::vector<std::string> sources;  // a.asm, b.asm, ... without the chip's include and the end
    const char *tree, *sizes;
};

const Program kPrograms[] = {
    {"recursion",
     "PIC16F628A",
     {"depth_data udata\ndepth res 1\nrst code 0\n goto main\n code\nmain call down\n goto main\n"
      "down decfsz depth,F\n call down\n return\nping call pong\n return\npong call ping\n return\n"},
     "rst(main(down(down))) ping(pong(ping))",
     "#GLOBAL 0, down 1+3, main 2, ping 2, pong 2, rst 1"},
    // A jump out of a function calls; so does running over its end, which a skipped return is no end of.
    {"tails",
     "PIC16F628A",
     {"vec code 0\n goto main\n code\nmain call one\n goto three\none movlw 1\n btfsc STATUS,Z\n return\n"
      "two addlw 1\n goto exit\nthree call two\nexit return\n"},
     "vec(main(one(two(exit)) three(two(exit) exit)))",
     "#GLOBAL 0, exit 1, main 2, one 3, three 1, two 2, vec 1"},
    // Calls of a number, and data that looks like them.
    {"numbers",
     "PIC16F628A",
     {"tab macro\n dw 0x2007\n endm\nvec code 0\n call 6\n goto $+1\n return\n dw 0x2007, 0x2807\n tab\n"
      "here return\nother return\n"},
     "vec(here)",
     "#GLOBAL 0, here 2, vec 6"},
    {"vectors in one section",
     "PIC16F628A",
     {"all code 0\n goto main\n nop\n nop\n nop\nisr retfie\nmain call sub\n goto main\nsub return\n"},
     "all(main(sub)) isr",
     "#GLOBAL 0, all 4, isr 1, main 2, sub 1"},
    {"PIC18",
     "PIC18F4520",
     {"vec code 0\n goto main\nlow_isr code 8\n bra isr\nmore code\nmain call far, FAST\n rcall near\n bnz other\n"
      " bra main\n dw 0xEC05, 0xF000\nnear btfss STATUS,Z\n bra near\n return\nisr retfie FAST\nother goto far\n"
      "far_code code 0x1000\nfar return\n"},
     "vec(main(far near other(far))) low_isr(isr)",
     "#GLOBAL 0, far 2, isr 2, low_isr 2, main 14, near 6, other 4, vec 4"},
    {"12 bits",
     "PIC16F54",
     {"d udata\nq res 2\nrst code 0x1ff\n goto main\n code\nmain call sub\n goto main\nsub clrf q\n retlw 0\n"},
     "rst(main(sub))",
     "#GLOBAL 0, main 2, rst 1, sub 2+2"},
    {"enhanced",
     "PIC16F1827",
     {"rst code 0\n goto main\nint code 4\n bra handler\n code\nmain movlp high sub\n call sub\n bra main\n"
      "handler retfie\nsub btfsc STATUS,Z\n bra skipped\n brw\nskipped return\n"},
     "rst(main(sub)) int(handler)",
     "#GLOBAL 0, handler 1, int 1, main 3, rst 1, sub 4"},
    // Two labels of one name, in two pages; the configuration word is no program.
    {"pages",
     "PIC16F877A",
     {" __config 0x3FFF\n extern far\nvec code 0\n pagesel main\n goto main\n code\nmain pagesel far\n call far\n"
      " pagesel loop\n call loop\n goto main\nloop return\n",
      " global far\nhi code 0x1000\nfar call loop\n return\nloop return\n"},
     "vec(main(far(loop) loop))",
     "#GLOBAL 0, far 2, loop 1, loop 1, main 7, vec 3"},
    // Five overlaid bytes, of which one is main's alone; initial values are the linker's.
    {"data",
     "PIC18F4520",
     {" extern b\n global both\nov udata_ovr\noa res 3\nob res 2\n udata\nown res 4\n res 2\nboth res 1\n idata\n"
      "begin db 1,2,3\nvec code 0\n goto main\nx code\nmain movwf oa\n movwf ob\n movwf own+1\n movwf both\n call b\n"
      " banksel begin\n bra main\n",
      " global b\n extern both\nov udata_ovr\np res 4\n udata\nlonely res 5\nx code\nb movwf p+2\n lfsr 0, p\n"
      " movwf both\n return\n"},
     "vec(main(b))",
     "#GLOBAL 13+0, _cinit 14, _idata_i 4, b 10, main 7+16, vec 4"},
    // What others may call is a function though nobody does; what holds data only is none in the tree.
    {"unused",
     "PIC18F4520",
     {" global api, text\nvec code 0\n bra $\nx code\nown nop\n return\napi return\nt code_pack\ntext db \"abc\"\n"},
     "vec own api",
     "#GLOBAL 0, api 2, own 4, text 3, vec 2"},
};

}  // namespace

TEST(Statistics, OfTheExamplesAgreeWithTheirSources) {
    CScratchProject blink("blink");
    blink.CopyFrom(std::string(EXAMPLES_DIRECTORY) + "/blink");
    const std::string output = blink.Build({"main.asm", "timer.asm", "led.asm"});
    EXPECT_EQ(Tree(blink), "start(main(led_start timer_start timer_take_tick led_toggle)) interrupt");
    // "ticks" is used by three functions, "port_image" by two.
    EXPECT_EQ(Sizes(blink),
              "#GLOBAL 2+0, interrupt 2+12, led_start 12, led_toggle 9, main 1+18, start 1, timer_start 14, "
              "timer_take_tick 7");
    ExpectWholeMemory(blink, output);
    ExpectPlaces(blink, {{"start", ".\\main.asm", 24},
                         {"main", ".\\main.asm", 28},
                         {"led_toggle", ".\\led.asm", 27},
                         {"interrupt", ".\\timer.asm", 17},
                         {"#GLOBAL", "", 0}});

    CScratchProject greeting("greeting", "PIC18F4520");
    greeting.CopyFrom(std::string(EXAMPLES_DIRECTORY) + "/greeting");
    const std::string second = greeting.Build({"main.asm", "serial.asm", "starts.asm", "texts.asm"});
    EXPECT_EQ(Tree(greeting),
              "start(main(start_serial_line(serial_start serial_send_text(serial_send) starts_count "
              "serial_send_hex(send_digit(serial_send))) delay))");
    EXPECT_EQ(Sizes(greeting),
              "#GLOBAL 0, delay 2+16, main 20, send_digit 12, serial_send 10, serial_send_hex 1+8, "
              "serial_send_text 12, serial_start 14, start 4, start_serial_line 44, starts_count 34, "
              "text_greeting 14, text_line_end 3");
    ExpectWholeMemory(greeting, second);
}

TEST(Statistics, TellWhoCallsWhomAndWhoTakesWhat) {
    for (const Program &program : kPrograms) {
        CScratchProject project("demo", program.target);
        std::string include = program.target;
        std::transform(include.begin(), include.end(), include.begin(),
                       [](unsigned char c) { return std::tolower(c); });
        CStringList names;
        for (size_t i = 0; i < program.sources.size(); ++i) {
            names.push_back(std::string(1, static_cast<char>('a' + i)) + ".asm");
            project.Write(names.back(),
                          " include \"p" + include.substr(3) + ".inc\"\n" + program.sources[i] + " end\n");
        }
        const std::string output = project.Build(names);
        EXPECT_EQ(Tree(project), program.tree) << program.name << "\n" << output;
        EXPECT_EQ(Sizes(project), program.sizes) << program.name;
        ExpectWholeMemory(project, output);
    }
}

TEST(Statistics, FollowCallsIntoLibrariesAndMacros) {
    const std::string chip = " include \"p16f628a.inc\"\n";
    CScratchProject library("tools");
    WritePrivateProfileStringA("Assembler", "StepLink", "0", library.project.c_str());
    WritePrivateProfileStringA("Assembler", "StepLibrary", "1", library.project.c_str());
    library.Write("inner.asm", chip + " global inner\n udata\nv res 3\n code\ninner clrf v\n return\n end\n");
    library.Write("lone.asm", chip + " global lone\n code\nlone return\n end\n");
    library.Write("outer.asm", chip + " global outer\n extern inner\n code\nouter call inner\n return\n end\n");
    library.Build({"inner.asm", "lone.asm", "outer.asm"});
    ASSERT_TRUE(library.HasOutputs());
    EXPECT_FALSE(library.Has("Debug/tools.tree")) << "a library is no program";

    CScratchProject project;
    project.Write("tools.lib", library.Read("Debug/tools.lib"));
    project.Write("sub dir/macros.inc", "save macro\n nop\n endm\nshout macro\n call outer\n endm\n");
    project.Write(
        "sub dir/it's.asm",
        chip + " include \"macros.inc\"\n extern outer\n code\n\nmain.a\n save\n shout\n" + " goto main.a\n end\n");
    const std::string output = project.Build({"\"sub dir\\it's.asm\"", "tools.lib"});
    EXPECT_EQ(Tree(project), "main_a(outer(inner))") << output;
    EXPECT_EQ(Sizes(project), "#GLOBAL 0, inner 3+2, main_a 3, outer 2");
    ExpectWholeMemory(project, output);
    ExpectPlaces(project, {{"main_a", ".\\sub dir\\it_s.asm", 6}, {"outer", ".\\outer.asm", 5}});
}

TEST(Statistics, LiveAndEndWithTheImage) {
    const std::string good = " code\nmain nop\n goto main\n end\n", bad = " extern gone\n code\nmain call gone\n end\n";
    const char *files[] = {"Debug/demo.tree", "Debug/demo.stat"};
    CScratchProject project;
    for (const std::string &source : {bad, std::string(" code\nmain what\n end\n"), std::string("clean")}) {
        project.Write("a.asm", good);
        project.Build({"a.asm"});
        for (const char *file : files) ASSERT_TRUE(project.Has(file)) << file;
        if (source == "clean") {
            project.Make("clean");
        } else {
            project.Write("a.asm", source);
            project.Build({"a.asm"});
        }
        for (const char *file : files) EXPECT_FALSE(project.Has(file)) << file << " after " << source;
    }

    std::filesystem::create_directories(project.Path("Debug/demo.stat/full"));
    project.Write("a.asm", good);
    const std::string output = project.Build({"a.asm"});
    EXPECT_EQ(project.ExitCode(), 0) << output;
    EXPECT_TRUE(project.HasOutputs()) << "the program is there without them: " << output;
    EXPECT_TRUE(Contains(output, "Warning: Debug/demo.tree and Debug/demo.stat can't be written.")) << output;
    EXPECT_FALSE(project.Has("Debug/demo.tree")) << "one without the other";
    EXPECT_TRUE(Contains(project.Make(), "Nothing to be done")) << "and is not made again for their sake";
}

TEST(Statistics, OfDamagedFilesAreHarmless) {
    CScratchProject project("demo", "PIC18F4520");
    project.Write("a.asm", std::string(" include \"p18f4520.inc\"\n") + kPrograms[8].sources[0] + " end\n");
    project.Write("b.asm", std::string(" include \"p18f4520.inc\"\n") + kPrograms[8].sources[1] + " end\n");
    project.Build({"a.asm", "b.asm"});
    const std::string whole[] = {project.Read("Debug/demo.cof"), project.Read("Debug/a.o")};
    ASSERT_FALSE(whole[0].empty());
    const std::string image = project.Path("x.cof"), object = project.Path("x.o");
    const auto collect = [&](const std::string &imageBytes, const std::string &objectBytes) {
        for (const auto &[name, bytes] : {std::pair(image, imageBytes), std::pair(object, objectBytes)}) {
            std::FILE *file = std::fopen(name.c_str(), "wb");
            std::fwrite(bytes.data(), 1, bytes.size(), file);
            std::fclose(file);
        }
        const auto statistics = CollectLinkStatistics(image, {object, project.Path("Debug/b.o"), object}, 32768);
        if (!statistics) return;
        EXPECT_TRUE(ParseCallTree(CallTreeText(*statistics)));
        EXPECT_TRUE(ParseFunctionStats(FunctionInfoText(*statistics)));
    };
    const auto begin = std::chrono::steady_clock::now();
    std::mt19937 random(4);
    for (int round = 0; round < 600; ++round) {
        std::string bytes[] = {whole[0], whole[1]};
        std::string &hurt = bytes[round % 2];
        if (round % 3 == 0) hurt.resize(random() % hurt.size());
        for (unsigned i = 0; i < 1u << random() % 9 && !hurt.empty(); ++i)
            hurt[random() % std::min<size_t>(hurt.size(), random() % 2 ? 600 : hurt.size())] =
                static_cast<char>(random() % 3 ? random() : 0xFF);
        collect(bytes[0], bytes[1]);
    }
    collect(whole[0], "!<arch>\n" + std::string(268, '/') + "99999999999!<" + whole[1]);
    constexpr size_t kSections = 38, kSectionSize = 40, kSize = 16;  // the table's place, a header's length, its field
    std::string huge = whole[0];
    for (size_t at = kSections + kSize; at < kSections + 10 * kSectionSize; at += kSectionSize)
        huge.replace(at, 4, "\xFF\xFF\xFF\x5F");
    collect(huge, whole[1]);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
}

// 5,000 functions, each of which calls two later ones: the tree would have more items than atoms are in the world.
TEST(Statistics, OfALargeProgramComeQuickly) {
    std::string source = " include \"p18f8722.inc\"\n code\n";
    for (int i = 0; i < 5000; ++i) {
        source += "f" + std::to_string(i) + "\n";
        for (const int step : {1, 7})
            if (i + step < 5000) source += " call f" + std::to_string(i + step) + "\n";
        source += " return\n";
    }
    CScratchProject project("demo", "PIC18F8722");
    project.Write("a.asm", source + " end\n");
    project.Build({"a.asm"});
    ASSERT_TRUE(project.HasOutputs());
    const auto begin = std::chrono::steady_clock::now();
    const auto statistics = CollectLinkStatistics(project.Path("Debug/demo.cof"), {project.Path("Debug/a.o")}, 131072);
    ASSERT_TRUE(statistics);
    const std::string tree = CallTreeText(*statistics);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
    EXPECT_EQ(statistics->functions.size(), 5000u);
    EXPECT_EQ(std::count(tree.begin(), tree.end(), '{'), 16383) << "two calls each, fourteen levels";
}
