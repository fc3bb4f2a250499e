// A handle on one window of the editing component.
#pragma once

#include <QPointer>
#include <QWidget>
#include <string>

#include "editor/SciLexerApi.h"
#include "editor/ScintillaMessages.h"

// Copies name the same window, which its Qt parent owns. A handle without a window, or whose window is gone, answers 0
// to everything. Main thread.
class CSciWindow {
public:
    CSciWindow() = default;
    CSciWindow(QWidget *window, SciLexerSendFn *send) : window_(window), send_(send) {}

    explicit operator bool() const { return !window_.isNull(); }
    QWidget *Widget() const { return window_; }

    intptr_t Send(unsigned message, uintptr_t wParam = 0, intptr_t lParam = 0) const {
        return window_ ? send_(window_, message, wParam, lParam) : 0;
    }
    intptr_t SendText(unsigned message, uintptr_t wParam, const char *text) const {
        return Send(message, wParam, reinterpret_cast<intptr_t>(text));
    }

    std::string GetText() const;               // all bytes, as stored
    std::string GetLine(intptr_t line) const;  // with its line end
    std::string GetSelectedText() const;

private:
    QPointer<QWidget> window_;
    SciLexerSendFn *send_ = nullptr;
};
