#include "editor/ReplaceDlg.h"

#include <QComboBox>
#include <QPushButton>
#include <QScreen>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "editor/IDEView.h"
#include "editor/ViewSearch.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

// The first lines of the selection on the screen, with a line of room around.
QRect SelectionOnScreen(const CIDEView &view) {
    const auto start = static_cast<uintptr_t>(view.Send(SCI_GETSELECTIONSTART));
    const intptr_t end = view.Send(SCI_GETSELECTIONEND);
    const int lineHeight = static_cast<int>(view.Send(SCI_TEXTHEIGHT));
    const auto point = [&](uintptr_t position) {
        return QPoint(static_cast<int>(view.Send(SCI_POINTXFROMPOSITION, 0, static_cast<intptr_t>(position))),
                      static_cast<int>(view.Send(SCI_POINTYFROMPOSITION, 0, static_cast<intptr_t>(position))));
    };
    const QPoint from = point(start);
    QPoint to = point(static_cast<uintptr_t>(end));
    if (to.y() != from.y()) to = QPoint(view.width(), from.y());
    return QRect(view.Sci().Widget()->mapToGlobal(from), view.Sci().Widget()->mapToGlobal(to + QPoint(0, lineHeight)))
        .adjusted(-lineHeight, -lineHeight, lineHeight, lineHeight);
}

// Takes away what Replace All has told.
void ClearResult() {
    if (CMainFrame *frame = CIDEApp::Get().GetMainFrame()) frame->SetStatusText(kPaneHelp, LoadText(IDS_SEARCH_READY));
}

}  // namespace

CReplaceDlg::CReplaceDlg(QWidget *parent, CIDEView &view, const std::string &text)
    : CSearchDlg(parent, view, IDS_DIALOG_REPLACE, text) {
    replacement_ = AddTextRow(IDS_LABEL_REPLACEMENT, CIDEApp::Get().find.replaceHistory);
    replacement_->setEditText({});
    AddOptions();
    connect(AddButton(IDS_FIND_NEXT), &QPushButton::clicked, this, &CReplaceDlg::accept);
    connect(AddButton(IDS_REPLACE_ONE), &QPushButton::clicked, this, [this] { Replace(true); });
    connect(AddButton(IDS_REPLACE_ALL), &QPushButton::clicked, this, [this] { Replace(false); });
    AddCloseButton();
}

CReplaceDlg::~CReplaceDlg() {
    ClearResult();
}

void CReplaceDlg::accept() {
    ClearResult();
    Remember(replacement_, CIDEApp::Get().find.replaceHistory);
    Find();
    MakeRoomForHit();
}

void CReplaceDlg::Replace(bool one) {
    if (one) ClearResult();
    RememberText();
    Remember(replacement_, CIDEApp::Get().find.replaceHistory);
    ReplaceCommand(view_, {Text(), FromQString(replacement_->currentText()), Settings()}, one);
    if (one) MakeRoomForHit();
}

void CReplaceDlg::MakeRoomForHit() {
    if (view_.findPos < 0) return;
    const QRect hit = SelectionOnScreen(view_), window = frameGeometry(), room = screen()->availableGeometry();
    if (!window.intersects(hit)) return;
    if (hit.bottom() + window.height() <= room.bottom())
        move(window.x(), hit.bottom() + 1);
    else if (hit.top() - window.height() >= room.top())
        move(window.x(), hit.top() - window.height());
}
