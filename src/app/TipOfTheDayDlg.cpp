#include "app/TipOfTheDayDlg.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/StringIds.h"
#include "framework/Icons.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

constexpr int kTipCharacters = 54;  // width of a tip's line
constexpr int kTipLines = 7;        // room for the longest tip, so that the window keeps its size
constexpr int kIconSize = 48;

}  // namespace

CTipOfTheDayDlg::CTipOfTheDayDlg(QWidget *parent)
    : QDialog(parent), tip_(new QLabel), atStart_(new QCheckBox(ToQString(LoadText(IDS_TIP_AT_START)))) {
    setWindowTitle(ToQString(LoadText(IDS_DIALOG_TIP)));

    auto *icon = new QLabel;
    icon->setPixmap(LoadIcon("tip").pixmap(QSize(kIconSize, kIconSize), devicePixelRatio()));
    auto *heading = new QLabel(ToQString(LoadText(IDS_TIP_HEADING)));
    QFont large = heading->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.4);
    heading->setFont(large);

    tip_->setTextFormat(Qt::PlainText);
    tip_->setWordWrap(true);
    tip_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    tip_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    tip_->setFixedWidth(tip_->fontMetrics().averageCharWidth() * kTipCharacters);
    tip_->setMinimumHeight(tip_->fontMetrics().lineSpacing() * kTipLines);

    auto *words = new QVBoxLayout;
    words->setSpacing(10);
    words->addWidget(heading);
    words->addWidget(tip_, 1);
    auto *page = new QFrame;
    page->setFrameShape(QFrame::StyledPanel);
    page->setBackgroundRole(QPalette::Base);
    page->setForegroundRole(QPalette::Text);
    page->setAutoFillBackground(true);
    auto *top = new QHBoxLayout(page);
    top->setContentsMargins(18, 18, 18, 18);
    top->setSpacing(18);
    top->addWidget(icon, 0, Qt::AlignTop);
    top->addLayout(words, 1);

    auto *buttons = new QDialogButtonBox;
    QPushButton *next = buttons->addButton(ToQString(LoadText(IDS_TIP_NEXT)), QDialogButtonBox::ActionRole);
    QPushButton *close = buttons->addButton(ToQString(LoadText(IDS_TIP_CLOSE)), QDialogButtonBox::RejectRole);
    next->setAutoDefault(false);
    close->setDefault(true);
    connect(next, &QPushButton::clicked, this, [this] { ShowNext(); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    atStart_->setChecked(CTipsOfTheDay::AreWantedAtStart());

    auto *bottom = new QHBoxLayout;
    bottom->addWidget(atStart_, 1);
    bottom->addWidget(buttons);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(12);
    column->addWidget(page);
    column->addLayout(bottom);
    column->setSizeConstraint(QLayout::SetFixedSize);
    setTabOrder(atStart_, next);
    setTabOrder(next, close);
    close->setFocus();
    ShowNext();
}

void CTipOfTheDayDlg::ShowNext() {
    tip_->setText(ToQString(tips_.Next()));
}

void CTipOfTheDayDlg::done(int result) {
    if (atStart_->isChecked() != CTipsOfTheDay::AreWantedAtStart()) CTipsOfTheDay::WantAtStart(atStart_->isChecked());
    QDialog::done(result);
}
