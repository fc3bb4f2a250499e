#include "app/DocTemplateEx.h"

#include <algorithm>

#include "app/CommandIds.h"
#include "app/IDEApp.h"
#include "app/Path.h"
#include "platform/PathCalls.h"
#include "project/Workspace.h"

namespace {

constexpr int kSourceTemplate = 129;

bool InRange(int id, int first) { return id >= first && id <= first + static_cast<int>(CRecentList::kEntries); }

// A recent list's entries are on while they exist; the first shows as off when the list is empty.
void UpdateEntry(const CRecentList &list, size_t index, CCmdUI &ui) {
    ui.Enable(index < list.Entries().size());
    if (index < list.Entries().size()) ui.SetText(list.MenuText(index));
}

}  // namespace

CDocTemplateEx::CDocTemplateEx(int resourceId, std::string strings, Parts parts,
                               std::vector<std::string> furtherExtensions)
    : CDocTemplate(resourceId, std::move(strings), std::move(parts)),
      furtherExtensions_(std::move(furtherExtensions)) {}

CRecentList &CDocTemplateEx::RecentFiles() {
    static CRecentList list("Recent Files", "File%d");
    return list;
}

CRecentList &CDocTemplateEx::RecentWorkspaces() {
    static CRecentList list("Recent Workspaces", "Workspace%d");
    return list;
}

std::string CDocTemplateEx::GetDocString(DocString which) const {
    const auto &workspace = CIDEApp::Get().workspace;
    if (GetResourceId() == kSourceTemplate && workspace) {
        const std::string text = which == DocString::filterName  ? workspace->GetFilterName("")
                                 : which == DocString::filterExt ? workspace->GetFilterExt("")
                                                                 : std::string();
        if (!text.empty()) return text;
    }
    return CDocTemplate::GetDocString(which);
}

DocMatch CDocTemplateEx::MatchDocType(const std::string &path, CDocument *&open) {
    const DocMatch match = CDocTemplate::MatchDocType(path, open);
    if (match == DocMatch::alreadyOpen) return match;
    const std::string extension = CPath(path).GetExtension();
    const bool own = std::ranges::any_of(
        furtherExtensions_, [&](const std::string &further) { return EqualNoCase(extension, further); });
    return own ? DocMatch::native : match;
}

bool CDocTemplateEx::OnCmdMsg(int id, CCmdUI *ui) {
    CIDEApp &app = CIDEApp::Get();
    if (InRange(id, ID_RECENT_FILES)) {
        const auto index = static_cast<size_t>(id - ID_RECENT_FILES);
        if (ui)
            UpdateEntry(RecentFiles(), index, *ui);
        else
            app.OpenRecentFile(index);
        return true;
    }
    if (InRange(id, ID_RECENT_WORKSPACES)) {
        const auto index = static_cast<size_t>(id - ID_RECENT_WORKSPACES);
        if (ui)
            UpdateEntry(RecentWorkspaces(), index, *ui);
        else
            app.ReplayCommand(id, [&app, index] { app.OpenRecentWorkspace(index); });
        return true;
    }
    return CDocTemplate::OnCmdMsg(id, ui);
}
