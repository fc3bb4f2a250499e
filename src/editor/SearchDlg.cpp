#include "editor/SearchDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "editor/IDEView.h"
#include "editor/ViewSearch.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

constexpr int kTextWidth = 80;  // characters

void FillList(QComboBox *field, const CFindHistory &history) {
    const QString typed = field->currentText();
    field->clear();
    for (const std::string &text : history.Texts()) field->addItem(ToQString(text));
    field->setEditText(typed);
}

}  // namespace

CSearchDlg::CSearchDlg(QWidget *parent, CIDEView &view, int title, const std::string &text)
    : QDialog(parent), view_(view), rows_(new QGridLayout), buttons_(new QHBoxLayout) {
    setWindowTitle(ToQString(LoadText(title)));
    connect(&view, &QObject::destroyed, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(rows_);
    text_ = AddTextRow(IDS_LABEL_FIND_TEXT, CIDEApp::Get().find.findHistory);
    text_->setEditText(ToQString(text));
    text_->lineEdit()->selectAll();
    text_->setFocus();
}

QComboBox *CSearchDlg::AddTextRow(int label, const CFindHistory &history) {
    auto *field = new QComboBox(this);
    field->setEditable(true);
    field->setInsertPolicy(QComboBox::NoInsert);
    field->setCompleter(nullptr);  // it would change what is typed
    field->setMaxVisibleItems(static_cast<int>(CFindHistory::kMostTexts));
    field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    field->setMinimumContentsLength(kTextWidth);
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    FillList(field, history);

    auto *name = new QLabel(ToQString(LoadText(label)), this);
    name->setBuddy(field);
    const int row = rows_->rowCount();
    rows_->addWidget(name, row, 0);
    rows_->addWidget(field, row, 1);
    return field;
}

void CSearchDlg::AddOptions() {
    const CFindSettings settings = CFindSettings::Load();
    auto *options = new QGroupBox(ToQString(LoadText(IDS_FIND_OPTIONS)), this);
    auto *grid = new QGridLayout(options);
    const auto check = [&](int text, bool on, int row, int column) {
        auto *box = new QCheckBox(ToQString(LoadText(text)), options);
        box->setChecked(on);
        grid->addWidget(box, row, column);
        return box;
    };
    matchCase_ = check(IDS_FIND_MATCH_CASE, settings.matchCase, 0, 0);
    wholeWord_ = check(IDS_FIND_WHOLE_WORD, settings.wholeWord, 1, 0);
    wordStart_ = check(IDS_FIND_WORD_START, settings.wordStart, 0, 1);
    regExpr_ = check(IDS_FIND_REG_EXPR, settings.regExpr, 1, 1);
    wholeWord_->setToolTip(ToQString(LoadText(IDS_WHOLE_WORD_TIP)));
    regExpr_->setToolTip(ToQString(LoadText(IDS_REG_EXPR_TIP)));

    auto *direction = new QGroupBox(ToQString(LoadText(IDS_FIND_DIRECTION)), this);
    auto *column = new QVBoxLayout(direction);
    up_ = new QRadioButton(ToQString(LoadText(IDS_FIND_UP)), direction);
    down_ = new QRadioButton(ToQString(LoadText(IDS_FIND_DOWN)), direction);
    (settings.forward ? down_ : up_)->setChecked(true);
    column->addWidget(up_);
    column->addWidget(down_);

    auto *row = new QHBoxLayout;
    row->addWidget(options, 2);
    row->addWidget(direction, 1);
    auto *layout = static_cast<QVBoxLayout *>(this->layout());
    layout->addLayout(row);
    layout->addStretch();
    layout->addLayout(buttons_);
    buttons_->addStretch();
}

QPushButton *CSearchDlg::AddButton(int text) {
    auto *button = new QPushButton(ToQString(LoadText(text)), this);
    const bool first = buttons_->count() == 1;  // the stretch before them
    button->setAutoDefault(first);
    button->setDefault(first);
    buttons_->addWidget(button);
    return button;
}

void CSearchDlg::AddCloseButton() {
    connect(AddButton(IDS_FIND_CLOSE), &QPushButton::clicked, this, &QDialog::reject);
}

std::string CSearchDlg::Text() const {
    return FromQString(text_->currentText());
}

CFindSettings CSearchDlg::Settings() const {
    CFindSettings settings;
    settings.matchCase = matchCase_->isChecked();
    settings.wholeWord = wholeWord_->isChecked();
    settings.regExpr = regExpr_->isChecked();
    settings.wordStart = wordStart_->isChecked();
    settings.forward = down_->isChecked();
    return settings;
}

bool CSearchDlg::Find() {
    RememberText();
    Settings().Store();
    const std::string text = Text();
    if (text.empty()) return false;
    CIDEApp::Get().find.text = text;
    view_.findPos = FindNext(view_, up_->isChecked());
    return true;
}

void CSearchDlg::RememberText() {
    Remember(text_, CIDEApp::Get().find.findHistory);
}

void CSearchDlg::Remember(QComboBox *field, CFindHistory &history) {
    history.Add(FromQString(field->currentText()));
    FillList(field, history);
}
