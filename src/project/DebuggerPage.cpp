#include "project/DebuggerPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include "app/Settings.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "project/ProjectSettings.h"

namespace {

constexpr const char *kSection = "Debugger";
constexpr const char *kFromMain = "DebugFromMain";
constexpr const char *kWatchFormat = "DefWatchFormat";

}  // namespace

CDebuggerPage::CDebuggerPage()
    : fromMain_(new QCheckBox(ToQString(LoadText(IDS_DEBUG_FROM_MAIN)))), watchFormat_(new QComboBox) {
    setWindowTitle(ToQString(LoadText(IDS_PAGE_DEBUGGER)));
    fromMain_->setChecked(GetProjectInt(kSection, kFromMain, 1) != 0);
    // In the order of the stored format codes.
    for (const int format : {IDS_FORMAT_DECIMAL, IDS_FORMAT_BINARY, IDS_FORMAT_OCTAL, IDS_FORMAT_HEX})
        watchFormat_->addItem(ToQString(LoadText(format)));
    watchFormat_->setCurrentIndex(qBound(0, GetUserInt(kSection, kWatchFormat, 0), watchFormat_->count() - 1));

    auto *label = new QLabel(ToQString(LoadText(IDS_DEF_WATCH_FORMAT)));
    label->setBuddy(watchFormat_);
    auto *format = new QHBoxLayout;
    format->addWidget(label);
    format->addWidget(watchFormat_);
    format->addStretch();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(fromMain_);
    layout->addLayout(format);
    layout->addStretch();
}

void CDebuggerPage::Store() const {
    SetProjectString(kSection, kFromMain, fromMain_->isChecked() ? "1" : "0");
    WriteUserInt(kSection, kWatchFormat, watchFormat_->currentIndex());
}
