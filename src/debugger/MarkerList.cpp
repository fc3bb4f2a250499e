#include "debugger/MarkerList.h"

#include <algorithm>

#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/ScintillaMessages.h"
#include "platform/PathCalls.h"
#include "platform/Profile.h"

CMarker *CMarkerList::Find(const std::string &file, int line) {
    for (CMarker &marker : markers_)
        if ((line == -1 || marker.line == line) && EqualNoCase(marker.path.GetFullPath(), file)) return &marker;
    return nullptr;
}

CMarker *CMarkerList::Add(const std::string &file, int line, bool secondState, int id) {
    if (Find(file, line)) return nullptr;
    CMarker marker;
    marker.path.Set(file);
    marker.line = line;
    marker.secondState = secondState;
    marker.id = id;
    return &markers_.emplace_back(std::move(marker));
}

bool CMarkerList::Remove(const std::string &file, int line) {
    return std::erase_if(markers_, [&](const CMarker &marker) {
               return (line == -1 || marker.line == line) && EqualNoCase(marker.path.GetFullPath(), file);
           }) > 0;
}

void CMarkerList::TakeFromView(CIDEView &view) {
    const std::string file = view.GetDocument()->GetPathName();
    if (file.empty()) return;
    Remove(file);
    for (int state = 0; state < 2; ++state) {
        const int number = number_ + state;
        intptr_t line = -1;
        while ((line = view.Send(SCI_MARKERNEXT, line + 1, 1 << number)) >= 0) {
            CMarker *marker = Add(file, static_cast<int>(line), state == 1);
            if (!marker) continue;
            view.Send(SCI_MARKERDELETE, line, number);  // several markers of a joined line become one
            marker->handle = view.Send(SCI_MARKERADD, line, number);
        }
    }
}

void CMarkerList::ApplyToView(CIDEView &view) {
    const std::string &file = view.GetDocument()->GetPathName();
    for (CMarker &marker : markers_)
        if (EqualNoCase(marker.path.GetFullPath(), file))
            marker.handle = view.Send(SCI_MARKERADD, marker.line, number_ + (marker.secondState ? 1 : 0));
}

void CMarkerList::TakeFromDocument(CIDEDoc &document) {
    if (auto *view = dynamic_cast<CIDEView *>(document.GetFirstView())) TakeFromView(*view);
}

void CMarkerList::ApplyToDocument(CIDEDoc &document) {
    for (CView *each : document.GetViews()) {
        auto *view = dynamic_cast<CIDEView *>(each);
        if (!view) continue;
        view->Send(SCI_MARKERDELETEALL, number_, 0);
        view->Send(SCI_MARKERDELETEALL, number_ + 1, 0);
        ApplyToView(*view);
    }
}

void CMarkerList::Load(const std::string &projectFile) {
    markers_.clear();
    const int count = GetPrivateProfileIntA(name_.c_str(), "Count", 0, projectFile.c_str());
    for (int i = 0; i < count; ++i) {
        const std::string index = std::to_string(i);
        const std::string file = ReadProfileString(name_, "F" + index, "", projectFile);
        const int line = GetPrivateProfileIntA(name_.c_str(), ("L" + index).c_str(), -1, projectFile.c_str());
        const int state = GetPrivateProfileIntA(name_.c_str(), ("D" + index).c_str(), 0, projectFile.c_str());
        if (!file.empty() && line != -1) Add(file, line, state != 0);
    }
}

void CMarkerList::Store(const std::string &projectFile) const {
    // A project that never had a mark keeps its file as it is.
    if (markers_.empty() && GetPrivateProfileIntA(name_.c_str(), "Count", 0, projectFile.c_str()) == 0) return;
    std::vector<std::pair<std::string, std::string>> values{{"Count", std::to_string(markers_.size())}};
    for (size_t i = 0; i < markers_.size(); ++i) {
        const std::string index = std::to_string(i);
        values.emplace_back("F" + index, markers_[i].path.GetFullPath());
        values.emplace_back("L" + index, std::to_string(markers_[i].line));
        values.emplace_back("D" + index, markers_[i].secondState ? "1" : "0");
    }
    WritePrivateProfileKeys(name_.c_str(), values, projectFile.c_str());
}
