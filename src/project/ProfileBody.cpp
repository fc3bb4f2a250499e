#include "project/ProfileBody.h"

#include <algorithm>

#include "platform/FileText.h"
#include "platform/Profile.h"

namespace {

constexpr size_t kShortestEntry = 4;     // bytes of a line that can hold a numbered key
constexpr size_t kAlwaysCounted = 5000;  // entries that cost no time to look for, in a list with gaps too

bool IsBlank(const std::string &text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

bool HasSection(const std::string &text) {
    for (size_t line = 0; line < text.size();) {
        const size_t start = text.find_first_not_of(" \t\r\n\xEF\xBB\xBF", line);
        if (start == std::string::npos) return false;
        const size_t end = std::min(text.find('\n', start), text.size());
        if (text[start] == '[' && text.find(']', start) < end) return true;
        line = end;
    }
    return false;
}

}  // namespace

bool LooksLikeProfile(const std::string &path) {
    const auto body = ReadWholeFile(path);
    if (!body || IsBlank(*body)) return true;
    return body->find('\0') == std::string::npos && HasSection(*body);
}

size_t ReadProfileCount(const std::string &section, const std::string &key, const std::string &path) {
    const int count = GetPrivateProfileIntA(section.c_str(), key.c_str(), 0, path.c_str());
    const auto body = ReadWholeFile(path);
    if (count <= 0 || !body) return 0;
    return std::min(static_cast<size_t>(count), std::max(body->size() / kShortestEntry, kAlwaysCounted));
}
