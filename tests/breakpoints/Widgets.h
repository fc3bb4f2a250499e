// Finds the controls of a dialog by what they say.
#pragma once

#include <QAbstractButton>
#include <QTimer>
#include <QWidget>
#include <stdexcept>

inline QAbstractButton *ButtonOf(const QWidget &window, const QString &text) {
    for (auto *button : window.findChildren<QAbstractButton *>())
        if (button->text().remove('&') == text) return button;
    throw std::out_of_range(text.toStdString());
}

// Clicks when the caller has returned: for a button that opens another window, which the next answer is for. The one
// after that is for this window again.
inline void ClickLater(const QWidget &window, const QString &text) {
    QAbstractButton *button = ButtonOf(window, text);
    QTimer::singleShot(0, button, [button] { button->click(); });
}
