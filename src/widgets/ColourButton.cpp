#include "widgets/ColourButton.h"

#include <QColorDialog>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <QWidgetAction>

#include "framework/Colour.h"
#include "widgets/ColourPalette.h"

namespace {

constexpr int kSwatchInset = 7, kArrowRoom = 24, kMinimumWidth = 96;  // pixels

}  // namespace

CColourButton::CColourButton(const QString &moreText, QWidget *parent)
    : QPushButton(parent), palette_(new CColourPalette) {
    setAutoDefault(false);  // Enter is the dialog's OK
    auto *menu = new QMenu(this);
    auto *common = new QWidgetAction(menu);
    common->setDefaultWidget(palette_);
    menu->addAction(common);
    connect(menu->addAction(moreText), &QAction::triggered, this, [this] { ChooseFromAll(); });
    connect(menu, &QMenu::aboutToShow, this, [this, menu, common] {
        palette_->SetCurrent(colour_);
        // The menu clears its active entry and takes the focus after telling this.
        QTimer::singleShot(0, menu, [this, menu, common] {
            menu->setActiveAction(common);
            palette_->setFocus(Qt::PopupFocusReason);
        });
    });
    palette_->onPick = [this, menu](uint32_t colour) {
        menu->hide();
        Choose(colour);
    };
    setMenu(menu);
    SetColour(0);
}

void CColourButton::SetColour(uint32_t colour) {
    colour_ = colour & 0xFFFFFF;
    setToolTip(ToQColor(colour_).name());
    update();
}

void CColourButton::Choose(uint32_t colour) {
    SetColour(colour);
    if (onChange) onChange(colour_);
}

void CColourButton::ChooseFromAll() {
    const QColor chosen = QColorDialog::getColor(ToQColor(colour_), this);
    if (chosen.isValid()) Choose(FromQColor(chosen));
}

QSize CColourButton::sizeHint() const {
    return QPushButton::sizeHint().expandedTo({kMinimumWidth, fontMetrics().height() + 2 * kSwatchInset});
}

void CColourButton::paintEvent(QPaintEvent *event) {
    QPushButton::paintEvent(event);
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(0.3);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setBrush(ToQColor(colour_));
    painter.drawRect(rect().adjusted(kSwatchInset + 1, kSwatchInset, -kArrowRoom, -kSwatchInset - 1));
}
