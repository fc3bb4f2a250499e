#include "debugger/MarkerSection.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/NativePath.h"
#include "platform/Profile.h"

namespace {

constexpr const char *kCount = "Count";
constexpr uintmax_t kShortestEntry = 4;  // bytes of "F0=a"

std::string KeyOf(const char *key, int index) {
    return key + std::to_string(index);
}

// A reader takes blanks and one pair of quotes off a value: a value of which they are a part gets a pair of its own.
std::string Guarded(const std::string &value) {
    const bool quoted =
        value.size() > 1 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
    const bool padded = !value.empty() && (value.front() == ' ' || value.back() == ' ');
    return quoted || padded ? '"' + value + '"' : value;
}

}  // namespace

int CMarkerSection::ReadCount() const {
    const int count = GetPrivateProfileIntA(name_.c_str(), kCount, 0, file_.c_str());
    if (count <= 0) return 0;
    std::error_code error;
    const uintmax_t size = std::filesystem::file_size(ToNativePath(file_), error);
    return error ? 0 : static_cast<int>(std::min<uintmax_t>(static_cast<uintmax_t>(count), size / kShortestEntry));
}

int CMarkerSection::ReadInt(const char *key, int index, int fallback) const {
    return GetPrivateProfileIntA(name_.c_str(), KeyOf(key, index).c_str(), fallback, file_.c_str());
}

std::string CMarkerSection::ReadText(const char *key, int index, unsigned longest) const {
    return ReadProfileString(name_, KeyOf(key, index), "", file_, longest + 1);
}

void CMarkerSection::SetCount(int count) {
    values_.emplace_back(kCount, std::to_string(count));
}

void CMarkerSection::SetInt(const char *key, int index, int value) {
    values_.emplace_back(KeyOf(key, index), std::to_string(value));
}

void CMarkerSection::SetText(const char *key, int index, const std::string &value) {
    values_.emplace_back(KeyOf(key, index), Guarded(value));
}

void CMarkerSection::SetNumber(std::string key, int value) {
    values_.emplace_back(std::move(key), std::to_string(value));
}

bool CMarkerSection::Write() const {
    return WritePrivateProfileKeys(name_.c_str(), values_, file_.c_str());
}
