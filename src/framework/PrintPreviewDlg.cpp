#include "framework/PrintPreviewDlg.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QSpinBox>
#include <QToolButton>
#include <algorithm>
#include <iterator>

#include "framework/Icons.h"
#include "framework/Printing.h"
#include "framework/Text.h"

namespace {

constexpr double kMmPerInch = 25.4;
constexpr int kBorder = 16;                              // pixels round the sheet
constexpr double kZooms[] = {0, 0.75, 1, 1.5, 2, 3, 4};  // to the paper's size; 0: the whole sheet fits the window
constexpr int kMostZoom = static_cast<int>(std::size(kZooms)) - 1;

}  // namespace

// One page on a sheet of paper.
class CPreviewSheet : public QWidget {
public:
    CPreviewSheet(CPrintSession &session, QWidget *parent) : QWidget(parent), session_(session) {
        const PrintFigures &figures = session.Figures();
        paper_ = QSizeF(figures.horzSize, figures.vertSize) * (logicalDpiX() / kMmPerInch);
    }

    void SetPage(int page) {
        page_ = page;
        update();
    }
    void SetZoom(double zoom) {
        zoom_ = zoom;
        const QSizeF size = zoom > 0 ? paper_ * zoom : QSizeF(1, 1);
        setMinimumSize(size.toSize() + QSize(2 * kBorder, 2 * kBorder));
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette().color(QPalette::Mid));
        const QRectF sheet = SheetOnShow();
        painter.fillRect(sheet.translated(3, 3), QColor(0, 0, 0, 90));
        painter.fillRect(sheet, Qt::white);
        painter.setPen(QColor(0, 0, 0, 140));
        painter.drawRect(sheet);

        // The page draws in the printer's pixels.
        const PrintFigures &figures = session_.Figures();
        painter.setClipRect(sheet, Qt::IntersectClip);
        painter.translate(sheet.topLeft());
        painter.scale(sheet.width() * kMmPerInch / (figures.horzSize * figures.logPixelsX),
                      sheet.height() * kMmPerInch / (figures.vertSize * figures.logPixelsY));
        painter.setPen(Qt::black);
        session_.DrawPage(page_, painter);
    }

private:
    QRectF SheetOnShow() const {
        const QSizeF room = QSizeF(size()) - QSizeF(2 * kBorder, 2 * kBorder);
        const QSizeF size = zoom_ > 0 ? paper_ * zoom_ : paper_.scaled(room, Qt::KeepAspectRatio);
        return QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
    }

    CPrintSession &session_;
    QSizeF paper_;  // pixels of the screen at the paper's own size
    int page_ = 1;
    double zoom_ = 0;
};

CPrintPreviewDlg::CPrintPreviewDlg(QWidget *parent, CPrintSession &session, const PreviewTexts &texts)
    : QDialog(parent), area_(new QScrollArea), page_(new QSpinBox) {
    setWindowTitle(ToQString(texts.title));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    sheet_ = new CPreviewSheet(session, area_);
    area_->setWidget(sheet_);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);

    page_->setRange(1, session.PageCount());
    page_->setSuffix(QString(" / %1").arg(session.PageCount()));
    page_->setKeyboardTracking(false);
    connect(page_, &QSpinBox::valueChanged, this, [this](int page) {
        sheet_->SetPage(page);
        area_->verticalScrollBar()->setValue(0);
        UpdateButtons();
    });
    auto *label = new QLabel(ToQString(texts.page));
    label->setBuddy(page_);

    auto *bar = new QHBoxLayout;
    bar->addWidget(MakeButton("print", texts.print, QKeySequence::Print, [this] { done(kPrint); }));
    bar->addSpacing(12);
    bar->addWidget(previous_ =
                       MakeButton("page-previous", texts.previous, Qt::Key_PageUp, [this] { ShowPage(Page() - 1); }));
    bar->addWidget(next_ = MakeButton("page-next", texts.next, Qt::Key_PageDown, [this] { ShowPage(Page() + 1); }));
    bar->addWidget(label);
    bar->addWidget(page_);
    bar->addSpacing(12);
    bar->addWidget(zoomOut_ = MakeButton("zoom-out", texts.zoomOut, QKeySequence::ZoomOut, [this] { Zoom(-1); }));
    bar->addWidget(zoomIn_ = MakeButton("zoom-in", texts.zoomIn, QKeySequence::ZoomIn, [this] { Zoom(1); }));
    bar->addStretch();
    bar->addWidget(MakeButton("", texts.close, {}, [this] { reject(); }));
    bar->setContentsMargins(8, 8, 8, 8);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(area_, 1);
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    resize(QSize(860, 900).boundedTo(screen * 9 / 10));
    Zoom(0);
    area_->setFocus();
}

QToolButton *CPrintPreviewDlg::MakeButton(const char *icon, const std::string &text, const QKeySequence &key,
                                          const std::function<void()> &run) {
    auto *button = new QToolButton;
    button->setIcon(LoadIcon(icon));
    button->setText(ToQString(text));
    button->setToolButtonStyle(*icon ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonTextOnly);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QToolButton::clicked, this, run);
    if (key.isEmpty()) return button;
    auto *shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, button, &QToolButton::click);
    button->setToolTip(key.toString(QKeySequence::NativeText));
    return button;
}

int CPrintPreviewDlg::Page() const {
    return page_->value();
}

void CPrintPreviewDlg::ShowPage(int page) {
    page_->setValue(page);
}

void CPrintPreviewDlg::Zoom(int steps) {
    zoom_ = std::clamp(zoom_ + steps, 0, kMostZoom);
    sheet_->SetZoom(kZooms[zoom_]);
    UpdateButtons();
}

void CPrintPreviewDlg::UpdateButtons() {
    previous_->setEnabled(Page() > 1);
    next_->setEnabled(Page() < page_->maximum());
    zoomOut_->setEnabled(zoom_ > 0);
    zoomIn_->setEnabled(zoom_ < kMostZoom);
}
