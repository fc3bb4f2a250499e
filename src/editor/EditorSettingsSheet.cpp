#include "editor/EditorSettingsSheet.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "app/IDEApp.h"
#include "app/StringIds.h"
#include "editor/ColourSchemes.h"
#include "editor/EditorProperties.h"
#include "editor/GeneralEditorSettingsPage.h"
#include "editor/SyntaxEditorSettingsPage.h"
#include "editor/ViewSetup.h"
#include "framework/Language.h"
#include "framework/Text.h"

namespace {

constexpr int kSampleHeight = 170, kStripHeight = 180;  // pixels
constexpr int kSampleLines = 3;    // as many digits as the sample's line numbers are given room for
constexpr int kExecutionLine = 6;  // from 0
constexpr intptr_t kSelectionStart = 32, kSelectionEnd = 67;

constexpr const char *kSampleWords = "return if else for while continue break unsigned char short int long goto";
constexpr const char *kSampleText =
    "/* Sample code */\n"
    "char ch, *p = \"Text\";\n"
    "int i; //counter\n"
    "#ifdef ABC\n"
    "\t\tch = 'x';\n"
    "#else\n"
    "\t\tch = 'X'; //execution line\n"
    "#endif\n"
    "p = \"not closed string\n";

}  // namespace

CEditorSettingsSheet::CEditorSettingsSheet(QWidget *parent, CEditorProperties &properties)
    : CPropertySheet(parent, LoadText(IDS_DIALOG_EDITOR_SETTINGS)),
      properties_(properties),
      schemes_(new QComboBox),
      general_(new CGeneralEditorSettingsPage(properties)),
      syntax_(new CSyntaxEditorSettingsPage(properties)) {
    AddPage(general_);
    AddPage(syntax_);
    AddStrip(MakeStrip());

    const auto noScheme = [this] { schemes_->setCurrentIndex(-1); };
    general_->onChange = [this] { ApplyToSample(); };
    general_->onOwnScheme = noScheme;
    syntax_->onChange = [this, noScheme] {
        ApplyToSample();
        noScheme();
    };
    FillSample();
}

QWidget *CEditorSettingsSheet::MakeStrip() {
    auto *frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setFixedHeight(kSampleHeight);
    auto *inFrame = new QVBoxLayout(frame);
    inFrame->setContentsMargins(1, 1, 1, 1);
    sample_ = CIDEApp::Get().lexer.Create(frame);
    if (sample_) {
        sample_.Widget()->setFocusPolicy(Qt::NoFocus);  // it is to be looked at
        inFrame->addWidget(sample_.Widget());
    }

    for (const char *name : kColourSchemes) schemes_->addItem(name);
    schemes_->setPlaceholderText(ToQString(LoadText(IDS_CHOOSE_SCHEME)));
    schemes_->setCurrentIndex(-1);
    schemes_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(schemes_, &QComboBox::activated, this, [this](int index) { ChooseScheme(index); });
    auto *label = new QLabel(ToQString(LoadText(IDS_LABEL_COLOUR_SCHEME)));
    label->setBuddy(schemes_);

    auto *strip = new QWidget;
    strip->setFixedHeight(kStripHeight);
    auto *choice = new QVBoxLayout;
    choice->addWidget(label);
    choice->addWidget(schemes_);
    choice->addStretch();
    auto *layout = new QHBoxLayout(strip);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(frame, 1, Qt::AlignTop);
    layout->addLayout(choice);
    return strip;
}

void CEditorSettingsSheet::FillSample() {
    sample_.Send(SCI_SETSTYLEBITS, 4);
    sample_.Send(SCI_SETLEXER, SCLEX_CPP);
    sample_.Send(SCI_USEPOPUP, 0);
    sample_.Send(SCI_SETSCROLLWIDTH, 1);
    sample_.Send(SCI_SETSCROLLWIDTHTRACKING, 1);
    sample_.SendText(SCI_SETKEYWORDS, 0, kSampleWords);
    sample_.SendText(SCI_SETTEXT, 0, kSampleText);
    ApplyToSample();
    sample_.Send(SCI_MARKERADD, kExecutionLine, kMarkerExecution);
    sample_.Send(SCI_SETSEL, kSelectionStart, kSelectionEnd);
    sample_.Send(SCI_SETREADONLY, 1);
    // The selection was scrolled to in a window that has no size yet.
    sample_.Send(SCI_LINESCROLL, static_cast<uintptr_t>(-sample_.Send(SCI_GETLINEENDPOSITION, kExecutionLine)),
                 -sample_.Send(SCI_GETLINECOUNT));
}

void CEditorSettingsSheet::ApplyToSample() const {
    properties_.ClearStyles(sample_);
    properties_.ApplyProperties(sample_, kSampleLines);
    sample_.Send(SCI_SETMARGINWIDTHN, 2, 0);  // nothing folds in it
}

void CEditorSettingsSheet::ChooseScheme(int index) {
    if (index < 0) return;
    ApplyColourScheme(properties_, static_cast<size_t>(index));
    ApplyToSample();
    general_->ShowLineNumbers();
    syntax_->ShowRow();
}
