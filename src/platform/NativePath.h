// The way from a stored file name to a real file, and back.
//
// Everything that the program stores, compares or passes to a plug-in is in the Windows form: backslash as separator,
// `c:` for the root of the file system, another drive letter `d:` for /mnt/d; an absolute native path has no drive:
// /home/u/x.c is \home\u\x.c. The native form exists only while a file is opened, shown to the user or named to another
// program. Any thread.
#pragma once

#include <string>
#include <string_view>

// The native path of `windows`. Slashes are accepted as separators. An element that does not exist as it is spelled is
// looked up in its directory without regard to case (of several matches the first in byte order); what is not found
// keeps its spelling, so that a file that is to be created gets the name as given. A relative name stays relative to
// the current directory. Empty in, empty out.
std::string ToNativePath(std::string_view windows);

// As ToNativePath, but nothing is looked up: drive and separators only.
std::string NativePathAsSpelled(std::string_view windows);

// The Windows form of a native path: slashes become backslashes; nothing is looked up.
std::string FromNativePath(std::string_view native);

// The native form as a user reads it: like ToNativePath, for titles, lists, tool tips and messages.
std::string DisplayPath(std::string_view windows);

// Whether two full names mean one file: they compare equal without regard to case and lead to the same spelling on
// disk. Two files whose names differ only in case are two files.
bool NamesOneFile(const std::string &a, const std::string &b);
