// What a project and a workspace are as files: one path, set once.
#pragma once

#include <string>
#include <utility>

class CFilePath {
public:
    explicit CFilePath(std::string path) : path_(std::move(path)) {}
    virtual ~CFilePath() = default;

    std::string GetFileName() const;   // with its extension
    std::string GetDirectory() const;  // drive and directory, with the last separator
    std::string GetTitle() const;      // without its extension

protected:
    std::string path_;
};
