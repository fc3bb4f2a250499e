#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>
#include <vector>

#include "ScratchProject.h"
#include "platform/Profile.h"

namespace {

const char *kMain =
    " include \"p16f628a.inc\"\n global main\n extern helper\n code\nmain call helper\n goto main\n end\n";
const char *kHelper = " include \"p16f628a.inc\"\n global helper\n code\nhelper return\n end\n";

bool Contains(const std::string &text, const std::string &part) {
    return text.find(part) != std::string::npos;
}

// How often the part stands in the text.
int Count(const std::string &text, const std::string &part) {
    int count = 0;
    for (size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
    return count;
}

// Builds again and tells which sources were assembled.
std::string Rebuilt(CScratchProject &project, const CStringList &sources) {
    const std::string output = project.Build(sources);
    std::string names;
    for (size_t at = output.find("Assembling "); at != std::string::npos; at = output.find("Assembling ", at + 1)) {
        const size_t begin = at + 11;
        names += (names.empty() ? "" : ",") + output.substr(begin, output.find('\n', begin) - begin);
    }
    return names;
}

}  // namespace

TEST(Build, ExamplesBuildWithoutAMessage) {
    struct {
        const char *name, *target;
        CStringList sources;
        int longOnes;  // instructions of two words
    } cases[] = {
        {"blink", "PIC16F628A", {"main.asm", "timer.asm", "led.asm"}, 0},
        {"greeting", "PIC18F4520", {"main.asm", "serial.asm", "starts.asm", "texts.asm"}, 6},
    };
    for (const auto &c : cases) {
        CScratchProject project(c.name, c.target);
        project.CopyFrom(std::string(EXAMPLES_DIRECTORY) + "/" + c.name);
        const std::string output = project.Build(c.sources);
        EXPECT_TRUE(project.HasOutputs()) << output;
        for (const char *word : {"rror", "arning", "essage"}) EXPECT_FALSE(Contains(output, word)) << output;
        EXPECT_TRUE(project.Has(std::string("Debug/") + c.name + ".map"));
        // A skip can lead to the second word of an instruction, a line of the listing like any other.
        EXPECT_EQ(Count(project.Read(std::string("Debug/") + c.name + ".lst"), "   f000     ; second word\n"),
                  c.longOnes);
        EXPECT_TRUE(Contains(project.Make(), "Nothing to be done")) << "a build without a change does nothing";
    }
}

// The examples on the simulator's own command line: what they write to a register, and after how many cycles.
TEST(Build, ExamplesRunAsTheySay) {
    if (RunShell("command -v gpsim").empty()) GTEST_SKIP() << "gpsim is not installed";
    struct Write {
        long cycle;
        int value;
    };
    const auto run = [](CScratchProject &project, const CStringList &sources, const std::string &reg, long cycles) {
        project.CopyFrom(std::string(EXAMPLES_DIRECTORY) + "/" + project.title);
        project.Build(sources);
        project.Write("run.stc", "load s Debug/" + project.title + ".cod\nlog on run.log\nlog w " + reg + "\nbreak c " +
                                     std::to_string(cycles) + "\nrun\nlog off\nquit\n");
        RunShell("cd '" + project.Path("") + "' && timeout 60 gpsim -i -c run.stc </dev/null");
        std::vector<Write> writes;
        std::istringstream log(project.Read("run.log"));
        long cycle = 0;
        for (std::string line; std::getline(log, line);) {
            if (line.starts_with("0x")) cycle = std::strtol(line.c_str(), nullptr, 16);
            const size_t wrote = line.find("Wrote: 0x");
            if (wrote != std::string::npos && Contains(line, " to " + reg + "("))
                writes.push_back({cycle, static_cast<int>(std::strtol(line.c_str() + wrote + 7, nullptr, 16))});
        }
        return writes;
    };

    CScratchProject blink("blink");
    const std::vector<Write> led = run(blink, {"main.asm", "timer.asm", "led.asm"}, "portb", 3000000);
    ASSERT_GE(led.size(), 5u);
    for (size_t i = 2; i < led.size(); ++i) {
        EXPECT_EQ(led[i].value & 1, 1 - (led[i - 1].value & 1)) << "on and off in turn";
        EXPECT_NEAR(static_cast<double>(led[i].cycle - led[i - 1].cycle), 8 * 65536, 100) << "half a second";
    }

    CScratchProject greeting("greeting", "PIC18F4520");
    std::string sent;
    for (const Write &write : run(greeting, {"main.asm", "serial.asm", "starts.asm", "texts.asm"}, "txreg", 100000))
        sent += static_cast<char>(write.value);
    EXPECT_EQ(sent, "Hello! Start 01\r\n");
}

TEST(Build, RebuildsWhatAnIncludeConcerns) {
    CScratchProject project;
    const CStringList sources = {"a.asm", "b.asm"};
    project.Write("inc dir/one.inc", " include \"two.inc\"\n");
    project.Write("inc dir/two.inc", "V equ 1\n");
    project.Write("a.asm",
                  " include \"p16f628a.inc\"\n include \"one.inc\"\n global main\n code\nmain movlw V\n end\n");
    project.Write("b.asm", " include \"p16f628a.inc\"\n code\nbee return\n end\n");
    project.SetOption("Assembler", "IncludePath", "inc dir");
    EXPECT_EQ(Rebuilt(project, sources), "a.asm,b.asm");
    ASSERT_TRUE(project.HasOutputs());
    EXPECT_EQ(Rebuilt(project, sources), "");

    project.Write("inc dir/two.inc", "V equ 2\n");
    EXPECT_EQ(Rebuilt(project, sources), "a.asm") << "nested";
    project.Write("inc dir/two.inc", "V equ 2\n include \"three.inc\"\n");
    project.Write("inc dir/three.inc", "W3 equ 2\n");
    EXPECT_TRUE(Contains(project.Make(), "Assembling a.asm"));
    project.Write("inc dir/three.inc", "W3 equ 3\n");
    EXPECT_TRUE(Contains(project.Make(), "Assembling a.asm")) << "included since the makefile was written";

    project.Write("one.inc", "V equ 9\n");
    EXPECT_EQ(Rebuilt(project, sources), "a.asm") << "a file made later in a directory that is searched earlier";
    project.Remove("one.inc");
    EXPECT_EQ(Rebuilt(project, sources), "a.asm") << "and gone again";
    ASSERT_TRUE(project.HasOutputs());

    project.Remove("inc dir/three.inc");
    const std::string output = project.Build(sources);
    EXPECT_TRUE(Contains(output, "inc dir/two.inc(2): Error[105]")) << output;
    EXPECT_FALSE(project.HasOutputs());
    project.Write("inc dir/three.inc", "W3 equ 4\n");
    EXPECT_EQ(Rebuilt(project, sources), "a.asm") << "a missing include made later";
    EXPECT_TRUE(project.HasOutputs());
}

TEST(Build, RebuildsWhatAnOptionConcerns) {
    CScratchProject project;
    const CStringList sources = {"a.asm", "b.asm"};
    project.Write("a.asm", kMain);
    project.Write("b.asm", kHelper);
    EXPECT_EQ(Rebuilt(project, sources), "a.asm,b.asm");
    project.SetOption("Assembler", "Defines", "X=1;Y");
    EXPECT_EQ(Rebuilt(project, sources), "a.asm,b.asm");
    project.SetOption("Settings", "SableCheck", "0");
    EXPECT_EQ(Rebuilt(project, sources), "") << "the host's own key";
    project.SetOption("Linker", "Extra", "-O 2 -swcs");
    const std::string output = project.Build(sources);
    EXPECT_FALSE(Contains(output, "Assembling")) << output;
    EXPECT_TRUE(Contains(output, "Linking")) << output;
    EXPECT_TRUE(project.HasOutputs()) << "an option of other linkers does no harm: " << output;
    project.Write("b.asm", kMain);
    project.Write("c.asm", kHelper);
    EXPECT_FALSE(Contains(project.Build({"a.asm", "c.asm"}), "rror"))
        << "another source in place of one that was linked";
}

TEST(Build, HandlesUnusualNames) {
    CScratchProject project("my blinker #1 $x 100%");
    const CStringList sources = {"main.asm", "\"sub dir\\it's a & b.asm\"",
                                 "..\\" + project.Path("").substr(5) + "common\\main.asm"};
    project.Write("main.asm",
                  " extern one, two\n include \"p16f628a.inc\"\n code\nmain call one\n call two\n global main\n end\n");
    project.Write("sub dir/it's a & b.asm",
                  " include \"p16f628a.inc\"\n include \"own = inc.inc\"\n global one\n code\none return\n end\n");
    project.Write("sub dir/own = inc.inc", "X equ 1\n");
    project.Write("common/main.asm", " include \"p16f628a.inc\"\n global two\n code\ntwo return\n end\n");
    const std::string output = project.Build(sources);
    EXPECT_TRUE(project.HasOutputs()) << output;
    EXPECT_EQ(Rebuilt(project, sources), "");
    project.Write("sub dir/own = inc.inc", "X equ 2\n");
    EXPECT_EQ(Rebuilt(project, sources), "sub dir/it's a & b.asm");
    project.Make("clean");
    EXPECT_EQ(project.ExitCode(), 0);
    EXPECT_EQ(RunShell("ls -A '" + project.Path("Debug") + "'"), "") << "clean leaves something";
    EXPECT_TRUE(project.Has("main.asm"));
}

TEST(Build, FailuresLeaveNoImageAndTellThePlace) {
    struct {
        const char *name, *source, *expected;
    } cases[] = {
        {"an error", " include \"p16f628a.inc\"\n code\nmain movlw nowhere\n end\n", "a.asm(3): Error[113] "},
        {"a missing symbol", " extern zip\n include \"p16f628a.inc\"\n code\nmain nop\n call zip\n end\n",
         "a.asm(5): Error: Missing definition for symbol \"zip\""},
        {"no memory", " include \"p16f628a.inc\"\nbig udata\nx res 0x70\n code\nmain nop\n end\n",
         "a.asm(2): Error: No target memory available for section \"big\""},
        {"the same symbol twice", " include \"p16f628a.inc\"\n code\nhelper nop\n global helper\n end\n",
         "helper.asm(4): Error: Duplicate symbol \"helper\""},
        {"no end", " include \"p16f628a.inc\"\n code\nmain nop\n", "a.asm(3): Error[125] "},
        {"a missing include", "\n include \"Helper.INC\"\n code\nmain nop\n end\n",
         "The file is spelled \"helper.Inc\"."},
    };
    for (const auto &c : cases) {
        CScratchProject project;
        project.Write("helper.asm", kHelper);
        project.Write("helper.Inc", "");
        project.Write("a.asm", " include \"p16f628a.inc\"\n extern helper\n code\nmain call helper\n end\n");
        ASSERT_FALSE(Contains(project.Build({"a.asm", "helper.asm"}), "rror"));
        ASSERT_TRUE(project.HasOutputs());
        project.Write("a.asm", c.source);
        const std::string output = project.Build({"a.asm", "helper.asm"});
        EXPECT_TRUE(Contains(output, c.expected)) << c.name << "\n" << output;
        EXPECT_NE(project.ExitCode(), 0) << c.name;
        for (const char *file : {"Debug/demo.hex", "Debug/demo.cof", "Debug/demo.map"})
            EXPECT_FALSE(project.Has(file)) << c.name << " " << file;
    }
}

TEST(Build, MissingSourceIsNamed) {
    CScratchProject project;
    project.Write("a.asm", kMain);
    project.Write("b.asm", kHelper);
    project.Build({"a.asm", "b.asm"});
    ASSERT_TRUE(project.HasOutputs());
    project.Remove("b.asm");
    const std::string output = project.Build({"a.asm", "b.asm"});
    EXPECT_TRUE(Contains(output, "b.asm(0): Error: there is no such source file")) << output;
    EXPECT_FALSE(project.HasOutputs());
}

TEST(Build, ALinkerThatRepeatsItselfForEverIsStopped) {
    CScratchProject project("demo", "PIC18F4520");
    project.Write("a.asm", "xx udata_ovr 0x10\na res 1\n end\n");
    project.Write("b.asm", "xx udata_ovr 0x20\nb res 1\n end\n");
    const std::string output = project.Build({"a.asm", "b.asm"});
    EXPECT_EQ(Count(output, "Different addresses"), 1) << output.substr(0, 2000);
    EXPECT_NE(project.ExitCode(), 0);
}

TEST(Build, RefusesWhatItCantBuildWithClearWords) {
    struct {
        const char *target;
        CStringList sources;
        const char *expected;
    } cases[] = {
        {"PIC16F9999", {"a.asm"}, "does not know the target \"PIC16F9999\""},
        {"PIC16F628A", {}, "no assembler sources"},
        {"PIC16F628A", {"a.asm", "main.c"}, "main.c is no source of the Assembler toolsuite"},
    };
    for (const auto &c : cases) {
        CScratchProject project("demo", c.target);
        EXPECT_FALSE(project.Generate(c.sources));
        EXPECT_TRUE(Contains(project.Error(), c.expected)) << project.Error();
    }
    CScratchProject project;
    const std::string path = getenv("PATH");
    setenv("PATH", "/nowhere", 1);
    EXPECT_FALSE(project.Generate({"a.asm"}));
    setenv("PATH", path.c_str(), 1);
    EXPECT_TRUE(Contains(project.Error(), "\"gputils\"")) << project.Error();
    if (geteuid() == 0) return;  // root may write everywhere
    mkdir(project.Path("Debug").c_str(), 0500);
    EXPECT_FALSE(project.Generate({"a.asm"}));
    EXPECT_TRUE(Contains(project.Error(), "can't be written")) << project.Error();
}

TEST(Build, MakesLibrariesAndLinksThem) {
    CScratchProject library("tools");
    WritePrivateProfileStringA("Assembler", "StepLink", "0", library.project.c_str());
    WritePrivateProfileStringA("Assembler", "StepLibrary", "1", library.project.c_str());
    library.Write("helper.asm", kHelper);
    const std::string made = library.Build({"helper.asm"});
    ASSERT_EQ(library.Outputs(), CStringList{"Debug\\tools.lib"}) << made;
    ASSERT_TRUE(library.HasOutputs()) << made;

    CScratchProject project;
    project.Write("a.asm", kMain);
    project.Write("Tools.lib", library.Read("Debug/tools.lib"));
    const std::string output = project.Build({"a.asm", "tools.lib"});
    EXPECT_TRUE(project.HasOutputs()) << output;
    // The linker lists what it finds the source of; the library's code is added.
    const std::string listing = project.Read("Debug/demo.lst");
    EXPECT_EQ(Count(listing, "   0008     return"), 1) << listing;
    EXPECT_EQ(Count(listing, "     goto    0x"), 1) << listing;
}

TEST(Build, ListsTheVariablesThatSourcesPlace) {
    CScratchProject project;
    project.Write("a.asm", R"( include "p16f628a.inc"
 extern other
LENGTH equ 2
 cblock 0x70
 first, second:LENGTH ; , third
last
 endc
LIMIT = .25
kept equ 0x7E
lamp set PORTB
 udata
placed res 2
put macro value
 movwf value
 endm
 code
main: movlw LIMIT
 put kept
 bsf lamp, LENGTH
 banksel other
 goto main
 end
)");
    project.Write("b.asm", " include \"p16f628a.inc\"\n global other\nfirst equ 0x10\n udata\nother res 1\n end\n");
    const std::string output = project.Build({"a.asm", "b.asm"});
    ASSERT_TRUE(project.HasOutputs()) << output;
    const std::string listing = project.Read("Debug/demo.lst");
    std::istringstream table(listing.substr(std::min(listing.find("VALUE\n"), listing.size())));
    std::string names, name, value;
    for (table >> name; table >> name >> value;) names += name + "=" + value + " ";
    EXPECT_EQ(
        names,
        "placed=00000120 other=00000122 first=00000070 second=00000071 last=00000073 kept=0000007E lamp=00000006 ");
}

TEST(Build, DebugAndReleaseDiffer) {
    CScratchProject project;
    project.Write("a.asm",
                  " include \"p16f628a.inc\"\n ifdef __DEBUG\n messg \"debugging\"\n endif\n code\nmain nop\n end\n");
    EXPECT_TRUE(Contains(project.Build({"a.asm"}), "a.asm(3): Message[301]"));
    project.config.replace(project.config.find(".Debug."), 7, ".Release.");
    EXPECT_FALSE(Contains(project.Build({"a.asm"}), "Message"));
    EXPECT_TRUE(project.Has("Release/demo.hex"));
}
