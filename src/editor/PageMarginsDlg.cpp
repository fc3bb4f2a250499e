#include "editor/PageMarginsDlg.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRadioButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/Text.h"
#include "platform/PathCalls.h"

namespace {

constexpr int kDecimals = 6;            // as they are stored
constexpr double kLargestMargin = 1e5;  // in any unit
constexpr int kTextWidth = 34;          // characters

constexpr struct {
    const char *stored;
    int text;
} kUnits[] = {
    {CPrintSettings::kInches, IDS_UNIT_INCHES},
    {CPrintSettings::kMillimetres, IDS_UNIT_MM},
    {CPrintSettings::kPixels, IDS_UNIT_PIXELS},
};

constexpr int kAlignments[] = {IDS_ALIGN_LEFT, IDS_ALIGN_CENTRE, IDS_ALIGN_RIGHT};  // in the order of PrintAlignment

QString Word(int text) {
    return ToQString(LoadText(text));
}

// Shows a margin without zeros at its end.
class CMarginBox : public QDoubleSpinBox {
public:
    QString textFromValue(double value) const override {
        QString text = locale().toString(value, 'f', decimals());
        const QString point = locale().decimalPoint();
        while (text.contains(point) && (text.endsWith('0') || text.endsWith(point))) text.chop(1);
        return text;
    }
};

QDoubleSpinBox *MakeMargin(double value) {
    auto *box = new CMarginBox;
    box->setDecimals(kDecimals);
    box->setRange(0, kLargestMargin);
    box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setValue(value);
    return box;
}

void AddLabelled(QGridLayout &layout, int row, int column, int label, QWidget *field, int columns = 1) {
    auto *words = new QLabel(Word(label));
    words->setBuddy(field);
    layout.addWidget(words, row, column);
    layout.addWidget(field, row, column + 1, 1, columns);
}

}  // namespace

CPageMarginsDlg::CPageMarginsDlg(QWidget *parent, const CPrintSettings &settings)
    : QDialog(parent), settings_(settings) {
    setWindowTitle(Word(IDS_DIALOG_PAGE_SETUP));
    MapCodes();
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(MakeMargins());
    layout->addWidget(MakeLine(header_, IDS_GROUP_HEADER, IDR_HEADER_MENU, settings.header, settings.headerAlignment));
    layout->addWidget(MakeLine(footer_, IDS_GROUP_FOOTER, IDR_FOOTER_MENU, settings.footer, settings.footerAlignment));
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QGroupBox *CPageMarginsDlg::MakeMargins() {
    unit_ = new QComboBox;
    for (const auto &unit : kUnits) unit_->addItem(Word(unit.text), unit.stored);
    unit_->setCurrentIndex(-1);  // another unit stays until one of these is chosen
    for (int i = 0; i < unit_->count(); ++i)
        if (EqualNoCase(settings_.unit, kUnits[i].stored)) unit_->setCurrentIndex(i);
    unit_->setPlaceholderText(ToQString(settings_.unit));

    auto *group = new QGroupBox(Word(IDS_GROUP_MARGINS));
    auto *layout = new QGridLayout(group);
    AddLabelled(*layout, 0, 0, IDS_LABEL_UNIT, unit_, 3);
    top_ = MakeMargin(settings_.top);
    bottom_ = MakeMargin(settings_.bottom);
    left_ = MakeMargin(settings_.left);
    right_ = MakeMargin(settings_.right);
    AddLabelled(*layout, 1, 0, IDS_LABEL_MARGIN_TOP, top_);
    AddLabelled(*layout, 2, 0, IDS_LABEL_MARGIN_BOTTOM, bottom_);
    AddLabelled(*layout, 1, 2, IDS_LABEL_MARGIN_LEFT, left_);
    AddLabelled(*layout, 2, 2, IDS_LABEL_MARGIN_RIGHT, right_);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
    return group;
}
QGroupBox *CPageMarginsDlg::MakeLine(Line &line, int title, int menu, const std::string &text,
                                     PrintAlignment alignment) {
    line.text = new QLineEdit(ToQString(text));
    line.text->setMinimumWidth(line.text->fontMetrics().averageCharWidth() * kTextWidth);
    auto *codes = new QToolButton;
    codes->setText("&&");
    codes->setToolTip(Word(IDS_HEADER_CODES));
    codes->setAccessibleName(codes->toolTip());
    codes->setFocusPolicy(Qt::StrongFocus);
    codes->setPopupMode(QToolButton::InstantPopup);
    QMenu *popup = CIDEApp::Get().GetMainFrame()->MakeMenu(menu, this);
    popup->setParent(codes, popup->windowFlags());
    codes->setMenu(popup);

    auto *group = new QGroupBox(Word(title));
    auto *edit = new QHBoxLayout;
    edit->addWidget(line.text, 1);
    edit->addWidget(codes);
    auto *places = new QHBoxLayout;
    line.alignment = new QButtonGroup(group);
    for (const int each : kAlignments) {
        auto *place = new QRadioButton(Word(each));
        line.alignment->addButton(place, static_cast<int>(line.alignment->buttons().size()));
        places->addWidget(place);
    }
    places->addStretch();
    line.alignment->button(static_cast<int>(alignment))->setChecked(true);
    auto *layout = new QVBoxLayout(group);
    layout->addLayout(edit);
    layout->addLayout(places);
    return group;
}

void CPageMarginsDlg::MapCodes() {
    const struct {
        int header, footer;
        const char *code;
    } codes[] = {
        {ID_HEADER_FILE, ID_FOOTER_FILE, "&F"},
        {ID_HEADER_PAGE, ID_FOOTER_PAGE, "&P"},
        {ID_HEADER_DATE, ID_FOOTER_DATE, "&D"},
        {ID_HEADER_TIME, ID_FOOTER_TIME, "&T"},
    };
    const auto append = [](const Line &line, const char *code) { line.text->setText(line.text->text() + code); };
    for (const auto &each : codes) {
        OnCommand(each.header, [this, append, code = each.code] { append(header_, code); });
        OnCommand(each.footer, [this, append, code = each.code] { append(footer_, code); });
    }
}

CPrintSettings CPageMarginsDlg::Settings() const {
    CPrintSettings settings = settings_;
    if (unit_->currentIndex() >= 0) settings.unit = FromQString(unit_->currentData().toString());
    settings.top = top_->value();
    settings.bottom = bottom_->value();
    settings.left = left_->value();
    settings.right = right_->value();
    settings.header = FromQString(header_.text->text());
    settings.footer = FromQString(footer_.text->text());
    settings.headerAlignment = static_cast<PrintAlignment>(header_.alignment->checkedId());
    settings.footerAlignment = static_cast<PrintAlignment>(footer_.alignment->checkedId());
    return settings;
}

void RunPageMargins() {
    CMainFrame *frame = CIDEApp::Get().GetMainFrame();
    CPageMarginsDlg dialog(frame, CPrintSettings::Load());
    if (dialog.exec() != QDialog::Accepted) return;
    if (!dialog.Settings().Store()) frame->ShowError(LoadText(IDS_PAGE_SETUP_NOT_SAVED));
}
