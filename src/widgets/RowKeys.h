// Keys that mean something to the rows of trees and lists.
#pragma once

#include <QKeyEvent>

// Return or Enter alone.
inline bool IsReturnKey(const QKeyEvent &event) {
    return (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter) &&
           !(event.modifiers() & ~Qt::KeypadModifier);
}
