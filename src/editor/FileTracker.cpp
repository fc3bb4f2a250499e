#include "editor/FileTracker.h"

#include <algorithm>
#include <optional>

#include "editor/TrackingDoc.h"
#include "framework/View.h"
#include "framework/WinApp.h"
#include "platform/FileTime.h"
#include "platform/PathCalls.h"

namespace {

// The name as spelled wins: a disk can hold two names that differ in case only.
template <typename Iterator, typename PathOf>
Iterator FindPath(Iterator first, Iterator last, const std::string &path, PathOf pathOf) {
    const Iterator same = std::find_if(first, last, [&](const auto &each) { return pathOf(each) == path; });
    if (same != last) return same;
    return std::find_if(first, last, [&](const auto &each) { return EqualNoCase(pathOf(each), path); });
}

void TellDocument(const std::string &path, FileTrackerMessage message) {
    if (!CWinApp::Get()) return;
    std::vector<CDocument *> documents = CWinApp::Get()->GetDocuments();
    std::erase_if(documents, [](CDocument *each) { return !dynamic_cast<CTrackingDoc *>(each); });
    const auto found = FindPath(documents.begin(), documents.end(), path,
                                [](CDocument *each) -> const std::string & { return each->GetPathName(); });
    if (found == documents.end()) return;
    if (CView *view = (*found)->GetFirstView()) view->PostMessage(message);
}

}  // namespace

size_t CFileTracker::Find(const std::string &path) const {
    const auto found = FindPath(files_.begin(), files_.end(), path,
                                [](const TrackedFile &each) -> const std::string & { return each.path; });
    return static_cast<size_t>(found - files_.begin());
}

bool CFileTracker::TrackFile(const std::string &path, bool armed) {
    const std::optional<int64_t> time = ReadLastWriteTime(path);
    if (!time) return false;
    files_.push_back({path, *time, armed});
    return true;
}

void CFileTracker::UntrackFile(const std::string &path) {
    const size_t index = Find(path);
    if (index < files_.size()) files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(index));
}

bool CFileTracker::IsFileTracked(const std::string &path) const {
    return Find(path) < files_.size();
}

bool CFileTracker::IsFileArmed(const std::string &path) const {
    const size_t index = Find(path);
    return index < files_.size() && files_[index].armed;
}

void CFileTracker::ArmFile(const std::string &path) {
    for (TrackedFile &each : files_) {
        if (!EqualNoCase(each.path, path)) continue;
        const std::optional<int64_t> time = ReadLastWriteTime(each.path);
        if (!time) continue;
        each.lastWrite = *time;
        each.armed = true;
    }
}

void CFileTracker::DisarmFile(const std::string &path) {
    for (TrackedFile &each : files_)
        if (EqualNoCase(each.path, path)) each.armed = false;
}

void CFileTracker::CheckTrackedFiles() {
    for (size_t i = 0; i < files_.size();) {
        const TrackedFile file = files_[i];
        ++i;
        if (!file.armed) continue;
        const std::optional<int64_t> time = ReadLastWriteTime(file.path);
        const bool changed = time && file.lastWrite < *time;
        const bool gone = !time && GetFileAttributesA(file.path) == kInvalidFileAttributes;
        if (!changed && !gone) continue;
        files_.erase(files_.begin() + static_cast<std::ptrdiff_t>(--i));
        TellDocument(file.path, changed ? kMsgFileChanged : kMsgFileDeleted);
    }
}
