#include "framework/DesktopTheme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QStyle>
#include <optional>

#include "support/ScratchDirectory.h"

TEST(DesktopTheme, ReadsWhatGtkProgramsAreTold) {
    const std::optional<bool> nothing;
    struct {
        const char *variable, *settings;  // null: no file
        std::optional<bool> dark;
    } const cases[] = {
        {"", nullptr, nothing},
        {"", "", nothing},
        {"", "[Settings]\ngtk-font-name=Sans 10\n", nothing},
        {"", "[Settings]\ngtk-application-prefer-dark-theme=1\n", true},
        {"", "[Settings]\ngtk-application-prefer-dark-theme = true\ngtk-theme-name=Adwaita\n", true},
        {"", "[Settings]\ngtk-application-prefer-dark-theme=0\ngtk-theme-name=Arc-Dark\n", true},
        {"", "[Settings]\ngtk-application-prefer-dark-theme=0\n", false},
        {"", "[Settings]\ngtk-theme-name=\"Darkness\"\n", false},
        {"Adwaita:dark", nullptr, true},
        {"Yaru-dark", nullptr, true},
        {"Adwaita", "[Settings]\ngtk-application-prefer-dark-theme=1\n", false},
    };
    for (const auto &c : cases) {
        const CScratchDirectory scratch;
        if (c.settings) scratch.Write("settings.ini", c.settings);
        EXPECT_EQ(GtkWantsDark(c.variable, scratch.Windows("settings.ini")), c.dark)
            << c.variable << " " << (c.settings ? c.settings : "none");
    }
}

TEST(DesktopTheme, TurnsDarkAndBack) {
    const QPalette light = QApplication::palette();
    const QString style = QApplication::style()->name();
    QLabel label("text");
    for (int i = 0; i < 2; ++i) {
        SetDesktopDark(true);
        QCoreApplication::processEvents();
        EXPECT_TRUE(IsDesktopDark());
        EXPECT_LT(label.palette().color(QPalette::Window).lightness(), 80);
        for (auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QPalette &dark = QApplication::palette();
            for (const auto &[text, ground] : {std::pair(QPalette::WindowText, QPalette::Window),
                                               std::pair(QPalette::Text, QPalette::Base),
                                               std::pair(QPalette::ButtonText, QPalette::Button),
                                               std::pair(QPalette::HighlightedText, QPalette::Highlight),
                                               std::pair(QPalette::ToolTipText, QPalette::ToolTipBase)})
                EXPECT_GT(dark.color(group, text).lightness(), dark.color(group, ground).lightness() + 50);
        }
        SetDesktopDark(false);
        QCoreApplication::processEvents();
        EXPECT_EQ(QApplication::palette(), light);
        EXPECT_EQ(label.palette().color(QPalette::Window), light.color(QPalette::Window));
        EXPECT_EQ(QApplication::style()->name(), style);
    }
}
