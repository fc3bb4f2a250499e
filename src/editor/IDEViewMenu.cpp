// The pop-up menu of the code view.
#include <QContextMenuEvent>
#include <QMenu>
#include <memory>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/Path.h"
#include "app/StringIds.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "framework/Language.h"

void CIDEView::contextMenuEvent(QContextMenuEvent *event) {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    if (!frame || !sci_ || !GetDocument()) return;
    QPoint at = event->globalPos();
    if (event->reason() == QContextMenuEvent::Mouse) {
        MoveCaretForMenu(sci_.Widget()->mapFromGlobal(at));
    } else {
        const intptr_t caret = Send(SCI_GETCURRENTPOS);
        const auto x = static_cast<int>(Send(SCI_POINTXFROMPOSITION, 0, caret));
        const auto y = static_cast<int>(Send(SCI_POINTYFROMPOSITION, 0, caret) + Send(SCI_TEXTHEIGHT, 0));
        at = sci_.Widget()->mapToGlobal(QPoint(x, y));
    }
    const std::unique_ptr<QMenu> menu(frame->MakeMenu(IDR_VIEW_MENU));
    const std::string counterpart = CounterpartOf(GetDocument()->GetPathName());
    if (!counterpart.empty()) {
        menu->addSeparator();
        const std::string text = LoadText(IDS_MENU_COUNTERPART, {CPath(counterpart).GetFileName()});
        menu->addAction(frame->MakeCommandAction(ID_OPEN_COUNTERPART, text, menu.get()));
    }
    if (!menu->isEmpty()) menu->exec(at);
}

// The menu's commands are about the line under the pointer, or about the selection when that is where the pointer is.
void CIDEView::MoveCaretForMenu(const QPoint &at) {
    const intptr_t position =
        Send(SCI_POSITIONFROMPOINT, static_cast<uintptr_t>(at.x()), static_cast<intptr_t>(at.y()));
    const intptr_t start = Send(SCI_GETSELECTIONSTART), end = Send(SCI_GETSELECTIONEND);
    if (start == end || position < start || position > end)
        Send(SCI_SETSEL, static_cast<uintptr_t>(position), position);
}
