// Font, tabs and what is shown beside the text.
#pragma once

#include <QWidget>
#include <functional>

class CEditorProperties;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QSpinBox;

class CGeneralEditorSettingsPage : public QWidget {
public:
    explicit CGeneralEditorSettingsPage(CEditorProperties &properties);

    void ShowLineNumbers();  // as a scheme has set them

    std::function<void()> onChange;     // something that can be seen changed
    std::function<void()> onOwnScheme;  // what a scheme sets was set otherwise

private:
    QGroupBox *MakeFontGroup();
    QGroupBox *MakeTabGroup();
    QGroupBox *MakeTextGroup();
    void FillFonts();
    void Changed() const;

    // A box bound to `field`; `then` runs after each change of the user.
    QCheckBox *MakeBox(int text, bool &field, std::function<void()> then);

    CEditorProperties &properties_;
    QComboBox *fonts_;
    QCheckBox *lineNumbers_ = nullptr;
};
