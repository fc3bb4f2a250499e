// A docking bar: a window of the main frame that the user may move, float and hide.
#pragma once

#include <QDockWidget>

#include "framework/Wnd.h"

class CDockBar : public QDockWidget, public CWnd {
public:
    // `id`: the child window's number, which names the bar in saved layouts.
    CDockBar(int id, const std::string &title, QWidget *parent);

    QWidget *Widget() override { return this; }
    int Id() const { return id_; }

private:
    int id_;
};
