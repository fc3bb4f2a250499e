// The watched expressions as a project keeps them.
#pragma once

#include <string>
#include <vector>

struct StoredWatch {
    std::string expression;
    int format = 0;
    bool operator==(const StoredWatch &) const = default;
};

// Bytes of an expression that a project gives back.
inline constexpr unsigned kLongestWatch = 2046;

// Of a project's file, in the Windows form. Rows without an expression are passed over; a row without a format has
// `format`.
std::vector<StoredWatch> LoadWatches(const std::string &projectFile, int format);
bool StoreWatches(const std::string &projectFile, const std::vector<StoredWatch> &watches);

// The key of what is kept for a row of this label. Labels are whatever the user has written, and a profile file can't
// have some characters in its keys: such labels are escaped. Others stay as they are, as other programs read them.
std::string FormatKeyOf(const std::string &label);
std::string RowKeyOf(const std::string &label);
