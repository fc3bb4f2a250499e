// Path and directory calls on names in the Windows form, under the names that the rest of the code knows them by.
// Pure string logic, except where a call says that it looks at the disk. Strings are UTF-8.
#pragma once

#include <string>
#include <string_view>

// Attribute 16 marks a directory in PathRelativePathToA and GetFileAttributesA.
inline constexpr unsigned kFileAttributeReadOnly = 1;
inline constexpr unsigned kFileAttributeDirectory = 16;
inline constexpr unsigned kFileAttributeNormal = 128;
inline constexpr unsigned kInvalidFileAttributes = 0xFFFFFFFFu;

struct SplitPath {
    std::string drive;      // "c:" or empty
    std::string directory;  // with its trailing separator, separators as given
    std::string name;       // without extension
    std::string extension;  // with its dot
};

std::string PathUnquoteSpacesA(std::string_view text);  // without one pair of double quotes round the whole text
SplitPath _splitpath(std::string_view path);

// Removes "." and ".." elements and doubled separators; separators become backslashes, one at the end stays. False (and
// `out` untouched) for text that it can't reduce: empty, or with a ".." above its root or above its first element.
bool PathCanonicalizeA(std::string &out, std::string_view path);

// Path from `from` to `to`, beginning with ".\" or "..\"; the attributes are 16 for a directory and 0 for a file.
// Elements compare without regard to case; "c:\" and "\" are one root. False when the two have no common root: other
// drives, one of them relative, or two relative ones that differ from their first element on.
bool PathRelativePathToA(std::string &out, std::string_view from, unsigned fromAttributes, std::string_view to,
                         unsigned toAttributes);

// Looks at the disk: the path with each element spelled as stored there. False when the file doesn't exist.
bool GetLongPathNameA(std::string &out, const std::string &path);

// Looks at the disk: a name of at most eight characters and three of extension for the last element, made up by the
// rule of the short names ("LONGNA~1.C") when it needs one. False when the file doesn't exist.
bool GetShortPathNameA(std::string &out, const std::string &path);

// Comparison without regard to case, for letters beyond ASCII too and in every locale alike: <0, 0, >0.
int lstrcmpiA(std::string_view a, std::string_view b);
bool EqualNoCase(std::string_view a, std::string_view b);             // lstrcmpiA(a, b) == 0
bool StartsWithNoCase(std::string_view text, std::string_view prefix);

// The number of bytes at the start of `text` that equal `prefix`; they can be more or fewer than it has, because a
// letter and its capital need not be of one length. npos when `text` doesn't begin with it.
size_t MatchPrefixNoCase(std::string_view text, std::string_view prefix);
std::string LowerCase(std::string_view text);

// The process's current directory, Windows form, without a trailing separator (but "\" for the root).
std::string GetCurrentDirectoryA();
bool SetCurrentDirectoryA(const std::string &directory);

// The full, canonical path of a name that may be relative to the current directory.
std::string GetFullPathNameA(const std::string &name);

// kInvalidFileAttributes when there is no such file; kFileAttributeReadOnly when the user may not write it.
unsigned GetFileAttributesA(const std::string &path);
bool CreateDirectoryA(const std::string &path);  // one level; false when it exists

bool FileExists(const std::string &path);       // exists and is no directory
bool DirectoryExists(const std::string &path);
