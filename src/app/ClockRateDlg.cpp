#include "app/ClockRateDlg.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "app/ClockRate.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

// Crystals and oscillators in common use, in Hz.
constexpr long kCommonRates[] = {32768,   1000000, 2000000,  3686400,  4000000,  7372800, 8000000,
                                 10000000, 12000000, 16000000, 20000000, 32000000, 40000000, 48000000, 64000000};

std::string LimitText() { return LoadText(IDS_CLOCK_RATE_LIMIT, {ExactClockRate(kHighestClockRate)}); }

}  // namespace

CClockRateDlg::CClockRateDlg(QWidget *parent, long rate)
    : QDialog(parent), rate_(rate), box_(new QComboBox(this)), meaning_(new QLabel(this)) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_CLOCK_RATE)));
    box_->setEditable(true);
    box_->setInsertPolicy(QComboBox::NoInsert);
    box_->setCompleter(nullptr);  // a rate that begins like a common one isn't that one
    for (long each : kCommonRates) box_->addItem(ToQString(ExactClockRate(each)));
    box_->setEditText(QString::number(rate));
    box_->lineEdit()->selectAll();
    box_->setMinimumWidth(box_->fontMetrics().averageCharWidth() * 26);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        rate_ = ParseClockRate(FromQString(box_->currentText())).value_or(rate_);
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(box_, &QComboBox::editTextChanged, this, [this] { OnEdited(); });

    auto *layout = new QFormLayout(this);
    layout->addRow(ToQString(LoadText(IDS_LABEL_CLOCK_RATE)), box_);
    layout->addRow(QString(), meaning_);
    layout->addRow(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    // Wide enough for either of its texts, so that the window keeps its size while one types.
    meaning_->setText(ToQString(LimitText()));
    meaning_->setMinimumWidth(meaning_->sizeHint().width());
    OnEdited();
}

void CClockRateDlg::OnEdited() {
    const auto rate = ParseClockRate(FromQString(box_->currentText()));
    ok_->setEnabled(rate.has_value());
    meaning_->setText(ToQString(rate ? "= " + ExactClockRate(*rate) : LimitText()));
}
