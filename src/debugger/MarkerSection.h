// One section of a project's file in which a list is stored, as of markers: each value under a name with the entry's
// index behind.
#pragma once

#include <string>
#include <utility>
#include <vector>

class CMarkerSection {
public:
    CMarkerSection(std::string name, std::string projectFile) : name_(std::move(name)), file_(std::move(projectFile)) {}

    // The count of markers that the section claims, at most what a file of its size can hold.
    int ReadCount() const;
    int ReadInt(const char *key, int index, int fallback = 0) const;
    std::string ReadText(const char *key, int index, unsigned longest) const;  // `longest`: bytes

    // Writes are gathered until Write puts all of them into the file at once; false when it can't be written.
    void SetCount(int count);
    void SetInt(const char *key, int index, int value);
    void SetText(const char *key, int index, const std::string &value);
    void SetNumber(std::string key, int value);  // under a name of its own
    bool Write() const;

private:
    std::string name_, file_;
    std::vector<std::pair<std::string, std::string>> values_;
};
