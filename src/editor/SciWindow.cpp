#include "editor/SciWindow.h"

namespace {

std::string WithoutTerminator(std::string text) {
    if (!text.empty()) text.pop_back();
    return text;
}

}  // namespace

std::string CSciWindow::GetText() const {
    if (!*this) return {};
    std::string text(static_cast<size_t>(Send(SCI_GETTEXTLENGTH)) + 1, '\0');
    SendText(SCI_GETTEXT, text.size(), text.data());
    return WithoutTerminator(std::move(text));
}

std::string CSciWindow::GetLine(intptr_t line) const {
    std::string text(static_cast<size_t>(Send(SCI_LINELENGTH, static_cast<uintptr_t>(line))), '\0');
    if (!text.empty()) SendText(SCI_GETLINE, static_cast<uintptr_t>(line), text.data());
    return text;
}

std::string CSciWindow::GetSelectedText() const {
    // The component's answer counts the terminating zero.
    std::string text(static_cast<size_t>(Send(SCI_GETSELTEXT)), '\0');
    if (!text.empty()) SendText(SCI_GETSELTEXT, 0, text.data());
    return WithoutTerminator(std::move(text));
}
