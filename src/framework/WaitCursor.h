// The pointer that asks the user to wait.
#pragma once

#include <QGuiApplication>

// Shows it for the life of the object. Main thread.
class CWaitCursor {
public:
    CWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    CWaitCursor(const CWaitCursor &) = delete;
    CWaitCursor &operator=(const CWaitCursor &) = delete;
};
