#include "framework/MessageBox.h"

#include <QMessageBox>

#include "framework/Text.h"

namespace {

QMessageBox::StandardButtons StandardButtons(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::ok: return QMessageBox::Ok;
        case BoxButtons::okCancel: return QMessageBox::Ok | QMessageBox::Cancel;
        case BoxButtons::yesNo: return QMessageBox::Yes | QMessageBox::No;
        case BoxButtons::yesNoCancel: return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

QMessageBox::Icon StandardIcon(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::exclamation: return QMessageBox::Warning;
        case BoxIcon::stop: return QMessageBox::Critical;
        case BoxIcon::question: return QMessageBox::Question;
        case BoxIcon::none: return QMessageBox::NoIcon;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton EscapeButton(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::ok: return QMessageBox::Ok;
        case BoxButtons::yesNo: return QMessageBox::No;
        default: return QMessageBox::Cancel;
    }
}

BoxResult ResultOf(int button) {
    switch (button) {
        case QMessageBox::Ok: return IDOK;
        case QMessageBox::Yes: return IDYES;
        case QMessageBox::No: return IDNO;
        default: return IDCANCEL;
    }
}

}  // namespace

BoxResult RunMessageBox(QWidget *parent, const std::string &title, const std::string &text, BoxIcon icon,
                        BoxButtons buttons) {
    QMessageBox box(StandardIcon(icon), ToQString(title), ToQString(text), StandardButtons(buttons), parent);
    box.setTextFormat(Qt::PlainText);
    box.setEscapeButton(EscapeButton(buttons));
    return ResultOf(box.exec());
}
