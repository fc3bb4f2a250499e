#include "editor/PrintLayout.h"

#include <gtest/gtest.h>

namespace {

constexpr PrintFigures kA4 = {300, 600, 210, 297};  // another resolution down than across
constexpr int kScreen = 96;

CPrintSettings Settings(const char *unit, double margin, const char *header = "&F", const char *footer = "&P") {
    CPrintSettings settings;
    settings.unit = unit;
    settings.top = settings.bottom = settings.left = settings.right = margin;
    settings.header = header;
    settings.footer = footer;
    return settings;
}

CPrintLayout LayOut(const CPrintSettings &settings, int fontSize = 10, const PrintFigures &figures = kA4) {
    PrintMargins margins;
    margins.Take(settings, figures);
    return {settings, margins, figures, fontSize, kScreen};
}

}  // namespace

TEST(PrintMargins, ConvertByTheirUnit) {
    const struct {
        const char *unit;
        double margin;
        int across, down;
    } cases[] = {
        {"mm", 25.4, 300, 600},    {"MM", 10, 118, 236},
        {"inches", 1.5, 450, 900}, {"Pixels", 77.9, 77, 77},
        {"cubits", 9, 77, 77},  // stays as it was
        {"inches", -3, 0, 0},      {"mm", 1e300, 100000000, 100000000},
    };
    PrintMargins margins;
    for (const auto &c : cases) {
        margins.Take(Settings(c.unit, c.margin), kA4);
        EXPECT_EQ(margins.left, c.across) << c.unit;
        EXPECT_EQ(margins.right, c.across) << c.unit;
        EXPECT_EQ(margins.top, c.down) << c.unit;
        EXPECT_EQ(margins.bottom, c.down) << c.unit;
    }
}

TEST(PrintLayout, PlacesLinesBetweenTheMargins) {
    const CPrintLayout both = LayOut(Settings("inches", 1));
    EXPECT_FLOAT_EQ(both.Scale(), 6.25F);
    EXPECT_EQ(both.FontHeight(), 62);
    EXPECT_EQ(both.LineHeight(), 74);
    EXPECT_EQ(both.LinesPerPage(), 78);  // 246 mm of 246.2
    EXPECT_EQ(both.BodyLines(), 76);
    EXPECT_EQ(both.FirstLine(2), 76);
    EXPECT_EQ(both.HeaderRow(), QRect(300, 600, 1880, 74));
    EXPECT_EQ(both.BodyRow(0), QRect(300, 674, 1880, 74));
    EXPECT_EQ(both.FooterRow(), QRect(300, 7015 - 600 - 74, 1880, 74));
    EXPECT_LE(both.BodyRow(both.BodyLines() - 1).bottom(), both.FooterRow().top());

    const CPrintLayout none = LayOut(Settings("inches", 1, "", ""));
    EXPECT_EQ(none.BodyLines(), 78);
    EXPECT_EQ(none.BodyRow(0).top(), 600);
}

TEST(PrintLayout, HasAPlaceForEachLine) {
    const CPrintLayout layout = LayOut(Settings("inches", 1));
    const struct {
        intptr_t lines;
        int pages;
    } cases[] = {{0, 1}, {1, 1}, {76, 1}, {77, 2}, {152, 2}, {153, 3}, {200000, 2632}};
    for (const auto &c : cases) EXPECT_EQ(layout.PageCount(c.lines), c.pages) << c.lines;
}

TEST(PrintLayout, StaysOnThePaperWithoutRoom) {
    const PrintFigures stamp = {600, 600, 10, 5};
    const struct {
        CPrintSettings settings;
        int fontSize;
        PrintFigures figures;
    } cases[] = {
        {Settings("inches", 50), 10, kA4},
        {Settings("mm", 148), 10, kA4},  // half a line remains
        {Settings("mm", 1e300), 10, kA4},
        {Settings("inches", 0), 200, stamp},
        {Settings("inches", 1), 1, {1, 1, 210, 297}},
    };
    for (const auto &c : cases) {
        const CPrintLayout layout = LayOut(c.settings, c.fontSize, c.figures);
        const auto row = std::to_string(&c - cases);
        EXPECT_GE(layout.BodyLines(), 1) << row;
        EXPECT_GE(layout.LineHeight(), 1) << row;
        EXPECT_GT(layout.BodyRow(0).width(), 0) << row;
        EXPECT_LE(layout.PageCount(100), 100) << row;
        if (c.figures.vertSize == kA4.vertSize && c.fontSize == 10) {
            EXPECT_GT(layout.FooterRow().top(), layout.BodyRow(layout.BodyLines() - 1).top()) << row;
            EXPECT_EQ(layout.LinesPerPage(), 94) << row;  // without margins
        }
    }
}
