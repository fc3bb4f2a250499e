#include "project/FileConverters.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "framework/MessageBox.h"
#include "platform/FileFind.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"
#include "platform/ProgramDirectory.h"
#include "platform/SharedLibrary.h"
#include "project/ConverterApi.h"
#include "project/CurrentWorkspace.h"
#include "project/Screen.h"
#include "project/Workspace.h"

namespace {

void OfferTo(const CSharedLibrary &library, const std::string &file) {
    const auto isSupported = library.Get<ConverterIsSupportedFn>(kConverterIsSupported);
    const auto convert = library.Get<ConverterConvertFileFn>(kConverterConvertFile);
    if (isSupported == nullptr || convert == nullptr) return;

    CWorkspace &workspace = WorkspaceOrNone();
    CString text;
    if (isSupported(file.c_str(), workspace.GetToolName().c_str(), &text) == 0) return;
    if (RunMessageBox(&Frame(), LoadText(IDS_APP_TITLE), text, BoxIcon::none, BoxButtons::yesNo) != IDYES) return;
    CStringList report;
    if (convert(file.c_str(), &text, &report, workspace.GetTarget().c_str()) == 0) return;

    CIDEApp &app = CIDEApp::Get();
    app.AddOutputLine("Updating file " + DisplayPath(file) + " ...");
    for (const std::string &line : report) app.AddOutputLine(line);
    app.AddOutputLine("...done");
}

}  // namespace

void OfferConverters(const std::string &file) {
    for (const FoundFile &found : FindFiles(ProgramFile("*.dll")))
        if ((found.attributes & kFileAttributeDirectory) == 0) OfferTo(CSharedLibrary(ProgramFile(found.name)), file);
}
