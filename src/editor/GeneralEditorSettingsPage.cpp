#include "editor/GeneralEditorSettingsPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "editor/EditorProperties.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

constexpr int kMaxTabChoice = 8;

QString Word(int text) {
    return ToQString(LoadText(text));
}

// A spin bound to `field`. A stored value beyond the limits is shown as the nearest one and kept until it is changed.
template <typename Then>
QSpinBox *MakeSpin(int &field, int maximum, Then then) {
    auto *spin = new QSpinBox;
    spin->setRange(1, maximum);
    spin->setValue(field);
    QObject::connect(spin, &QSpinBox::valueChanged, spin, [&field, then](int value) {
        field = value;
        then();
    });
    return spin;
}

}  // namespace

CGeneralEditorSettingsPage::CGeneralEditorSettingsPage(CEditorProperties &properties)
    : properties_(properties), fonts_(new QComboBox) {
    setWindowTitle(Word(IDS_PAGE_EDITOR_GENERAL));
    FillFonts();
    connect(fonts_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index < 0) return;
        properties_.font = FromQString(fonts_->itemText(index));
        Changed();
    });

    auto *layout = new QGridLayout(this);
    layout->addWidget(MakeFontGroup(), 0, 0);
    layout->addWidget(MakeTabGroup(), 1, 0);
    layout->addWidget(MakeTextGroup(), 0, 1, 2, 1);
    layout->setRowStretch(2, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
}

void CGeneralEditorSettingsPage::Changed() const {
    if (onChange) onChange();
}

void CGeneralEditorSettingsPage::FillFonts() {
    for (const QString &family : QFontDatabase::families())
        if (QFontDatabase::isFixedPitch(family) && !QFontDatabase::isPrivateFamily(family)) fonts_->addItem(family);
    const QString current = ToQString(properties_.font);
    fonts_->setCurrentIndex(fonts_->findText(current, Qt::MatchFixedString));
    if (fonts_->currentIndex() >= 0) return;
    // The font of another system stays the user's until he chooses one of this one's.
    fonts_->setPlaceholderText(current);
    fonts_->setToolTip(ToQString(LoadText(IDS_FONT_NOT_INSTALLED, {properties_.font})));
}

QGroupBox *CGeneralEditorSettingsPage::MakeFontGroup() {
    auto *group = new QGroupBox(Word(IDS_GROUP_FONT));
    auto *form = new QFormLayout(group);
    fonts_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    form->addRow(Word(IDS_LABEL_FONT), fonts_);
    form->addRow(Word(IDS_LABEL_FONT_SIZE),
                 MakeSpin(properties_.fontSize, CEditorProperties::kMaxFontSize, [this] { Changed(); }));
    return group;
}

QGroupBox *CGeneralEditorSettingsPage::MakeTabGroup() {
    auto *group = new QGroupBox(Word(IDS_GROUP_TABS));
    auto *form = new QFormLayout(group);
    form->addRow(Word(IDS_LABEL_TAB_SIZE), MakeSpin(properties_.tabSize, kMaxTabChoice, [this] { Changed(); }));
    form->addRow(MakeBox(IDS_USE_TABS, properties_.useTabs, [this] { Changed(); }));
    return group;
}

QGroupBox *CGeneralEditorSettingsPage::MakeTextGroup() {
    const auto changed = [this] { Changed(); };
    lineNumbers_ = MakeBox(IDS_LINE_NUMBERS, properties_.lineNumbers, [this] {
        Changed();
        if (onOwnScheme) onOwnScheme();
    });
    auto *group = new QGroupBox(Word(IDS_GROUP_TEXT));
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(lineNumbers_);
    layout->addWidget(MakeBox(IDS_INDENT_GUIDES, properties_.indentGuides, changed));
    layout->addWidget(MakeBox(IDS_FOLDING, properties_.fold, changed));
    layout->addWidget(MakeBox(IDS_SMART_INDENT, properties_.smartIndent, [] {}));
    layout->addStretch();
    return group;
}

QCheckBox *CGeneralEditorSettingsPage::MakeBox(int text, bool &field, std::function<void()> then) {
    auto *box = new QCheckBox(Word(text));
    box->setChecked(field);
    connect(box, &QCheckBox::toggled, this, [&field, then = std::move(then)](bool on) {
        field = on;
        then();
    });
    return box;
}

void CGeneralEditorSettingsPage::ShowLineNumbers() {
    const QSignalBlocker quiet(lineNumbers_);
    lineNumbers_->setChecked(properties_.lineNumbers);
}
