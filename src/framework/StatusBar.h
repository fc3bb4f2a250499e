// A status bar of numbered panes.
#pragma once

#include <QStatusBar>
#include <string>
#include <vector>

class QLabel;

class CXTStatusBar : public QStatusBar {
public:
    // `widths`: minimal widths of the panes in characters; pane 0 shows the help of commands and takes the rest.
    CXTStatusBar(QWidget *parent, const std::vector<int> &widths);

    void SetPaneText(int pane, const std::string &text);
    std::string GetPaneText(int pane) const;
    int PaneCount() const { return static_cast<int>(panes_.size()); }

    void InsertPane(int pane, int width);  // the panes from there on move up by one; not in front of pane 0
    void RemovePane(int pane);

private:
    QLabel *MakePane(int width);

    std::vector<QLabel *> panes_;
};
