#include "project/Screen.h"

#include "app/IDEApp.h"
#include "app/MainFrame.h"
#include "app/StringIds.h"
#include "framework/Language.h"
#include "platform/FileText.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

CMainFrame &Frame() {
    return *CIDEApp::Get().GetMainFrame();
}

bool CreateFileOrTell(const std::string &path, const std::string &content) {
    if (ReplaceWholeFile(path, content)) return true;
    Frame().ShowError(LoadText(IDS_CANT_CREATE_FILE, {DisplayPath(path)}));
    return false;
}

bool MayOverwrite(const std::string &path) {
    return !FileExists(path) || Frame().AskUser(LoadText(IDS_OVERWRITE_FILE, {DisplayPath(path)})) == IDYES;
}
