#include <QCheckBox>
#include <QDesktopServices>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <filesystem>
#include <set>

#include "support/ProgramDirectory.h"
#include "ProgramTest.h"
#include "framework/Text.h"
#include "platform/PathCalls.h"

namespace {

// Takes the files that the program hands to the desktop.
class CDesktop : public QObject {
    Q_OBJECT

public:
    CDesktop() { QDesktopServices::setUrlHandler("file", this, "Open"); }
    ~CDesktop() override { QDesktopServices::unsetUrlHandler("file"); }

    std::vector<std::string> opened;  // native paths

public slots:
    void Open(const QUrl &url) { opened.push_back(FromQString(url.toLocalFile())); }
};

std::string TipIn(QWidget &dialog) {
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        if (label->wordWrap()) return FromQString(label->text());
    return {};
}

QPushButton *ButtonOf(QWidget &dialog, int text) {
    for (QPushButton *button : dialog.findChildren<QPushButton *>())
        if (button->text() == ToQString(LoadText(text))) return button;
    return nullptr;
}

}  // namespace

using HelpTest = ProgramTest;

TEST_F(HelpTest, DocumentsOpenInTheDesktopsProgramsOrAreNamedAsMissing) {
    const OwnProgramDirectory directory(scratch, {"UserManual.pdf"});
    CDesktop desktop;
    Start();
    program->Answer(IDOK);
    program->Command(ID_HELP_USER_MANUAL);
    EXPECT_EQ(program->Boxes(), std::vector{Text(IDS_HELP_FAILED) + "\n" + scratch.Native("program/UserManual.pdf")});

    scratch.Write("program/UserManual.pdf", "%PDF");
    scratch.Write("program/larkc++.pdf", "%PDF");
    program->Command(ID_HELP_USER_MANUAL);
    program->Command(ID_HELP_LARKCPP);
    EXPECT_EQ(desktop.opened,
              (std::vector{scratch.Native("program/UserManual.pdf"), scratch.Native("program/larkc++.pdf")}));
}

TEST_F(HelpTest, EachStartGreetsWithAnotherTipUntilTheUserHasEnough) {
    std::set<std::string> seen;
    std::string shown;
    const std::string before = GetCurrentDirectoryA();
    for (bool again : {true, false}) {
        Make();
        App().showSplash = true;
        program->AnswerDialog([&](QWidget &dialog) {
            shown = TipIn(dialog);
            EXPECT_TRUE(seen.insert(shown).second) << shown;
            EXPECT_NE(GetCurrentDirectoryA(), before);
            EXPECT_TRUE(App().IsTipShown());
            program->Settle(600);
            EXPECT_TRUE(program->BuildLines().empty()) << "the start waits";
            ButtonOf(dialog, IDS_TIP_NEXT)->click();
            EXPECT_TRUE(seen.insert(TipIn(dialog)).second);
            auto *atStart = dialog.findChild<QCheckBox *>();
            EXPECT_TRUE(atStart->isChecked());
            atStart->setChecked(again);
            ButtonOf(dialog, IDS_TIP_CLOSE)->click();
        });
        ASSERT_TRUE(program->Start());
        EXPECT_EQ(GetCurrentDirectoryA(), before);
        EXPECT_FALSE(program->BuildLines().empty());
        CloseAndEnd();
    }
    Make();
    App().showSplash = true;
    ASSERT_TRUE(program->Start());  // a tip would be an unexpected window
    program->AnswerDialog([&](QWidget &dialog) {
        EXPECT_TRUE(seen.insert(TipIn(dialog)).second);
        dialog.close();
    });
    program->Command(ID_TIP_OF_THE_DAY);
    EXPECT_EQ(SettingNumber("Tip", "Next"), 5);
}

#include "HelpTest.moc"
