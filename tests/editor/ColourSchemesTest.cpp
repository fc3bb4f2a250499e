#include "editor/ColourSchemes.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "editor/EditorProperties.h"

namespace {

struct Colours {
    uint32_t text, back;
    bool operator==(const Colours &) const = default;
};

// What most rows have, and those that differ.
struct Expected {
    bool lineNumbers;
    Colours most;
    std::map<std::string, Colours> others;
};

std::ostream &operator<<(std::ostream &out, const Colours &c) {
    return out << std::hex << c.text << " on " << c.back;
}

const Colours kOpenString = {0x004080, 0xC0C0FF};

const std::map<std::string, Expected> kExpected = {
    {"Visual C++",
     {false,
      {0x000000, 0xFFFFFF},
      {{"Comment block", {0x008000, 0xFFFFFF}},
       {"Line comment", {0x008000, 0xFFFFFF}},
       {"Word", {0xFF0000, 0xFFFFFF}},
       {"Character", {0x004080, 0xFFFFFF}},
       {"Preprocessor", {0xFF0000, 0xFFFFFF}},
       {"String EOL", kOpenString},
       {"Execution Line", {0x000000, 0x40C040}},
       {"Selection", {0xFFFFFF, 0x000000}}}}},
    {"Borland",
     {true,
      {0x00FFFF, 0x800000},
      {{"Comment block", {0xC0C0C0, 0x800000}},
       {"Line comment", {0xC0C0C0, 0x800000}},
       {"Preprocessor", {0xC0C0C0, 0x800000}},
       {"String EOL", kOpenString},
       {"Execution Line", {0x000000, 0x008000}},
       {"Selection", {0x000000, 0xC0C0C0}},
       {"Caret", {0x00FFFF, 0xFFFFFF}}}}},
    {"Midnight",
     {false,
      {0xFFFFFF, 0x000000},
      {{"Comment block", {0x008000, 0x000000}},
       {"Line comment", {0x008000, 0x000000}},
       {"Word", {0xFF0000, 0x000000}},
       {"Character", {0x004080, 0x000000}},
       {"Preprocessor", {0xFF0000, 0x000000}},
       {"String EOL", kOpenString},
       {"Execution Line", {0x000000, 0x40C040}},
       {"Selection", {0x000000, 0xFFFFFF}}}}},
};

}  // namespace

TEST(ColourSchemes, FillTheWholeTable) {
    for (size_t scheme = 0; scheme < kColourSchemes.size(); ++scheme) {
        const std::string name = kColourSchemes[scheme];
        SCOPED_TRACE(name);
        CEditorProperties properties;
        properties.font = "Mine";
        properties.lineNumbers = true;
        for (CStyle &style : properties.styles) style.bold = style.italic = style.underline = style.noChange = true;
        ApplyColourScheme(properties, scheme);
        EXPECT_EQ(properties.font, "Mine");
        if (name == "Default") {
            EXPECT_EQ(properties.styles, CEditorProperties().styles);
            EXPECT_FALSE(properties.lineNumbers);
            continue;
        }
        const Expected &expected = kExpected.at(name);
        EXPECT_EQ(properties.lineNumbers, expected.lineNumbers);
        for (size_t i = 0; i < properties.styles.size(); ++i) {
            const CStyle &style = properties.styles[i];
            const auto other = expected.others.find(style.name);
            EXPECT_EQ((Colours{style.textColour, style.backColour}),
                      other == expected.others.end() ? expected.most : other->second)
                << style.name;
            EXPECT_EQ(style.id, CEditorProperties().styles[i].id);
            EXPECT_EQ(style.bold, name == "Borland" && style.name == "Preprocessor") << style.name;
            EXPECT_FALSE(style.italic || style.underline || style.noChange) << style.name;
        }
    }
}
