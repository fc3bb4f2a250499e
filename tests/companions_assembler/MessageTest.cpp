#include <gtest/gtest.h>

#include "ScratchProject.h"
#include "asmtool/DependencyFile.h"
#include "asmtool/MessageRewriter.h"
#include "coff/ObjectFile.h"
#include "platform/NativePath.h"

TEST(MessageRewriter, WritesEachKindSoThatItsPlaceIsRead) {
    struct {
        const char *line;
        std::vector<std::string> expected;
        bool error;
    } cases[] = {
        {"sub/a.asm:12:Error[113]   Symbol not previously defined: \"x\"",
         {"sub/a.asm(12): Error[113] Symbol not previously defined: \"x\""},
         true},
        {"my file.asm:1:Warning[202] Argument out of range.",
         {"my file.asm(1): Warning[202] Argument out of range."},
         false},
        {"a.asm:12:Message[305] Using default destination of 1 (file).",
         {"a.asm(12): Message[305] Using default destination of 1 (file)."},
         false},
        {"h.asm:4:Error[1102]   Parser error: syntax error",
         {"h.asm(4): Error[1102] Parser error: syntax error"},
         true},
        {"/usr/share/x.inc:7:Error[181]   Unknown opcode: \"a:1:Error\"",
         {"/usr/share/x.inc(7): Error[181] Unknown opcode: \"a:1:Error\""},
         true},
        {"a:3:b.asm:12:Error[113]   text", {"a:3:b.asm(12): Error[113] text"}, true},
        {"line 3.asm:12:Error[113]   text", {"./line 3.asm(12): Error[113] text"}, true},
        {"Error.asm:1:Error[113]   text", {"./Error.asm(1): Error[113] text"}, true},
        {"7> x.asm:1:Error[113]   text", {"./7> x.asm(1): Error[113] text"}, true},
        {"a (copy).asm:5:Error[113]   text", {"a (copy).asm", "line 5: Error[113] text"}, true},
        {"gr\xC3\xBCn.asm:5:Warning[220] text", {"gr\xC3\xBCn.asm", "line 5: Warning[220] text"}, false},
        {"bad.lkr:2:Error invalid script command (BOGUS)", {"bad.lkr(2): Error: invalid script command (BOGUS)"}, true},
        {"Error[125]   Illegal condition: EOF encountered before END.",
         {"nowhere.asm(1): Error[125] Illegal condition: EOF encountered before END."},
         true},
        {"error: Unable to open file \"foo.lkr\" - No such file or directory",
         {"Error: Unable to open file \"foo.lkr\" - No such file or directory"},
         true},
        {"message: Using default linker script \"/usr/share/gputils/lkr/16f628a_g.lkr\".", {}, false},
        {"x.o: No such file or directory", {"x.o: No such file or directory"}, false},
        {"", {""}, false},
        {"a.asm:Error[113]", {"a.asm:Error[113]"}, false},
        {"a.asm:99999999999999:Error[113] x", {"a.asm:99999999999999:Error[113] x"}, false},
        {"Error[", {"Error["}, false},
    };
    for (const auto &c : cases) {
        CMessageRewriter rewriter({"nowhere.asm", "p16f628a", {}, {}});
        EXPECT_EQ(rewriter.Rewrite(c.line), c.expected) << c.line;
        EXPECT_EQ(rewriter.SawError(), c.error) << c.line;
    }
}

// The processor that a source names for other tools is news only when it isn't the project's.
TEST(MessageRewriter, DropsAWarningAboutTheSameProcessor) {
    CScratchProject project;
    project.Write("a.asm", "\n list p=16F628A\n list p=16f628\n list p=16f84");
    for (const auto &[line, lines] : {std::pair{2, 0u}, {3, 1u}, {4, 1u}, {9, 1u}}) {
        CMessageRewriter rewriter({"a.asm", "p16f628a", {}, {}});
        const std::string text =
            project.Path("a.asm") + ":" + std::to_string(line) + ":Warning[215] Processor superseded by command line.";
        EXPECT_EQ(rewriter.Rewrite(text).size(), lines) << line;
    }
}

TEST(DependencyFile, ReadsNamesWithBlanksAndWritesRules) {
    const std::string text =
        "Debug/a~.o :  \\\n  my file.asm \\\n  inc/b c.inc \\\n  /usr/share/gputils/header/p16f628a.inc\n";
    const auto files = ReadAssemblerDependencies(text);
    EXPECT_EQ(files,
              (std::vector<std::string>{"my file.asm", "inc/b c.inc", "/usr/share/gputils/header/p16f628a.inc"}));
    const std::string rules = DependencyRules("Debug/a.o", files, {"lib", "inc"});
    for (const char *rule : {"Debug/a.o: my\\ file.asm\n", "Debug/a.o: inc/b\\ c.inc\n", "\ninc/b\\ c.inc:\n",
                             "Debug/a.o: $(if $(wildcard b\\ c.inc),b\\ c.inc)\n",
                             "Debug/a.o: $(if $(wildcard lib/b\\ c.inc),lib/b\\ c.inc)\n",
                             "Debug/a.o: $(if $(wildcard inc/p16f628a.inc),inc/p16f628a.inc)\n"})
        EXPECT_NE(rules.find(rule), std::string::npos) << rule << "in\n" << rules;
    EXPECT_EQ(rules.find("\nmy\\ file.asm:"), std::string::npos) << "the source's rule is the makefile's";
    EXPECT_TRUE(ReadAssemblerDependencies("").empty());
}

TEST(ObjectFile, SurvivesDamage) {
    CScratchProject project;
    project.Write("a.asm", " include \"p16f628a.inc\"\n extern q\n global m\n code\n nop\nm call q\n end\n");
    project.Build({"a.asm"});
    int code = 0;
    RunShell("cd '" + project.Path("") + "' && gpasm -c -p 16f628a a.asm", &code);
    ASSERT_EQ(code, 0);
    const std::string whole = project.Read("a.o");
    const std::string path = FromNativePath(project.Path("a.o"));
    {
        const CObjectFile object(path);
        EXPECT_EQ(object.SourceName(), "a.asm");
        EXPECT_EQ(object.FirstUse("q").value().line, 6);
        EXPECT_EQ(object.Definition("m").value().line, 6);
        EXPECT_EQ(object.FirstLine(".code").value().line, 5);
        EXPECT_FALSE(object.FirstUse("m"));
    }
    for (size_t size = 0; size < whole.size(); size += 7) {
        project.Write("a.o", whole.substr(0, size));
        const CObjectFile object(path);
        (void)object.FirstUse("q");
    }
    for (size_t at = 0; at < whole.size(); at += 3) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(~damaged[at]);
        project.Write("a.o", damaged);
        const CObjectFile object(path);
        (void)object.FirstUse("q");
        (void)object.Definition("m");
        (void)object.FirstLine(".code");
    }
}

TEST(AsmTool, PassesExitCodesAndSignalsOn) {
    struct {
        const char *tool;
        int code;
        const char *expected;
    } cases[] = {
        {"sh -c 'echo a.asm:3:Warning[202] w; exit 0'", 0, "a.asm(3): Warning[202] w"},
        {"sh -c 'exit 7'", 7, "failed with exit code 7"},
        {"sh -c 'kill -9 $$'", 137, "ended by signal 9"},
        {"sh -c 'echo error: text'", 1, "Error: text"},
        {"no-such-tool x", 127, "gputils"},
        {"sh -c 'head -c 100000000 /dev/zero | tr \"\\\\000\" x; echo; echo end'", 0, "end"},
    };
    for (const auto &c : cases) {
        int code = -1;
        std::string output = RunShell(
            std::string(PROGRAM_DIRECTORY "/asmtool.exe link -- ") + c.tool + " | tail -c 300; exit ${PIPESTATUS:-0}",
            &code);
        EXPECT_NE(output.find(c.expected), std::string::npos) << c.tool << "\n" << output;
        RunShell(std::string(PROGRAM_DIRECTORY "/asmtool.exe link -- ") + c.tool + " >/dev/null", &code);
        EXPECT_EQ(code, c.code) << c.tool;
    }
    int code = -1;
    RunShell(PROGRAM_DIRECTORY "/asmtool.exe link -- sleep 20 & p=$!; sleep 0.3; kill -TERM $p; wait $p", &code);
    EXPECT_EQ(code, 128 + 15);
}
