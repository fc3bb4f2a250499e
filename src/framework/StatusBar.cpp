#include "framework/StatusBar.h"

#include <QLabel>

#include "framework/Text.h"

CXTStatusBar::CXTStatusBar(QWidget *parent, const std::vector<int> &widths) : QStatusBar(parent) {
    for (const int width : widths) {
        if (!panes_.empty()) {
            InsertPane(PaneCount(), width);
            continue;
        }
        QLabel *pane = MakePane(width);
        pane->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        addWidget(pane, 1);
        panes_.push_back(pane);
    }
}

QLabel *CXTStatusBar::MakePane(int width) {
    auto *pane = new QLabel(this);
    pane->setTextFormat(Qt::PlainText);
    pane->setContentsMargins(6, 0, 6, 0);
    pane->setMinimumWidth(width * fontMetrics().averageCharWidth());
    return pane;
}

void CXTStatusBar::InsertPane(int pane, int width) {
    if (pane < 1 || pane > PaneCount()) return;
    QLabel *label = MakePane(width);
    insertPermanentWidget(pane, label);
    label->setVisible(width > 0);
    panes_.insert(panes_.begin() + pane, label);
}

void CXTStatusBar::RemovePane(int pane) {
    if (pane < 1 || pane >= PaneCount()) return;
    delete panes_[static_cast<size_t>(pane)];
    panes_.erase(panes_.begin() + pane);
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
