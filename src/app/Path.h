// One path as a value: its parts, and its way between absolute and relative form.
#pragma once

#include <string>
#include <string_view>

// Holds a path in the Windows form; slashes are taken for backslashes, and one pair of quotes round the whole text
// doesn't count. A failed operation gives an empty string. Paths have no limit of length. Not for two threads at once.
class CPath {
public:
    CPath() = default;
    explicit CPath(std::string_view text) { Set(text); }
    CPath(const CPath &) = default;
    CPath &operator=(const CPath &) = default;
    virtual ~CPath() = default;

    void Set(std::string_view text);

    const std::string &GetText() const { return text_; }  // as given, quotes included
    const std::string &GetDrive() const { return drive_; }
    std::string GetDirectory() const { return drive_ + directory_; }
    const std::string &GetDir() const { return directory_; }
    const std::string &GetTitle() const { return title_; }
    const std::string &GetExtension() const { return extension_; }
    std::string GetDottedExtension() const;
    std::string GetFileName() const { return title_ + GetDottedExtension(); }
    std::string GetFullPath() const { return GetDirectory() + GetFileName(); }
    const char *GetFullPathCached() const;  // lives until the next call or change of this value

    // True for a directory part that begins without a separator: a bare name, which has none, is not relative.
    bool IsRelative() const { return relative_; }

    std::string MakeAbsolute(std::string_view base) const;  // empty for a path that isn't relative
    // Empty for a relative path, without a common root, and for a file name that the parts don't hold whole (".cfg").
    std::string MakeRelative(std::string_view base) const;

    // Looks at the disk: the full path as the disk spells it, or as it stands when there is no such file.
    std::string GetLongPath() const;

    // Looks at the disk: whether two names mean one file, which is the one way of comparing file names.
    bool IsSamePath(std::string_view other) const;

    // The system's call behind GetLongPath; null makes it walk up the path by file searches instead.
    using LongPathCall = bool (*)(std::string &out, const std::string &path);
    static void SetLongPathCall(LongPathCall call);

private:
    std::string text_;
    std::string drive_;      // "c:" or empty
    std::string directory_;  // backslashes only, with the last one
    std::string title_;
    std::string extension_;  // without any dot
    bool relative_ = false;
    mutable std::string fullPath_;  // for GetFullPathCached only
};
