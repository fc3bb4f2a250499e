// The debugger's page of the project options.
#pragma once

#include <QWidget>

class QCheckBox;
class QComboBox;

class CDebuggerPage : public QWidget {
public:
    CDebuggerPage();

    void Store() const;  // to the active project's file and the user's settings

private:
    QCheckBox *fromMain_;
    QComboBox *watchFormat_;
};
