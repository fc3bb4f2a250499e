// The browser's page of the project options.
#pragma once

#include <QWidget>

class QCheckBox;

class CBrowserPage : public QWidget {
public:
    CBrowserPage();  // shows what the active project's file holds

    bool Store() const;  // to that file; true when it held something else

private:
    QCheckBox *systemHeaders_;
    QCheckBox *sableHeaders_;
};
