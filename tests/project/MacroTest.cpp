#include <boost/make_shared.hpp>

#include "ModelTest.h"
#include "platform/ProgramDirectory.h"
#include "project/CurrentWorkspace.h"
#include "project/MacroExpansion.h"
#include "project/ProjectWorkspace.h"

namespace {

using MacroTest = ModelTest;

TEST(MacroExpansion, ReplacesTheSixVariablesInTheirOrder) {
    MacroValues values;
    values.name = [] { return "blink"; };
    values.shortName = [] { return "%name%"; };
    values.target = [] { return "PIC16F877"; };
    values.appDir = [] { return "\\opt\\my ide"; };
    values.config = [] { return "Debug"; };
    struct {
        const char *text, *expected;
    } const cases[] = {
        {"%name%.%name%", "blink.blink"},
        {"%NAME%", "%NAME%"},
        {"%config%/%name%.hex", "Debug/blink.hex"},
        {"%shortname%", "%name%"},  // a former variable's text in a later value stays
        {"%shorttarget% of %target%", "16F877 of PIC16F877"},
        {"%appdir%\\gpasm %", "\\opt\\my ide\\gpasm %"},
        {"%name and 100% of %word%", "%name and 100% of %word%"},
        {"%%name%%", "%blink%"},
        {"", ""},
    };
    for (const auto &c : cases) {
        std::string text = c.text;
        ExpandMacroText(text, values);
        EXPECT_EQ(text, c.expected) << c.text;
    }
    values.name = [] { return "%config%%name%"; };
    std::string text = "%name%";
    ExpandMacroText(text, values);
    EXPECT_EQ(text, "Debug%name%") << "a later variable in a value is replaced, its own is not";
}

TEST(MacroExpansion, ShortensTargets) {
    struct {
        const char *target, *expected;
    } const cases[] = {{"PIC16F877", "16F877"}, {"pic18F4520", "18F4520"}, {"SX28", "28"},
                       {"16F84", "16F84"},      {"PICSX", "SX"},           {"", ""}};
    for (const auto &c : cases) EXPECT_EQ(ShortTarget(c.target), c.expected) << c.target;
}

TEST_F(MacroTest, TheValuesComeFromProjectTargetAndBox) {
    std::string text = "[%name%%shortname%%target%%config%]";
    ExpandMacroText(text, ProjectMacroValues({}, [] { return "Debug"; }));
    EXPECT_EQ(text, "[Debug]") << "without a workspace";

    const std::string path = WriteProject("my project/a long name.__c", {}, "Target=PIC16F628\r\n");
    CurrentWorkspace() = boost::make_shared<CProjectWorkspace>(path.c_str());
    ASSERT_TRUE(CurrentWorkspace()->AddProject(path, true, true));
    text = "%name% %target% %config% %appdir%";
    ExpandMacroText(text, ProjectMacroValues(path, [] { return "Release"; }));
    EXPECT_EQ(text, "a long name PIC16F628 Release " + ProgramDirectory());
    const ProjectDirScope scope(path);
    text = "%shortname%";
    ExpandMacroText(text, ProjectMacroValues({}, {}));
    EXPECT_LE(text.size(), 8u) << text;
}

}  // namespace
