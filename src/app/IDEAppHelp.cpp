// The application's commands of the help menu.
#include "app/AboutDlg.h"
#include "app/CommandIds.h"
#include "app/HelpDocuments.h"
#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/ProjectDirScope.h"
#include "app/TipOfTheDayDlg.h"
#include "platform/ProgramDirectory.h"

void CIDEApp::MapHelpCommands() {
    for (const HelpDocument &document : HelpDocuments()) {
        OnCommand(document.command, [this, &document] {
            std::string error;
            if (!OpenHelpDocument(document, error)) frame_->ShowError(error);
        });
    }
    OnCommand(ID_TIP_OF_THE_DAY, [this] { ShowTipOfTheDay(); });
    OnCommand(ID_APP_ABOUT, [this] { CAboutDlg(frame_.get()).exec(); });
}

void CIDEApp::ShowTipOfTheDay() {
    if (tipShown_) return;
    const ProjectDirScope scope(ProgramFile("tip"));  // any name in the program's directory
    tipShown_ = true;
    CTipOfTheDayDlg(frame_.get()).exec();
    tipShown_ = false;
}
