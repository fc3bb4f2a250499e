// Watches files that are open in the program for changes by others.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Posted to the first view of a tracked document.
enum FileTrackerMessage : unsigned {
    kMsgFileChanged = 0x400,  // another program wrote the file
    kMsgFileDeleted = 0x401,  // the file is gone
};

// Paths are in the Windows form and compare without regard to case. Main thread.
class CFileTracker {
public:
    // Adds a record with the file's last-write time. False when the time can't be read.
    bool TrackFile(const std::string &path, bool armed);
    void UntrackFile(const std::string &path);  // the first record of that path
    bool IsFileTracked(const std::string &path) const;
    bool IsFileArmed(const std::string &path) const;

    void ArmFile(const std::string &path);  // takes the time afresh; an unreadable file's record stays as it is
    void DisarmFile(const std::string &path);

    // Looks at every armed record. A file that was written since, or is gone, is told to its document's first view by a
    // posted message, and its record goes. A file that exists but can't be opened is taken to be busy.
    void CheckTrackedFiles();

private:
    struct TrackedFile {
        std::string path;
        int64_t lastWrite;  // nanoseconds since 1970, when last armed
        bool armed;
    };
    size_t Find(const std::string &path) const;  // index of the record; the count when there is none

    std::vector<TrackedFile> files_;
};
