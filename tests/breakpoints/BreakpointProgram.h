// The program with breakpoints in its sources, as list and views tell of them.
#pragma once

#include <QAbstractButton>
#include <QTimer>
#include <stdexcept>

#include "editor/ViewSetup.h"
#include "editor_documents/EditorProgram.h"

// By what it says.
inline QAbstractButton *ButtonOf(const QWidget &window, const QString &text) {
    for (auto *button : window.findChildren<QAbstractButton *>())
        if (button->text().remove('&') == text) return button;
    throw std::out_of_range(text.toStdString());
}

// Clicks when the caller has returned: for a button that opens another window, which the next answer is for. The one
// after that is for this window again.
inline void ClickLater(const QWidget &window, const QString &text) {
    QAbstractButton *button = ButtonOf(window, text);
    QTimer::singleShot(0, button, [button] { button->click(); });
}

class Breakpoints : public EditorProgram {
protected:
    CBreakpointList &List() { return program.App().breakpoints; }

    // "2 4(a) ": the lines of a file, each with its condition.
    std::string Listed(const std::string &name) {
        std::map<int, std::string> lines;
        for (const CMarker &marker : List().Markers())
            if (marker.File() == scratch.Windows(name)) lines[marker.line] = marker.props->cond;
        std::string text;
        for (const auto &[line, condition] : lines)
            text += std::to_string(line) + (condition.empty() ? "" : "(" + condition + ")") + ' ';
        return text;
    }
    static std::string Marked(CIDEDoc *document, int marker = kMarkerBreakpoint) {
        std::string lines;
        intptr_t line = -1;
        while ((line = ViewOf(document).Send(SCI_MARKERNEXT, static_cast<uintptr_t>(line + 1), 1 << marker)) >= 0)
            lines += std::to_string(line) + ' ';
        return lines;
    }
    void GoTo(CIDEDoc *document, int line) { ViewOf(document).Send(SCI_GOTOLINE, static_cast<uintptr_t>(line)); }
    void Toggle(CIDEDoc *document, int line) {
        GoTo(document, line);
        program.Command(ID_BREAKPOINT_TOGGLE);
    }
    CBreakpointProps &Props(const std::string &name, int line) {
        CMarker *marker = List().Find(scratch.Windows(name), line);
        if (!marker) throw std::out_of_range(name + ':' + std::to_string(line));
        return *marker->props;
    }
    void SetCondition(const std::string &name, int line, const std::string &condition) {
        CBreakpointProps &props = Props(name, line);
        props.useCond = 1;
        props.cond = condition;
    }
};
