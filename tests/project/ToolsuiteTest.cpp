#include "project/Toolsuite.h"

#include "ModelTest.h"
#include "build/Message.h"
#include "project/CurrentWorkspace.h"
#include "project/ProjectWorkspace.h"
#include "project/ToolsuiteTable.h"

namespace {

using ToolsuiteTest = ModelTest;

TEST_F(ToolsuiteTest, DiscoveryTakesWhatGivesANameAndTheLaterOfTwo) {
    std::vector<std::string> names;
    for (const auto &[name, toolsuite] : GetToolsuiteTable()) {
        names.push_back(name);
        EXPECT_EQ(toolsuite->GetName(), name);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Plain", "Recorder", "Twin"}));
    EXPECT_STREQ(FindToolsuite("Twin")->getFilterExt(), ".second");
    EXPECT_EQ(FindToolsuite("twin"), nullptr) << "names are exact";

    std::vector<std::string> scanned;
    ScanToolsuites([&](const CSharedLibrary &, const std::string &name) { scanned.push_back(name); });
    EXPECT_EQ(scanned, (std::vector<std::string>{"Plain", "Recorder", "Twin", "Twin"}));
}

TEST_F(ToolsuiteTest, AProjectKeepsItsToolsuiteOverADiscovery) {
    CProject project(WriteProject("p.__c"));
    ASSERT_TRUE(project.Load());
    DiscoverToolsuites();
    FreeToolsuites();
    EXPECT_EQ(project.GetToolActionName(1), "Step 1");
    EXPECT_FALSE(project.SetToolsuite("Recorder"));
    EXPECT_EQ(project.GetToolsuiteName(), "Recorder");
}

TEST_F(ToolsuiteTest, AToolsuiteOfANameAloneAnswersNeutrally) {
    CProject project(Path("p.__c"));
    ASSERT_TRUE(project.SetToolsuite("Plain"));
    std::string text = "as it was";
    std::string error;
    CStringList list;
    ToolCommand command;
    for (int group = 0; group <= 4; ++group) EXPECT_FALSE(project.HasToolGroup(group));
    EXPECT_FALSE(project.Configure(nullptr, nullptr, 0));
    EXPECT_EQ(project.GetExtraBrowseCount(), 0);
    EXPECT_EQ(project.GetExtraBrowse(0), "");
    EXPECT_EQ(project.SelectTarget(nullptr, text), 2);
    EXPECT_FALSE(project.IsValidTarget("PIC16F84"));
    EXPECT_EQ(project.GetDefaultTarget(), "PIC16F84");
    EXPECT_EQ(project.GetToolsNumber(), 0);
    EXPECT_FALSE(project.IsToolActive(0));
    EXPECT_EQ(project.GetToolActionName(0), "");
    EXPECT_EQ(project.GetFilterExt(), "");
    EXPECT_EQ(project.EmptySrcContent("x"), "");
    EXPECT_FALSE(project.WizardSupport(text));
    EXPECT_EQ(project.GenMakeAttr(), "");
    EXPECT_FALSE(project.GetOutputFiles(0, list));
    EXPECT_FALSE(project.GetToolCmdLine(0, command));
    EXPECT_EQ(project.GetDefOutputFilter(), "");
    EXPECT_FALSE(project.GetKeywords(1, text));
    EXPECT_FALSE(project.SupportedCodeWindowType(1));
    EXPECT_EQ(project.GenMake(error, false), nullptr);
    EXPECT_EQ(text, "as it was");
}

TEST_F(ToolsuiteTest, AFullToolsuiteIsAskedThroughItsEntryPoints) {
    CProject project(WriteProject("p.__c"));
    ASSERT_TRUE(project.Load());
    for (int group = 1; group <= 3; ++group) EXPECT_TRUE(project.HasToolGroup(group));
    EXPECT_EQ(project.GetExtraBrowseCount(), 2);
    EXPECT_EQ(project.GetExtraBrowse(1), "extra1.h");
    EXPECT_EQ(project.GetExtraBrowse(-1), "");
    EXPECT_EQ(project.GetDefaultTarget(), "PIC16F877");
    EXPECT_EQ(project.GetToolActionName(1), "Step 1");
    EXPECT_FALSE(project.IsToolActive(0));
    EXPECT_TRUE(project.IsToolActive(1));
    EXPECT_EQ(project.EmptyHdrContent("lcd"), "// header lcd");
    EXPECT_EQ(project.EmptySrcContent("lcd"), "// source lcd");
    EXPECT_EQ(project.GetHeaderExt(), ".h");
    EXPECT_EQ(project.GenMakeAttr(), "-k");
    EXPECT_EQ(project.GetDefOutputFilter(), "%config%/%name%.hex");
    std::string words;
    EXPECT_TRUE(project.GetKeywords(1, words));
    EXPECT_EQ(words, "if else");
    EXPECT_FALSE(project.SupportedCodeWindowType(2));
    project.SetToolActive(1, false, true);
    EXPECT_EQ(Recorder().calls.back(), "SetActive: 1 0 1");
    Recorder().defaultTarget = "";
    EXPECT_EQ(project.GetDefaultTarget(), "PIC16F84");
}

}  // namespace
