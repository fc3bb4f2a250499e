// The table of styles, row by row.
#pragma once

#include <QWidget>
#include <functional>

struct CStyle;
class CColourButton;
class CEditorProperties;
class QCheckBox;
class QListWidget;
class QVBoxLayout;

class CSyntaxEditorSettingsPage : public QWidget {
public:
    explicit CSyntaxEditorSettingsPage(CEditorProperties &properties);

    void ShowRow();  // the selected row's values, and the controls that it has

    std::function<void()> onChange;

private:
    CStyle &Row() const;
    CColourButton *MakeButton(uint32_t CStyle::*field);
    QCheckBox *MakeBox(int text, bool CStyle::*field);
    void EnableControls();
    void Changed();

    CEditorProperties &properties_;
    QListWidget *rows_;
    CColourButton *textColour_, *backColour_;
    QCheckBox *bold_, *italic_, *underline_, *noChange_;
};
