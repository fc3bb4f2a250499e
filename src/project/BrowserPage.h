// The browser's page of the project options.
#pragma once

#include <QWidget>

class QCheckBox;

class CBrowserPage : public QWidget {
public:
    CBrowserPage();  // shows what the active project's file holds

    void Store() const;  // to that file

private:
    QCheckBox *systemHeaders_;
    QCheckBox *sableHeaders_;
};
