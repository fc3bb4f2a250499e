#include "editor/SyntaxEditorSettingsPage.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "editor/EditorProperties.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "widgets/ColourButton.h"

namespace {

QString Word(int text) {
    return ToQString(LoadText(text));
}

// The controls that a row has, by what its id means.
struct Controls {
    bool textColour, backColour, flags, noChange;
};

Controls ControlsOf(int id) {
    switch (id) {
        case CStyle::kExecutionLine:
            return {false, true, false, false};
        case CStyle::kSelection:
            return {true, true, false, true};
        case CStyle::kCaret:
            return {true, false, false, false};
        default:
            return {true, true, true, false};
    }
}

}  // namespace

CSyntaxEditorSettingsPage::CSyntaxEditorSettingsPage(CEditorProperties &properties)
    : properties_(properties),
      rows_(new QListWidget),
      textColour_(MakeButton(&CStyle::textColour)),
      backColour_(MakeButton(&CStyle::backColour)),
      bold_(MakeBox(IDS_STYLE_BOLD, &CStyle::bold)),
      italic_(MakeBox(IDS_STYLE_ITALIC, &CStyle::italic)),
      underline_(MakeBox(IDS_STYLE_UNDERLINE, &CStyle::underline)),
      noChange_(MakeBox(IDS_STYLE_NO_CHANGE, &CStyle::noChange)) {
    setWindowTitle(Word(IDS_PAGE_EDITOR_SYNTAX));
    for (const CStyle &style : properties_.styles) {
        auto *item = new QListWidgetItem(ToQString(style.name), rows_);
        item->setData(Qt::UserRole, style.id);
    }
    rows_->setCurrentRow(0);
    rows_->setMinimumHeight(rows_->count() * rows_->sizeHintForRow(0) + 2 * rows_->frameWidth());
    connect(rows_, &QListWidget::currentRowChanged, this, [this] { ShowRow(); });
    auto *rowsLabel = new QLabel(Word(IDS_LABEL_STYLES));
    rowsLabel->setBuddy(rows_);

    auto *list = new QVBoxLayout;
    list->addWidget(rowsLabel);
    list->addWidget(rows_);
    auto *form = new QFormLayout;
    form->addRow(Word(IDS_LABEL_TEXT_COLOUR), textColour_);
    form->addRow(Word(IDS_LABEL_BACK_COLOUR), backColour_);
    auto *controls = new QVBoxLayout;
    controls->addSpacing(rowsLabel->sizeHint().height() + list->spacing());
    controls->addLayout(form);
    for (QCheckBox *box : {bold_, italic_, underline_, noChange_}) controls->addWidget(box);
    controls->addStretch();
    auto *layout = new QHBoxLayout(this);
    layout->addLayout(list, 1);
    layout->addSpacing(layout->spacing());
    layout->addLayout(controls, 1);
    ShowRow();
}

CStyle &CSyntaxEditorSettingsPage::Row() const {
    return properties_.styles[static_cast<size_t>(std::max(0, rows_->currentRow()))];
}

CColourButton *CSyntaxEditorSettingsPage::MakeButton(uint32_t CStyle::*field) {
    auto *button = new CColourButton(Word(IDS_MORE_COLOURS), this);
    button->onChange = [this, field](uint32_t colour) {
        Row().*field = colour;
        Changed();
    };
    return button;
}

QCheckBox *CSyntaxEditorSettingsPage::MakeBox(int text, bool CStyle::*field) {
    auto *box = new QCheckBox(Word(text), this);
    connect(box, &QCheckBox::toggled, this, [this, field](bool on) {
        Row().*field = on;
        Changed();
    });
    return box;
}

void CSyntaxEditorSettingsPage::Changed() {
    EnableControls();
    if (onChange) onChange();
}

void CSyntaxEditorSettingsPage::ShowRow() {
    const CStyle &row = Row();
    textColour_->SetColour(row.textColour);
    backColour_->SetColour(row.backColour);
    const std::pair<QCheckBox *, bool> boxes[] = {
        {bold_, row.bold}, {italic_, row.italic}, {underline_, row.underline}, {noChange_, row.noChange}};
    for (const auto &[box, on] : boxes) {
        const QSignalBlocker quiet(box);
        box->setChecked(on);
    }
    EnableControls();
}

void CSyntaxEditorSettingsPage::EnableControls() {
    const CStyle &row = Row();
    const Controls controls = ControlsOf(row.id);
    textColour_->setEnabled(controls.textColour && !row.noChange);
    backColour_->setEnabled(controls.backColour);
    for (QCheckBox *box : {bold_, italic_, underline_}) box->setEnabled(controls.flags);
    noChange_->setEnabled(controls.noChange);
}
