#include "debugger/DebugBar.h"

#include <QLabel>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"

CDebugBar::CDebugBar(int id, int title, QWidget *parent) : CDockBar(id, LoadText(title), parent) {
    auto *quiet = new QLabel(ToQString(LoadText(IDS_DEBUG_BAR_EMPTY)), this);
    quiet->setAlignment(Qt::AlignCenter);
    quiet->setWordWrap(true);
    quiet->setEnabled(false);
    quiet->setMinimumSize(fontMetrics().height() * 9, fontMetrics().height() * 4);
    quiet->setMargin(fontMetrics().height() / 2);
    setWidget(quiet);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (visible && CIDEApp::Get().session.IsOpen()) Refresh();
    });
}

QSize CDebugBar::sizeHint() const {
    const int line = fontMetrics().height();
    return {line * 16, line * 11};
}
