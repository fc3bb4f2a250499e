// The sheet in which the user sets the look of source text, with a sample that follows at once.
#pragma once

#include "editor/SciWindow.h"
#include "framework/PropertySheet.h"

class CEditorProperties;
class CGeneralEditorSettingsPage;
class CSyntaxEditorSettingsPage;
class QComboBox;

class CEditorSettingsSheet : public CPropertySheet {
public:
    // Every change goes into `properties` at once: a copy that the caller keeps on OK and drops on Cancel.
    CEditorSettingsSheet(QWidget *parent, CEditorProperties &properties);

    const CSciWindow &Sample() const { return sample_; }

private:
    QWidget *MakeStrip();
    void FillSample();
    void ApplyToSample() const;
    void ChooseScheme(int index);

    CEditorProperties &properties_;
    CSciWindow sample_;
    QComboBox *schemes_;
    CGeneralEditorSettingsPage *general_;
    CSyntaxEditorSettingsPage *syntax_;
};
