#include "debugger/DebugBar.h"

#include <QLabel>
#include <QStackedWidget>
#include <utility>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"

CDebugBar::CDebugBar(int id, int title, QWidget *parent)
    : CDockBar(id, LoadText(title), parent), pages_(new QStackedWidget(this)) {
    auto *quiet = new QLabel(ToQString(LoadText(IDS_DEBUG_BAR_EMPTY)), pages_);
    quiet->setAlignment(Qt::AlignCenter);
    quiet->setWordWrap(true);
    quiet->setEnabled(false);
    quiet->setMinimumSize(fontMetrics().height() * 9, fontMetrics().height() * 4);
    quiet->setMargin(fontMetrics().height() / 2);
    pages_->addWidget(quiet_ = quiet);
    setWidget(pages_);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        CMainFrame *const frame = CIDEApp::Get().GetMainFrame();
        if (visible && frame && frame->DebugBars().AreOnView()) Refresh();
    });
}

void CDebugBar::SetContent(QWidget *content) {
    content->setAccessibleName(windowTitle());
    pages_->addWidget(content_ = content);
}

void CDebugBar::ShowContent() {
    if (content_) pages_->setCurrentWidget(content_);
}

void CDebugBar::ShowQuietText() {
    pages_->setCurrentWidget(quiet_);
}

bool CDebugBar::ReadsStopAgain() {
    const CDebugSession &session = CIDEApp::Get().session;
    return std::exchange(readStop_, session.StopCount()) == session.StopCount() && !session.IsRunning();
}

QSize CDebugBar::sizeHint() const {
    const int line = fontMetrics().height();
    return {line * 16, line * 11};
}
