#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <sstream>

#include "ScratchProject.h"
#include "platform/Profile.h"

TEST(Module, IsTheAssembler) {
    ASSERT_TRUE(Module().IsLoaded()) << Module().Error();
    CString name;
    EXPECT_NE(Export<ToolGetToolNameFn>("toolGetToolName")(&name), 0);
    EXPECT_EQ(name, "Assembler");
    EXPECT_EQ(Module().Find("toolWizardSupport"), nullptr);
}

TEST(Module, KnowsTheTargetsThatGpasmKnows) {
    auto *isValid = Export<ToolIsValidTargetFn>("toolIsValidTarget");
    struct {
        const char *target;
        bool valid;
    } cases[] = {
        {"PIC16F628A", true}, {"pic16f628a", true}, {"16F628A", true},      {"P18F4520", true},    {"PIC18F4520", true},
        {"PIC12F675", true},  {"PIC16F1938", true}, {"SX28", true},         {"PIC16F9999", false}, {"", false},
        {"PIC", false},       {"LPC2106", false},   {"PIC16F628A ", false},
    };
    for (const auto &c : cases) EXPECT_EQ(isValid("", c.target) != 0, c.valid) << c.target;
    EXPECT_EQ(isValid("", nullptr), 0);
    EXPECT_TRUE(isValid("", Export<ToolGetDefTargetFn>("toolGetDefTarget")("", nullptr)));

    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 1000; ++i) isValid("", "PIC18F4520");
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(3)) << "gpasm is asked each time";
}

TEST(Module, StoresWhichStepsAreOn) {
    CScratchProject project;
    auto *active = Export<ToolGetActiveFn>("toolGetActive");
    auto *setActive = Export<ToolSetActiveFn>("toolSetActive");
    const int count = Export<ToolGetToolsNumberFn>("toolGetToolsNumber")();
    ASSERT_EQ(count, 5);
    std::set<std::string> names;
    for (int step = 0; step < count; ++step)
        names.insert(Export<ToolGetToolActionNameFn>("toolGetToolActionName")(step));
    for (const char *name : {"Assemble", "Link", "Disassemble"}) EXPECT_TRUE(names.contains(name)) << name;

    for (int step = 1; step < count; ++step) {
        const int before = active(step, project.project.c_str());
        setActive(step, !before, 1, project.project.c_str());
        EXPECT_EQ(active(step, project.project.c_str()), !before) << step;
    }
    setActive(0, 0, 0, project.project.c_str());
    EXPECT_EQ(active(0, project.project.c_str()), 1) << "a build without assembling is none";
    EXPECT_EQ(active(-1, project.project.c_str()), 0);
    EXPECT_EQ(active(count, project.project.c_str()), 0);
    EXPECT_STREQ(Export<ToolGetToolActionNameFn>("toolGetToolActionName")(99), "");
}

TEST(Module, HasTheKeywordsOfAllFamilies) {
    CString words;
    auto *keywords = Export<ToolGetKeywordsFn>("toolGetKeywords");
    ASSERT_NE(keywords(2, &words), 0);
    std::istringstream in(words);
    const std::set<std::string> all(std::istream_iterator<std::string>(in), {});
    for (const char *word :
         {"movlw", "tris", "tblrd", "moviw", "lgoto", "udata_shr", "#include", "banksel", "__config"})
        EXPECT_TRUE(all.contains(word)) << word;
    CString untouched = "x";
    for (const int kind : {0, 1, 3, 4, -1}) EXPECT_EQ(keywords(kind, &untouched), 0) << kind;
    EXPECT_EQ(untouched, "x");
}

TEST(Module, NewSourcesAssembleAndLinkForEachFamily) {
    for (const char *target :
         {"PIC16F628A", "PIC18F4520", "PIC16F1938", "PIC10F200", "PIC12F675", "PIC16F84", "PIC17C44"}) {
        CScratchProject project("2 tone", target);
        ASSERT_TRUE(Export<ToolIsValidTargetFn>("toolIsValidTarget")(project.project.c_str(), target));
        const std::string header = Export<ToolEmptyContentFn>("toolEmptyHdrContent")("2 tone");
        std::string source = Export<ToolEmptyContentFn>("toolEmptySrcContent")("2 tone");
        source.insert(source.find("            global"), "            include \"2 tone.inc\"\n");
        project.Write("2 tone.inc", header);
        project.Write("2 tone.asm", source);
        const std::string output = project.Build({"\"2 tone.asm\""});
        EXPECT_TRUE(project.HasOutputs()) << target << "\n" << output;
        EXPECT_EQ(output.find("Error"), std::string::npos) << output;
        EXPECT_EQ(output.find("Warning"), std::string::npos) << output;
    }
}

TEST(Module, OffersCommandLinesForEachStep) {
    CScratchProject project;
    project.Write("a.asm", " include \"p16f628a.inc\"\n code\nmain goto main\n global main\n end\n");
    auto *outputFiles = Export<ToolGetOutputFilesFn>("toolGetOutputFiles");
    for (int step = 0; step < 5; ++step) {
        CStringList inputs = {"a.asm"}, outputs, further;
        for (int earlier = 0; earlier < step; ++earlier)
            ASSERT_TRUE(outputFiles(earlier, &inputs, project.project.c_str(), project.config.c_str()));
        CString command, log, title;
        int32_t extra = 0;
        ASSERT_TRUE(Export<ToolGetToolCmdLineFn>("toolGetToolCmdLine")(step, &command, &log, &title, &inputs, &outputs,
                                                                       &further, &extra, project.project.c_str(),
                                                                       project.config.c_str()));
        int code = -1;
        const std::string text = RunShell("cd '" + project.Path("") + "' && " PROGRAM_DIRECTORY "/" + command, &code);
        EXPECT_EQ(code, 0) << command << "\n" << text;
        for (std::string file : outputs) {
            for (char &c : file) c = c == '\\' ? '/' : c;
            EXPECT_TRUE(project.Has(file)) << step << " " << file;
        }
        if (step == 4) {
            EXPECT_NE(text.find("Program memory: 1 of 2048 words"), std::string::npos) << text;
        }
    }
}
