#include "framework/DockBar.h"

#include "framework/Text.h"

CDockBar::CDockBar(int id, const std::string &title, QWidget *parent)
    : QDockWidget(ToQString(title), parent), id_(id) {
    setObjectName(QString("bar%1").arg(id, 4, 16, QChar('0')));
}
