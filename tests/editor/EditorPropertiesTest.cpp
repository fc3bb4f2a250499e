#include "editor/EditorProperties.h"

#include <gtest/gtest.h>

#include <climits>

#include "Component.h"
#include "SettingsScratch.h"

namespace {

const char *const kSection = "UserColorScheme";
constexpr unsigned SCI_STYLEGETSIZE = 2485;  // the program never asks

}  // namespace

TEST(CEditorProperties, KeepsTheDefaultsWithoutSettings) {
    const CSettingsScratch settings;
    WriteUserInt(kSection, "FontSize", 30);  // a section without a font was never written by the program
    CEditorProperties properties;
    properties.Load();
    EXPECT_EQ(properties.font, "Courier New");
    EXPECT_EQ(properties.fontSize, 10);
    EXPECT_TRUE(properties.useTabs);
    EXPECT_EQ(properties.styles, CEditorProperties().styles);
    EXPECT_TRUE(properties.styles[13].noChange);
}

TEST(CEditorProperties, TakesMissingKeysAsBlackOnWhite) {
    const CSettingsScratch settings;
    WriteUserString(kSection, "Font", "Some Font");
    WriteUserInt(kSection, "TabSize", 0);
    WriteUserInt(kSection, "12_Back", 0x123456);
    CEditorProperties properties;
    properties.Load();
    EXPECT_EQ(properties.font, "Some Font");
    EXPECT_EQ(properties.tabSize, 1);
    EXPECT_EQ(properties.fontSize, 10);
    EXPECT_EQ(properties.styles[0].textColour, 0u);
    EXPECT_EQ(properties.styles[9].backColour, 0xFFFFFFu);
    EXPECT_FALSE(properties.styles[13].noChange);
    EXPECT_EQ(properties.styles[12].id, CStyle::kExecutionLine);
    EXPECT_EQ(properties.styles[12].backColour, 0x123456u);
}

TEST(CEditorProperties, ReadsBackWhatItSaved) {
    const CSettingsScratch settings;
    CEditorProperties saved;
    saved.font = "Mono";
    saved.fontSize = 13;
    saved.tabSize = 8;
    saved.useTabs = false;
    saved.fold = saved.indentGuides = saved.smartIndent = saved.lineNumbers = true;
    for (size_t i = 0; i < saved.styles.size(); ++i) {
        CStyle &row = saved.styles[i];
        row.textColour = 0x010000u + static_cast<uint32_t>(i);
        row.backColour = 0xFF0000u + static_cast<uint32_t>(i);
        row.bold = i % 2 != 0;
        row.italic = i % 3 != 0;
        row.underline = i % 5 != 0;
        row.noChange = i % 7 != 0;
    }
    saved.Save();

    CEditorProperties loaded;
    loaded.Load();
    EXPECT_EQ(loaded.font, "Mono");
    EXPECT_EQ(loaded.fontSize, 13);
    EXPECT_EQ(loaded.tabSize, 8);
    EXPECT_FALSE(loaded.useTabs);
    EXPECT_TRUE(loaded.fold && loaded.indentGuides && loaded.smartIndent && loaded.lineNumbers);
    EXPECT_EQ(loaded.styles, saved.styles);

    loaded.ResetStyles();
    EXPECT_EQ(loaded.styles, CEditorProperties().styles);
    EXPECT_EQ(loaded.font, "Mono");
}

TEST(CEditorProperties, ColoursAWindow) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    const CSciWindow &sci = component.sci;
    CEditorProperties properties;
    properties.styles[0].textColour = 0x112233;  // comment block
    properties.styles[1].textColour = 0x445566;  // line comment
    properties.ApplyProperties(sci, 1);
    const struct {
        uintptr_t style;
        intptr_t fore;
    } cases[] = {
        {1, 0x112233},         {3, 0x112233},  // documentation comments follow
        {2, 0x445566},         {15, 0x445566}, {5, 0xFF0000}, {STYLE_BRACELIGHT, 0xFF0000}, {STYLE_BRACEBAD, 0x0000FF},
        {STYLE_LINENUMBER, 0},
    };
    for (const auto &c : cases) EXPECT_EQ(sci.Send(SCI_STYLEGETFORE, c.style), c.fore) << c.style;
    EXPECT_EQ(sci.Send(SCI_STYLEGETBACK, 12), 0xC0C0FF);
    EXPECT_EQ(sci.Send(SCI_GETTABWIDTH), 4);
    CEditorProperties().ApplyProperties(CSciWindow(), 1);  // no window: nothing to do
}

TEST(CEditorProperties, TakesAStoreGoneWrong) {
    const struct {
        int fontSize, tabSize;
        intptr_t usedSize, usedTab;
    } cases[] = {{-5, -1, 1, 1}, {100000, 1000000, 200, 64}, {INT_MIN, INT_MAX, 1, 64}, {12, 16, 12, 16}};
    for (const auto &c : cases) {
        const CSettingsScratch settings;
        WriteUserString(kSection, "Font", std::string(5000, 'x'));
        WriteUserInt(kSection, "FontSize", c.fontSize);
        WriteUserInt(kSection, "TabSize", c.tabSize);
        WriteUserInt(kSection, "11_Back", -1);
        CEditorProperties properties;
        properties.Load();
        CTestComponent component;
        properties.ClearStyles(component.sci);
        properties.ApplyProperties(component.sci, 1);
        EXPECT_EQ(component.sci.Send(SCI_STYLEGETSIZE, STYLE_DEFAULT), c.usedSize);
        EXPECT_EQ(component.sci.Send(SCI_GETTABWIDTH), c.usedTab);
        EXPECT_EQ(component.sci.Send(SCI_STYLEGETBACK, STYLE_DEFAULT), 0xFFFFFF);
        EXPECT_FALSE(component.parent.grab().isNull());
        EXPECT_EQ(component.sci.SendText(SCI_TEXTWIDTH, 0, "iii"), component.sci.SendText(SCI_TEXTWIDTH, 0, "WWW"));
        EXPECT_TRUE(properties.Save());  // what was there stays, for whoever can use it
        EXPECT_EQ(GetUserInt(kSection, "FontSize", 0), c.fontSize);
        EXPECT_EQ(GetUserInt(kSection, "11_Back", 0), -1);
    }
}

TEST(CEditorProperties, StylesThatNoRowSetsLookAsTheRest) {
    CTestComponent component;
    const CSciWindow &sci = component.sci;
    CEditorProperties properties;
    properties.fontSize = 23;
    properties.styles[11].backColour = 0x123456;
    properties.ClearStyles(sci);
    properties.ApplyProperties(sci, 1);
    for (const uintptr_t style : {8u, 13u, 18u}) EXPECT_EQ(sci.Send(SCI_STYLEGETBACK, style), 0x123456) << style;
    for (const int style : {13, int{STYLE_LINENUMBER}, int{STYLE_BRACELIGHT}})
        EXPECT_EQ(sci.Send(SCI_STYLEGETSIZE, static_cast<uintptr_t>(style)), 23) << style;
    EXPECT_NE(sci.Send(SCI_STYLEGETBACK, STYLE_LINENUMBER), 0x123456);  // its text is black in every scheme
}

TEST(CEditorProperties, MakesRoomForLineNumbers) {
    CTestComponent component;
    ASSERT_TRUE(component.sci);
    const CSciWindow &sci = component.sci;
    CEditorProperties properties;
    properties.ApplyProperties(sci, 1000);
    EXPECT_EQ(sci.Send(SCI_GETMARGINWIDTHN, 0), 1);
    EXPECT_EQ(sci.Send(SCI_GETMARGINTYPEN, 0), SC_MARGIN_SYMBOL);

    properties.lineNumbers = true;
    const struct {
        int lines;
        const char *text;
    } cases[] = {{1, "_9"}, {9, "_9"}, {10, "_99"}, {99, "_99"}, {100, "_999"}, {12345, "_99999"}};
    for (const auto &c : cases) {
        properties.ApplyProperties(sci, c.lines);
        EXPECT_EQ(sci.Send(SCI_GETMARGINWIDTHN, 0), sci.SendText(SCI_TEXTWIDTH, 0, c.text)) << c.lines;
    }
    EXPECT_EQ(sci.Send(SCI_GETMARGINTYPEN, 0), SC_MARGIN_NUMBER);
}
