#include "project/BrowserPage.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "project/CurrentWorkspace.h"
#include "project/ProjectSettings.h"
#include "project/Toolsuite.h"
#include "project/Workspace.h"

namespace {

constexpr const char *kSection = "Browser";
constexpr const char *kSystemHeaders = "UseSysHeaders";
constexpr const char *kSableHeaders = "UseSableHeaders";

bool IsOn(const char *key) {
    return GetProjectInt(kSection, key, 1) != 0;
}

QCheckBox *MakeBox(int text, const char *key) {
    auto *box = new QCheckBox(ToQString(LoadText(text)));
    box->setChecked(IsOn(key));
    return box;
}

}  // namespace

CBrowserPage::CBrowserPage()
    : systemHeaders_(MakeBox(IDS_USE_SYS_HEADERS, kSystemHeaders)),
      sableHeaders_(MakeBox(IDS_USE_SABLE_HEADERS, kSableHeaders)) {
    setWindowTitle(ToQString(LoadText(IDS_PAGE_BROWSER)));
    systemHeaders_->setEnabled(WorkspaceOrNone().HasToolGroup({}, static_cast<int>(ToolsuiteGroup::extraBrowse)));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(systemHeaders_);
    layout->addWidget(sableHeaders_);
    layout->addStretch();
}

bool CBrowserPage::Store() const {
    bool changed = false;
    const auto store = [&changed](const char *key, const QCheckBox &box) {
        changed |= IsOn(key) != box.isChecked();
        SetProjectString(kSection, key, box.isChecked() ? "1" : "0");
    };
    store(kSystemHeaders, *systemHeaders_);
    store(kSableHeaders, *sableHeaders_);
    return changed;
}
