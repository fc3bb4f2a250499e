#include "framework/StatusBar.h"

#include <QLabel>

#include "framework/Text.h"

CXTStatusBar::CXTStatusBar(QWidget *parent, const std::vector<int> &widths) : QStatusBar(parent) {
    const int character = fontMetrics().averageCharWidth();
    for (size_t i = 0; i < widths.size(); ++i) {
        auto *pane = new QLabel(this);
        pane->setTextFormat(Qt::PlainText);
        pane->setContentsMargins(6, 0, 6, 0);
        pane->setMinimumWidth(widths[i] * character);
        if (i == 0) {
            pane->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
            addWidget(pane, 1);
        } else {
            addPermanentWidget(pane);
            pane->setVisible(widths[i] > 0);
        }
        panes_.push_back(pane);
    }
}

void CXTStatusBar::SetPaneText(int pane, const std::string &text) {
    if (pane < 0 || pane >= PaneCount()) return;
    QLabel *label = panes_[static_cast<size_t>(pane)];
    const QString shown = ToQString(text);
    if (label->text() != shown) label->setText(shown);
    if (pane > 0) label->setVisible(!text.empty() || label->minimumWidth() > 0);
}

std::string CXTStatusBar::GetPaneText(int pane) const {
    return pane < 0 || pane >= PaneCount() ? std::string() : FromQString(panes_[static_cast<size_t>(pane)]->text());
}
