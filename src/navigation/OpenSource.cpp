#include "navigation/OpenSource.h"

#include <QMimeDatabase>
#include <algorithm>
#include <array>
#include <string_view>

#include "app/IDEApp.h"
#include "app/Path.h"
#include "app/ProjectDirScope.h"
#include "app/Settings.h"
#include "debugger/DebugViews.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/OpenSources.h"
#include "editor/ViewSetup.h"
#include "framework/DocTemplate.h"
#include "framework/MDIChildWnd.h"
#include "framework/ShellOpen.h"
#include "framework/Text.h"
#include "platform/NativePath.h"
#include "platform/PathCalls.h"

namespace {

// Files that the editor shows whatever the desktop would do with them.
constexpr std::array<std::string_view, 12> kSourceExtensions = {".c",   ".cpp", ".c++", ".cxx", ".cc",  ".h",
                                                                ".hpp", ".txt", ".asm", ".lst", ".hex", ".map"};

bool IsForEditor(const std::string &file) {
    const std::string extension = _splitpath(file).extension;
    if (std::ranges::any_of(kSourceExtensions, [&](auto each) { return EqualNoCase(extension, each); })) return true;
    CDocument *open = nullptr;
    const auto isOwn = [&](const auto &each) { return each->MatchDocType(file, open) > DocMatch::foreign; };
    if (std::ranges::any_of(CIDEApp::Get().GetTemplates(), isOwn)) return true;
    // The desktop's program for other texts is an editor, too, and one that isn't told the line.
    return QMimeDatabase().mimeTypeForFile(ToQString(ToNativePath(file))).inherits("text/plain");
}

void ShowLine(CIDEView &view, intptr_t line, bool mark) {
    if (mark) {
        CIDEApp::Get().editorProperties.ApplyExecutionColour(view.Sci());
        view.Send(SCI_MARKERADD, static_cast<uintptr_t>(line), kMarkerExecution);
        const intptr_t start = view.Send(SCI_POSITIONFROMLINE, static_cast<uintptr_t>(line));
        view.Send(SCI_SETSEL, static_cast<uintptr_t>(start), start);
    } else {
        view.SelectWholeLine(line);
    }
    view.ShowViewLine(line, false);
}

}  // namespace

CIDEDoc *OpenSourceAtLine(const std::string &file, int line, bool mark) {
    CIDEApp &app = CIDEApp::Get();
    const bool alone = OpenSources().empty();
    const std::string project = app.GetActiveProjectPath();
    const ProjectDirScope scope(project.empty() ? nullptr : project.c_str());
    auto *document = dynamic_cast<CIDEDoc *>(app.FindOrOpenDocument(file, false));
    if (!document) {
        std::string full = GetFullPathNameA(file);
        if (!FileExists(full)) return nullptr;
        if (std::string stored; GetLongPathNameA(stored, full)) full = stored;  // the title shows the disk's spelling
        if (!IsForEditor(full) && ShellOpen(full)) return nullptr;
        document = dynamic_cast<CIDEDoc *>(app.FindOrOpenDocument(full, true));
    }
    if (mark) RemoveExecutionMarksFromSources();
    if (!document) return nullptr;
    const intptr_t last = document->GetFirstCodeView() ? document->GetFirstCodeView()->Send(SCI_GETLINECOUNT) - 1 : 0;
    for (CIDEView *view : document->GetCodeViews())
        ShowLine(*view, std::clamp<intptr_t>(line - 1, 0, std::max<intptr_t>(last, 0)), mark);
    const CView *view = document->GetFirstView();
    CMDIChildWnd *const window = view ? view->GetParentFrame() : nullptr;
    if (window) window->ActivateFrame();
    const bool first = app.session.TakeFirstPosition();
    if (window && first && alone && GetUserInt("Settings", "DbgSrcWinState", 0) != 0) window->showMaximized();
    return document;
}
