// A tool bar whose buttons come from the language library.
#pragma once

#include <QToolBar>
#include <functional>
#include <vector>

class CMDIFrameWnd;

class CXTToolBar : public QToolBar {
public:
    // `id`: the child window's number, which names the bar in saved layouts.
    CXTToolBar(int id, const std::string &title, CMDIFrameWnd *frame);

    // Gives the widget for a place of kind "box" by its command; asked at each load. The bar doesn't own it.
    void SetBoxProvider(std::function<QWidget *(int command)> provider) { box_ = std::move(provider); }

    void LoadToolBar(int resource);
    int LoadedResource() const { return resource_; }
    bool HasButton(int command) const;
    void SetButtonIcon(int command, const std::string &icon);  // until the next load; nothing without the button
    void DeleteButton(int command);  // with a separator that would be left at an end or doubled

    void UpdateCommandUI();  // asks the frame for the state of each button

protected:
    void keyPressEvent(QKeyEvent *event) override;  // Esc: back to the document

private:
    QAction *FindButton(int command) const;
    void TidySeparators();

    CMDIFrameWnd *frame_;
    int resource_ = 0;
    std::function<QWidget *(int)> box_;
};
