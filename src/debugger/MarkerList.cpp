#include "debugger/MarkerList.h"

#include <algorithm>

#include "debugger/MarkerSection.h"
#include "editor/IDEDoc.h"
#include "editor/IDEView.h"
#include "editor/SciWindow.h"
#include "platform/PathCalls.h"

namespace {

constexpr unsigned kLongestPath = 4095;  // bytes

}  // namespace

CMarker *CMarkerList::Add(const std::string &file, int line, uint8_t secondState, int id) {
    const CPath path(file);
    return AddTo(files_[LowerCase(path.GetFullPath())], path, line, secondState, id);
}

CMarker *CMarkerList::AddTo(Lines &lines, const CPath &path, int line, uint8_t secondState, int id) {
    const auto [at, isNew] = lines.try_emplace(line);
    if (!isNew) return nullptr;
    CMarker &marker = markers_.emplace_back();
    at->second = std::prev(markers_.end());
    marker.path = path;
    marker.line = line;
    marker.secondState = secondState;
    marker.id = id;
    OnAddMarker(marker);
    return &marker;
}

bool CMarkerList::Remove(const char *file, int line, TempMarkers *normal, TempMarkers *second) {
    if (!file) {
        if (markers_.empty()) return false;
        const CMarker &first = markers_.front();
        return Remove(first.File().c_str(), first.line);
    }
    const auto found = files_.find(LowerCase(CPath(file).GetFullPath()));
    if (found == files_.end()) return false;
    Lines &lines = found->second;
    const auto begin = line == -1 ? lines.begin() : lines.find(line);
    const auto end = line == -1 || begin == lines.end() ? lines.end() : std::next(begin);
    if (begin == end) return false;
    for (auto each = begin; each != end; ++each) TakeOut(each->second, normal, second);
    lines.erase(begin, end);
    if (lines.empty()) files_.erase(found);
    return true;
}

void CMarkerList::TakeOut(Place place, TempMarkers *normal, TempMarkers *second) {
    if (TempMarkers *const left = place->secondState ? second : normal)
        left->insert(left->end(), {place->line, std::move(place->props), place->id});
    OnRemoveMarker(*place);
    markers_.erase(place);
}

void CMarkerList::Clear() {
    while (Remove(nullptr)) {
    }
}

CMarker *CMarkerList::Find(const std::string &file, int line) {
    const std::string name = LowerCase(CPath(file).GetFullPath());
    const auto found = files_.find(name);
    if (found == files_.end()) return nullptr;
    if (line != -1) {
        const auto at = found->second.find(line);
        return at == found->second.end() ? nullptr : &*at->second;
    }
    const auto first =
        std::ranges::find_if(markers_, [&](const CMarker &each) { return LowerCase(each.File()) == name; });
    return first == markers_.end() ? nullptr : &*first;
}

void CMarkerList::RefreshFromView(const CSciWindow &view, const std::string &file, TempMarkers *normal,
                                  TempMarkers *second) {
    const CPath path(file);
    const std::string name = LowerCase(path.GetFullPath());
    Lines *lines = nullptr;
    for (const uint8_t state : {0, 1}) {
        const int number = number_ + state;
        TempMarkers *const left = state ? second : normal;
        intptr_t line = -1;
        while ((line = view.Send(SCI_MARKERNEXT, static_cast<uintptr_t>(line + 1), 1 << number)) >= 0) {
            if (!lines) lines = &files_[name];
            CMarker *const marker = AddTo(*lines, path, static_cast<int>(line), state, 0);
            if (!marker) continue;
            DeleteAllOfLine(view, line, number);
            marker->handle = view.Send(SCI_MARKERADD, static_cast<uintptr_t>(line), number);
            if (!left || left->empty()) continue;
            const auto head = left->extract(left->begin());
            marker->props = std::move(head.value().props);
            marker->id = head.value().id;
        }
    }
}

void CMarkerList::PlaceInView(const std::string &file, const CSciWindow &view) {
    const auto found = files_.find(LowerCase(CPath(file).GetFullPath()));
    if (found == files_.end()) return;
    for (const auto &[line, marker] : found->second) {
        const intptr_t handle = view.Send(SCI_MARKERADD, static_cast<uintptr_t>(line), number_ + marker->secondState);
        marker->handle = std::max<intptr_t>(handle, 0);  // the text may have fewer lines by now
    }
}

void CMarkerList::DeleteAllOfLine(const CSciWindow &view, intptr_t line, int number) {
    const auto at = static_cast<uintptr_t>(line);
    // Each call deletes one.
    while (view.Send(SCI_MARKERGET, at) & (1 << number)) view.Send(SCI_MARKERDELETE, at, number);
}

void CMarkerList::TakeFromView(CIDEView &view) {
    const std::string file = view.GetDocument()->GetPathName();
    if (file.empty()) return;
    TempMarkers normal, second;
    Remove(file.c_str(), -1, &normal, &second);
    RefreshFromView(view.Sci(), file, &normal, &second);
}

void CMarkerList::TakeFromDocument(CIDEDoc &document) {
    // A view that could not read the file would empty the list.
    if (CIDEView *view = document.GetFirstCodeView(); view && view->HoldsFile()) TakeFromView(*view);
}

void CMarkerList::ApplyToDocument(CIDEDoc &document) {
    for (const CIDEView *view : document.GetCodeViews()) {
        for (const int number : {number_, number_ + 1}) view->Send(SCI_MARKERDELETEALL, static_cast<uintptr_t>(number));
        PlaceInView(document.GetPathName(), view->Sci());
    }
}

void CMarkerList::Load(const std::string &projectFile) {
    Clear();
    const CMarkerSection section(name_, projectFile);
    const int count = section.ReadCount();
    for (int i = 0; i < count; ++i) {
        const std::string file = section.ReadText("F", i, kLongestPath);
        const int line = section.ReadInt("L", i, -1);
        if (file.empty() || line < 0) continue;
        if (CMarker *marker = Add(file, line, section.ReadInt("D", i) != 0)) LoadMarkerData(*marker, section, i);
    }
}

bool CMarkerList::Save(const std::string &projectFile) const {
    CMarkerSection section(name_, projectFile);
    // A project that never had a mark keeps its file as it is.
    if (markers_.empty() && section.ReadCount() == 0) return true;
    section.SetCount(static_cast<int>(markers_.size()));
    int index = 0;
    for (const CMarker &marker : markers_) {
        section.SetText("F", index, marker.File());
        section.SetInt("L", index, marker.line);
        section.SetInt("D", index, marker.secondState);
        SaveMarkerData(marker, section, index++);
    }
    return section.Write();
}
