#include "debugger/BreakpointPropertiesDlg.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

constexpr int kPlaceCharacters = 56;  // width of the dialog
constexpr int kGap = 10;              // pixels between the groups

int ChosenOf(int mode, int count) {
    return mode >= 0 && mode < count ? mode : count - 1;
}

}  // namespace

CBreakpointPropertiesDlg::CBreakpointPropertiesDlg(QWidget *parent, const std::string &place,
                                                   const CBreakpointProps &props, Apply apply)
    : QDialog(parent), props_(props), apply_(std::move(apply)) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_BREAKPOINT)));
    auto *column = new QVBoxLayout(this);
    const int width = fontMetrics().averageCharWidth() * kPlaceCharacters;
    auto *label = new QLabel(fontMetrics().elidedText(ToQString(place), Qt::ElideMiddle, width));
    label->setTextFormat(Qt::PlainText);
    label->setToolTip(ToQString(place));
    label->setMinimumWidth(width);
    column->addWidget(label);

    AddCondition(*column);
    AddHits(*column);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &CBreakpointPropertiesDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addSpacing(kGap);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetFixedSize);

    Show();
    connect(useCondition_, &QCheckBox::toggled, this, [this](bool on) {
        Show();
        if (on) condition_->setFocus();
    });
    connect(condition_, &QLineEdit::textChanged, this, &CBreakpointPropertiesDlg::Show);
    connect(useHits_, &QCheckBox::toggled, this, [this](bool on) {
        Show();
        if (on) hits_->setFocus();
    });
    connect(reset_, &QPushButton::clicked, this, [this] {
        props_.hitCount = std::min(props_.hitCount, 0);
        Show();
    });
    useCondition_->setFocus();
}

void CBreakpointPropertiesDlg::AddCondition(QVBoxLayout &column) {
    useCondition_ = new QCheckBox(ToQString(LoadText(IDS_BREAKPOINT_USE_CONDITION)));
    useCondition_->setChecked(props_.useCond != 0);
    condition_ = new QLineEdit(ToQString(props_.cond));
    condition_->setObjectName("condition");
    condition_->setMaxLength(kLongestCondition);
    condition_->setAccessibleName(useCondition_->text().remove('&'));
    auto *row = new QHBoxLayout;
    row->addWidget(useCondition_);
    row->addWidget(condition_, 1);
    column.addSpacing(kGap);
    column.addLayout(row);
    conditionMode_ = AddChoices(column, IDS_BREAKPOINT_WHEN_TRUE, 2, ChosenOf(props_.condMode, 2));
}

void CBreakpointPropertiesDlg::AddHits(QVBoxLayout &column) {
    useHits_ = new QCheckBox(ToQString(LoadText(IDS_BREAKPOINT_USE_HITS)));
    useHits_->setChecked(props_.useHit != 0);
    hits_ = new QSpinBox;
    hits_->setRange(0, std::numeric_limits<int>::max());
    hits_->setValue(props_.hitVal);
    hits_->setAccessibleName(useHits_->text().remove('&'));
    auto *row = new QHBoxLayout;
    row->addWidget(useHits_);
    row->addWidget(hits_);
    row->addStretch();
    column.addSpacing(kGap);
    column.addLayout(row);
    hitMode_ = AddChoices(column, IDS_BREAKPOINT_HITS_AT_LEAST, 3, ChosenOf(props_.hitMode, 3));

    count_ = new QLabel;
    reset_ = new QPushButton(ToQString(LoadText(IDS_BREAKPOINT_RESET_COUNT)));
    reset_->setAutoDefault(false);
    auto *countRow = new QHBoxLayout;
    countRow->addWidget(count_, 1);
    countRow->addWidget(reset_);
    column.addSpacing(kGap);
    column.addLayout(countRow);
}

QButtonGroup *CBreakpointPropertiesDlg::AddChoices(QVBoxLayout &column, int firstText, int count, int chosen) {
    auto *group = new QButtonGroup(this);
    auto *choices = new QVBoxLayout;
    choices->setContentsMargins(style()->pixelMetric(QStyle::PM_IndicatorWidth) + kGap, 0, 0, 0);
    for (int i = 0; i < count; ++i) {
        auto *choice = new QRadioButton(ToQString(LoadText(firstText + i)));
        choice->setChecked(i == chosen);
        group->addButton(choice, i);
        choices->addWidget(choice);
    }
    column.addLayout(choices);
    return group;
}

void CBreakpointPropertiesDlg::Show() {
    const bool condition = useCondition_->isChecked(), hits = useHits_->isChecked();
    condition_->setEnabled(condition);
    hits_->setEnabled(hits);
    for (QAbstractButton *choice : conditionMode_->buttons()) choice->setEnabled(condition);
    for (QAbstractButton *choice : hitMode_->buttons()) choice->setEnabled(hits);
    const bool known = props_.hitCount >= 0;
    count_->setText(ToQString(known ? LoadText(IDS_BREAKPOINT_HIT_COUNT, {std::to_string(props_.hitCount)})
                                    : LoadText(IDS_BREAKPOINT_NO_COUNT)));
    reset_->setEnabled(known);
    const std::string text = FromQString(condition_->text().trimmed());
    ok_->setEnabled(!condition || (!text.empty() && text.size() <= kLongestCondition));
}

CBreakpointProps CBreakpointPropertiesDlg::Edited() const {
    CBreakpointProps edited = props_;
    edited.useCond = useCondition_->isChecked();
    edited.cond = FromQString(condition_->text().trimmed());
    edited.condMode = conditionMode_->checkedId();
    edited.useHit = useHits_->isChecked();
    edited.hitVal = hits_->value();
    edited.hitMode = hitMode_->checkedId();
    return edited;
}

void CBreakpointPropertiesDlg::accept() {
    const std::string refusal = apply_(Edited());
    if (refusal.empty()) {
        QDialog::accept();
        return;
    }
    CIDEApp::Get().GetMainFrame()->ShowError(refusal);
    if (condition_->isEnabled()) condition_->setFocus();
}
