// A window of the editing component in a shown parent, with what it told.
#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "editor/SciLexer.h"

class CTestComponent {
public:
    struct Told {
        SciLexerNotification notification;
        std::string text;  // copy of what the notification's text pointed to
    };

    CTestComponent();

    size_t CountOf(uint32_t code) const;
    const Told *LastOf(uint32_t code) const;  // null: never told
    void Fill(const char *text) const;

    CSciLexer lexer;
    QWidget parent;
    CSciWindow sci;
    std::vector<Told> told;
};
