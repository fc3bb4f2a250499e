// A directory of its own for one test, gone with the object.
#pragma once

#include <filesystem>
#include <string>

class CScratch {
public:
    CScratch();
    ~CScratch();
    CScratch(const CScratch &) = delete;
    CScratch &operator=(const CScratch &) = delete;

    const std::filesystem::path &Path() const { return path_; }
    std::string Native(const std::string &name) const { return (path_ / name).string(); }
    std::string Windows(const std::string &name) const;  // in the Windows form

    void Write(const std::string &name, const std::string &text) const;  // makes directories as needed
    std::string Read(const std::string &name) const;                     // empty when missing
    bool Exists(const std::string &name) const { return std::filesystem::exists(path_ / name); }

    // A copy of the files of one directory of the source tree's examples, under its name; an empty name: what lies beside
    // the examples.
    void CopyExample(const std::string &example) const;

private:
    std::filesystem::path path_;
};
