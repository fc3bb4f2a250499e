// Profile files: text files of sections "[name]" and lines "key=value", read and edited in place key by key.
//
// The contract of every call: `file` is a full path in the Windows form. Section and key names compare without regard
// to case; the first section and the first key of a name count, keys of later sections of the same name are not seen.
// Blanks round section name, key and value don't belong to them; one pair of double or single quotes that surrounds a
// value doesn't either. Lines that begin with ";" are comments. Lines end in CR LF, LF or both mixed; a new line ends
// as the file's first line does, CR LF in a new file. A UTF-8 byte order mark is kept. Unknown lines, comments and
// order survive each write. A write replaces the file as a whole and at once (a reader sees the old or the new file,
// never a part), follows symbolic links, keeps the mode bits, and is seen by the next read of any process; a write that
// changes nothing leaves the file alone. Parsed files are kept and checked against the disk at each call, so that
// reading a file key by key costs little and still sees every write of others. Nothing is logged: a file that is
// missing or can't be read reads as empty. Main thread or a companion's own; not for two threads on one file.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>

// Copies the value of `key` into `buffer`, cut to size - 1 bytes (fewer where the cut would split a character) and
// always terminated; `fallback` (null: empty) when section, key or file is missing. Returns the count of bytes copied
// without the terminating zero.
uint32_t GetPrivateProfileStringA(const char *section, const char *key, const char *fallback, char *buffer,
                                  uint32_t size, const char *file);

// The value read as a decimal number with an optional sign, up to the first other character, and taken modulo 2^32; no
// digits give 0, a missing key `fallback`.
int GetPrivateProfileIntA(const char *section, const char *key, int fallback, const char *file);

// Sets `key` at once on disk, creating file, section and key as needed; a null value removes the key, a null key the
// whole section, each with its later namesakes. A value is written up to its first line end. False when the file can't
// be written, and for a name that would not read back (a key that is empty, holds "=" or a line end, or begins with ";"
// or "["; a section with "]" or a line end); the old file is then untouched.
bool WritePrivateProfileStringA(const char *section, const char *key, const char *value, const char *file);

// Sets many keys of one section with one replacement of the file. The file is byte for byte the same as after
// WritePrivateProfileStringA for each pair in order. False when one of them fails; the others are written.
bool WritePrivateProfileKeys(const char *section, std::span<const std::pair<std::string, std::string>> values,
                             const char *file);

// As GetPrivateProfileStringA, with a buffer of `size` bytes (260, as paths have) inside.
std::string ReadProfileString(const std::string &section, const std::string &key, const std::string &fallback,
                              const std::string &file, uint32_t size = 260);
