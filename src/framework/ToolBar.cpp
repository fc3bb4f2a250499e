#include "framework/ToolBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QToolButton>
#include <QWidgetAction>

#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"

CXTToolBar::CXTToolBar(int id, const std::string &title, CMDIFrameWnd *frame)
    : QToolBar(ToQString(title), frame), frame_(frame) {
    setObjectName(QString("bar%1").arg(id, 4, 16, QChar('0')));
    setIconSize(QSize(20, 20));
}

namespace {

// A drop-down button runs its command on the button and opens its menu on the arrow.
QToolButton *MakeDropDown(QAction *action, QMenu *menu) {
    auto *button = new QToolButton;
    button->setDefaultAction(action);
    menu->setParent(button, Qt::Popup);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
    return button;
}

}  // namespace

void CXTToolBar::LoadToolBar(int resource) {
    for (QAction *action : actions()) {
        if (action->data().isValid() && box_)
            if (QWidget *box = box_(action->data().toInt())) box->setParent(this);  // outlives its place
        removeAction(action);
        action->deleteLater();
    }
    resource_ = resource;
    for (const LangToolButton &entry : CLanguage::Current().ToolBar(resource)) {
        if (entry.kind == kLangButtonSeparator) {
            addSeparator();
            continue;
        }
        if (entry.kind == kLangButtonBox) {
            if (QWidget *box = box_ ? box_(entry.command) : nullptr) {
                auto *place = new QWidget;  // dies with the tool bar's form, the box doesn't
                auto *row = new QHBoxLayout(place);
                row->setContentsMargins(4, 0, 4, 0);
                row->addWidget(box);
                addWidget(place)->setData(entry.command);
                box->show();
            }
            continue;
        }
        QAction *action = frame_->MakeCommandAction(entry.command, "", this);
        action->setIcon(LoadIcon(entry.icon ? entry.icon : ""));
        action->setCheckable(entry.kind == kLangButtonCheck);
        if (entry.kind == kLangButtonDropDown) {
            QAction *place = addWidget(MakeDropDown(action, frame_->MakeMenu(entry.menu)));
            place->setData(entry.command);
        } else {
            addAction(action);
        }
    }
    if (isVisible()) UpdateCommandUI();
}

QAction *CXTToolBar::FindButton(int command) const {
    for (QAction *action : actions())
        if (action->data().isValid() && action->data().toInt() == command) return action;
    return nullptr;
}

bool CXTToolBar::HasButton(int command) const { return FindButton(command) != nullptr; }

void CXTToolBar::SetButtonIcon(int command, const std::string &icon) {
    if (QAction *action = FindButton(command)) action->setIcon(LoadIcon(icon));
}

void CXTToolBar::DeleteButton(int command) {
    QAction *action = FindButton(command);
    if (!action) return;
    removeAction(action);
    action->deleteLater();
    TidySeparators();
}

void CXTToolBar::TidySeparators() {
    QAction *last = nullptr;
    for (QAction *action : actions()) {
        if (action->isSeparator() && (!last || last->isSeparator()))
            removeAction(action);
        else
            last = action;
    }
    if (last && last->isSeparator()) removeAction(last);
}

void CXTToolBar::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Escape)
        frame_->FocusActiveView();
    else
        QToolBar::keyPressEvent(event);
}

void CXTToolBar::UpdateCommandUI() {
    for (QAction *place : actions()) {
        if (!place->data().isValid()) continue;
        QAction *action = place;
        if (auto *button = qobject_cast<QToolButton *>(widgetForAction(place)))
            action = button->defaultAction() ? button->defaultAction() : place;
        else if (qobject_cast<QWidgetAction *>(place))
            continue;  // a box has its own state
        const CCmdUI ui = QueryCommand(*frame_, place->data().toInt());
        action->setEnabled(ui.enabled);
        if (ui.checked) action->setChecked(*ui.checked);
    }
}
