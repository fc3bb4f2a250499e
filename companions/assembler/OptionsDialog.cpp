#include "OptionsDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QVBoxLayout>

#include "ListEdit.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

constexpr int kAssemblerTab = 0, kLinkerTab = 1;

QString Text(const std::string &text) {
    return QString::fromStdString(text);
}

// Slashes for the user's eyes, without a look at the disk: an entry may name what isn't there yet.
QString Shown(std::string path) {
    for (char &c : path)
        if (c == '\\') c = '/';
    return Text(path);
}

std::vector<std::string> EachShown(const std::vector<std::string> &paths) {
    std::vector<std::string> shown;
    for (const std::string &path : paths) shown.push_back(Shown(path).toStdString());
    return shown;
}

QGroupBox *Group(const QString &title, QWidget *content) {
    auto *group = new QGroupBox(title);
    (new QVBoxLayout(group))->addWidget(content);
    return group;
}

}  // namespace

COptionsDialog::COptionsDialog(const Options &options, const std::string &configuration, const std::string &directory,
                               std::span<QWidget *> hostPages, QWidget *parent)
    : QDialog(parent), directory_(directory), hostPages_(hostPages), tabs_(new QTabWidget), error_(new QLabel) {
    setWindowTitle(tr("Project Options - %1").arg(Text(configuration)));
    tabs_->addTab(MakeAssemblerPage(), tr("Assembler"));
    tabs_->addTab(MakeLinkerPage(), tr("Linker"));
    for (QWidget *page : hostPages_)
        if (page) tabs_->addTab(page, page->windowTitle());

    error_->setWordWrap(true);
    error_->setVisible(false);
    QPalette palette = error_->palette();
    const bool dark = palette.color(QPalette::Window).lightness() < 128;
    palette.setColor(QPalette::WindowText, dark ? QColor(255, 128, 118) : QColor(176, 0, 32));
    error_->setPalette(palette);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &COptionsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &COptionsDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs_, 1);
    layout->addWidget(error_);
    layout->addWidget(buttons);
    Show(options);
}

COptionsDialog::~COptionsDialog() {
    for (QWidget *page : hostPages_) {
        if (!page) continue;
        page->hide();
        page->setParent(nullptr);
    }
}

QWidget *COptionsDialog::MakeAssemblerPage() {
    defines_ = new CListEdit(tr("Names defined for every source, as NAME or NAME=value"), nullptr);
    includePaths_ = new CListEdit(tr("Directories that includes are looked for in, in this order"),
                                  [this] { return BrowseDirectory(); });
    radix_ = new QComboBox;
    radix_->addItems({tr("Hexadecimal"), tr("Decimal"), tr("Octal")});
    messages_ = new QComboBox;
    messages_->addItems({tr("Errors, warnings and messages"), tr("Errors and warnings"), tr("Errors only")});
    ignoreCase_ = new QCheckBox(tr("Symbols that differ in case only are &the same"));
    assemblerExtra_ = new QLineEdit;
    assemblerExtra_->setPlaceholderText(tr("Further words of gpasm's command line"));

    auto *form = new QFormLayout;
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->addRow(tr("&Radix of numbers:"), radix_);
    form->addRow(tr("&Show:"), messages_);
    form->addRow(tr("Further &options:"), assemblerExtra_);
    form->addRow({}, ignoreCase_);

    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(Group(tr("Defines"), defines_), 1);
    layout->addWidget(Group(tr("Include directories"), includePaths_), 1);
    layout->addLayout(form);
    return page;
}

QWidget *COptionsDialog::MakeLinkerPage() {
    linkerScript_ = new QLineEdit;
    linkerScript_->setPlaceholderText(tr("The script that comes with the chip"));
    linkerScript_->setClearButtonEnabled(true);
    linkerExtra_ = new QLineEdit;
    linkerExtra_->setPlaceholderText(tr("Further words of gplink's command line"));
    auto *browse = new QPushButton(tr("Browse..."));
    browse->setAutoDefault(false);
    connect(browse, &QPushButton::clicked, this, [this] { BrowseScript(); });

    auto *script = new QHBoxLayout;
    script->addWidget(linkerScript_, 1);
    script->addWidget(browse);
    auto *page = new QWidget;
    auto *form = new QFormLayout(page);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    auto *label = new QLabel(tr("Linker &script:"));
    label->setBuddy(linkerScript_);
    form->addRow(label, script);
    form->addRow(tr("Further &options:"), linkerExtra_);
    return page;
}

void COptionsDialog::Show(const Options &options) {
    defines_->SetItems(options.defines);
    includePaths_->SetItems(EachShown(options.includePaths));
    radix_->setCurrentIndex(static_cast<int>(options.radix));
    messages_->setCurrentIndex(static_cast<int>(options.messages));
    ignoreCase_->setChecked(options.ignoreCase);
    assemblerExtra_->setText(Text(options.assemblerExtra));
    linkerScript_->setText(Shown(options.linkerScript));
    linkerExtra_->setText(Text(options.linkerExtra));
}

Options COptionsDialog::Result() const {
    Options options;
    options.defines = defines_->Items();
    for (const std::string &path : includePaths_->Items()) options.includePaths.push_back(FromNativePath(path));
    options.radix = static_cast<Options::Radix>(radix_->currentIndex());
    options.messages = static_cast<Options::Messages>(messages_->currentIndex());
    options.ignoreCase = ignoreCase_->isChecked();
    options.assemblerExtra = assemblerExtra_->text().trimmed().toStdString();
    options.linkerScript = FromNativePath(linkerScript_->text().trimmed().toStdString());
    options.linkerExtra = linkerExtra_->text().trimmed().toStdString();
    return options;
}

void COptionsDialog::accept() {
    const Options options = Result();
    for (const std::string &define : options.defines) {
        if (!Refuse(kAssemblerTab, CheckDefine(define))) continue;
        defines_->SelectItem(define);
        return;
    }
    for (const std::string &path : options.includePaths) {
        if (!Refuse(kAssemblerTab, CheckIncludePath(path))) continue;
        includePaths_->SelectItem(Shown(path).toStdString());
        return;
    }
    if (Refuse(kAssemblerTab, CheckExtra(options.assemblerExtra))) return assemblerExtra_->setFocus();
    if (Refuse(kLinkerTab, CheckExtra(options.linkerExtra))) return linkerExtra_->setFocus();
    if (Refuse(kLinkerTab, CheckIncludePath(options.linkerScript))) return linkerScript_->setFocus();
    const bool absolute = options.linkerScript.starts_with('\\') || options.linkerScript.find(':') == 1;
    if (!options.linkerScript.empty() &&
        !FileExists(absolute ? options.linkerScript : directory_ + options.linkerScript)) {
        Refuse(kLinkerTab, "There is no linker script \"" + linkerScript_->text().trimmed().toStdString() + "\".");
        return linkerScript_->setFocus();
    }
    QDialog::accept();
}

// Shows the error, if there is one, and its tab.
bool COptionsDialog::Refuse(int tab, const std::string &error) {
    if (error.empty()) return false;
    tabs_->setCurrentIndex(tab);
    error_->setText(Text(error));
    error_->setVisible(true);
    return true;
}

std::string COptionsDialog::Stored(const QString &native) const {
    const std::string path = FromNativePath(native.toStdString());
    std::string relative;
    if (!PathRelativePathToA(relative, directory_, kFileAttributeDirectory, path, 0)) return path;
    return relative.starts_with(".\\") ? relative.substr(2) : relative;
}

QString COptionsDialog::BrowseDirectory() {
    const QString chosen =
        QFileDialog::getExistingDirectory(this, tr("Include Directory"), Text(ToNativePath(directory_)));
    return chosen.isEmpty() ? QString() : Shown(Stored(chosen));
}

void COptionsDialog::BrowseScript() {
    const QString chosen = QFileDialog::getOpenFileName(this, tr("Linker Script"), Text(ToNativePath(directory_)),
                                                        tr("Linker scripts (*.lkr);;All files (*)"));
    if (!chosen.isEmpty()) linkerScript_->setText(Shown(Stored(chosen)));
}
