#include "framework/MDITabs.h"

#include <QMouseEvent>
#include <QSignalBlocker>

#include "framework/Document.h"
#include "framework/MDIChildWnd.h"
#include "framework/MDIFrameWnd.h"
#include "framework/Text.h"
#include "platform/NativePath.h"

CMDITabs::CMDITabs(CMDIFrameWnd *frame) : QTabBar(frame), frame_(frame) {
    setDocumentMode(true);
    setTabsClosable(true);
    setExpanding(false);
    setElideMode(Qt::ElideMiddle);
    setUsesScrollButtons(true);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QTabBar::currentChanged, this, [this](int tab) {
        if (CMDIChildWnd *child = ChildAt(tab)) child->ActivateFrame();
    });
    connect(this, &QTabBar::tabCloseRequested, this, [this](int tab) {
        if (CMDIChildWnd *child = ChildAt(tab)) child->close();
    });
    connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint &at) {
        if (CMDIChildWnd *child = ChildAt(tabAt(at))) frame_->ShowTabMenu(child, mapToGlobal(at));
    });
}

void CMDITabs::SetAtTop(bool top) { setShape(top ? QTabBar::RoundedNorth : QTabBar::RoundedSouth); }

CMDIChildWnd *CMDITabs::ChildAt(int tab) const {
    const std::vector<CMDIChildWnd *> children = frame_->Children();
    return tab >= 0 && tab < static_cast<int>(children.size()) ? children[static_cast<size_t>(tab)] : nullptr;
}

void CMDITabs::Refresh() {
    const QSignalBlocker quiet(this);
    const std::vector<CMDIChildWnd *> children = frame_->Children();
    while (count() > static_cast<int>(children.size())) removeTab(count() - 1);
    while (count() < static_cast<int>(children.size())) addTab(QString());
    for (int tab = 0; tab < count(); ++tab) {
        const CMDIChildWnd *child = children[static_cast<size_t>(tab)];
        const CDocument *document = child->GetActiveDocument();
        if (!document) continue;
        // The tab shows the file's name; a document's title is its whole path, with the star behind it.
        // Each text that is set lays all tabs out again.
        const QString title = ToQString(document->GetTitle());
        const QString text = QString(title.mid(title.lastIndexOf('/') + 1)).replace("&", "&&");
        if (text != tabText(tab)) setTabText(tab, text);
        const QString path = ToQString(document->GetPathName());
        if (path == tabData(tab).toString() && !path.isEmpty()) continue;
        setTabData(tab, path);
        setTabToolTip(tab, path.isEmpty() ? title : ToQString(DisplayPath(document->GetPathName())));
    }
    const auto active = std::ranges::find(children, frame_->MDIGetActive());
    if (active != children.end()) setCurrentIndex(static_cast<int>(active - children.begin()));
}
