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

QCheckBox *MakeBox(int text, const char *key) {
    auto *box = new QCheckBox(ToQString(LoadText(text)));
    box->setChecked(GetProjectInt(kSection, key, 1) != 0);
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

void CBrowserPage::Store() const {
    SetProjectString(kSection, kSystemHeaders, systemHeaders_->isChecked() ? "1" : "0");
    SetProjectString(kSection, kSableHeaders, sableHeaders_->isChecked() ? "1" : "0");
}
