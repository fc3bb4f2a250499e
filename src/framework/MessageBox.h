// Modal boxes with a text and buttons.
#pragma once

#include <string>

class QWidget;

enum class BoxIcon { exclamation, stop, question, none };
enum class BoxButtons { ok, okCancel, yesNo, yesNoCancel };
enum BoxResult : int { IDOK = 1, IDCANCEL = 2, IDYES = 6, IDNO = 7 };

// Runs a box over `parent` (may be null) and returns the button pressed; closing it or Escape gives IDCANCEL where
// there is one, else IDNO or IDOK. Main thread.
BoxResult RunMessageBox(QWidget *parent, const std::string &title, const std::string &text, BoxIcon icon,
                        BoxButtons buttons);
