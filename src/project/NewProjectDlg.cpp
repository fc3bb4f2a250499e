#include "project/NewProjectDlg.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "app/Path.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "platform/PathCalls.h"
#include "project/ToolsuiteApi.h"
#include "project/ToolsuiteTable.h"

namespace {

bool HasHeaderText(const CSharedLibrary &library) {
    const auto text = library.Get<ToolEmptyContentFn>("toolEmptyHdrContent");
    const char *result = text != nullptr ? text("_") : nullptr;
    return result != nullptr && *result != '\0';
}

}  // namespace

CNewProjectDlg::CNewProjectDlg(QWidget *parent, const std::string &compiler)
    : QDialog(parent), compilers_(new QComboBox), kinds_(new QListWidget) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_NEW_PROJECT)));
    auto *compilerLabel = new QLabel(ToQString(LoadText(IDS_LABEL_COMPILER)));
    compilerLabel->setBuddy(compilers_);
    auto *kindLabel = new QLabel(ToQString(LoadText(IDS_LABEL_PROJECT_KIND)));
    kindLabel->setBuddy(kinds_);
    FillCompilers(compiler);
    FillKinds();
    connect(compilers_, &QComboBox::currentIndexChanged, this, [this] { FillKinds(); });

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(kinds_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(compilerLabel);
    layout->addWidget(compilers_);
    layout->addWidget(kindLabel);
    layout->addWidget(kinds_);
    layout->addWidget(buttons);
}

void CNewProjectDlg::FillCompilers(const std::string &selected) {
    ScanToolsuites([this](const CSharedLibrary &library, const std::string &name) {
        const std::string file = CPath(library.Path()).GetFileName();
        if (StartsWithNoCase(file, "msvc") || compilers_->findText(ToQString(name)) >= 0) return;
        compilers_->addItem(ToQString(name), ToQString(file));
        if (HasHeaderText(library)) withHeaders_.insert(name);
    });
    for (int i = 0; i < compilers_->count(); ++i)
        if (EqualNoCase(FromQString(compilers_->itemText(i)), selected)) compilers_->setCurrentIndex(i);
}

void CNewProjectDlg::FillKinds() {
    const QString present = kinds_->currentItem() != nullptr ? kinds_->currentItem()->text() : QString();
    kinds_->clear();
    kinds_->addItem(ToQString(LoadText(IDS_PROJECT_KIND_EMPTY)));
    kinds_->addItem(ToQString(LoadText(IDS_PROJECT_KIND_SOURCE)));
    if (withHeaders_.contains(GetCompiler())) kinds_->addItem(ToQString(LoadText(IDS_PROJECT_KIND_HEADER)));
    const auto same = kinds_->findItems(present, Qt::MatchExactly);
    kinds_->setCurrentRow(same.isEmpty() ? 0 : kinds_->row(same.front()));
}

std::string CNewProjectDlg::GetCompiler() const {
    return FromQString(compilers_->currentText());
}

int CNewProjectDlg::GetKind() const {
    return kinds_->currentRow();
}
