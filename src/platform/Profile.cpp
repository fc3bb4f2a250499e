#include "platform/Profile.h"

#include <sys/stat.h>
#include <time.h>

#include <algorithm>
#include <cstring>
#include <list>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <stdexcept>

#include "platform/NativeFile.h"
#include "platform/NativePath.h"
#include "platform/ProfileText.h"

namespace {

// What tells one state of a file from another. Times are those of the file system, in nanoseconds.
struct FileIdentity {
    dev_t device;
    ino_t node;
    off_t size;
    int64_t written, changed;
    bool operator==(const FileIdentity &) const = default;
};

int64_t Nanoseconds(const timespec &time) { return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

std::optional<FileIdentity> Identify(const std::string &nativePath) {
    struct stat status;
    if (stat(nativePath.c_str(), &status) != 0 || !S_ISREG(status.st_mode)) return {};
    return FileIdentity{status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim),
                        Nanoseconds(status.st_ctim)};
}

// File times move on in steps of the kernel's tick: a file that was written within the last steps can be written again
// and look the same. Such a file's bytes are compared at each read.
bool IsSettled(const FileIdentity &identity) {
    constexpr int64_t step = 50'000'000;
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    return Nanoseconds(now) - std::max(identity.written, identity.changed) > step;
}

// The last few files that were read, parsed. Guarded by the lock.
class CProfileCache {
public:
    std::mutex lock;

    // An empty text for a file that is missing (or is no file), null for one that can't be read.
    std::shared_ptr<const CProfileText> Load(const std::string &nativePath) {
        const std::optional<FileIdentity> identity = Identify(nativePath);
        const auto known = FindEntry(nativePath);
        if (!identity) {
            if (known != entries_.end()) entries_.erase(known);
            return std::make_shared<const CProfileText>();
        }
        if (known != entries_.end() && known->identity == *identity && known->settled) {
            entries_.splice(entries_.begin(), entries_, known);
            return known->text;
        }
        // The identity is older than the bytes: a write in between shows as another identity at the next call.
        std::optional<std::string> bytes = ReadNativeFile(nativePath);
        if (!bytes) return nullptr;
        if (known != entries_.end() && known->bytes == *bytes) {
            known->identity = *identity;
            known->settled = IsSettled(*identity);
            return known->text;
        }
        auto text = std::make_shared<const CProfileText>(*bytes);
        Keep(nativePath, *identity, std::move(*bytes), text);
        return text;
    }

    void Keep(const std::string &nativePath, const FileIdentity &identity, std::string bytes,
              std::shared_ptr<const CProfileText> text) {
        if (const auto known = FindEntry(nativePath); known != entries_.end()) entries_.erase(known);
        if (bytes.size() > kLargestFile) return;
        entries_.push_front({nativePath, identity, IsSettled(identity), std::move(bytes), std::move(text)});
        if (entries_.size() > kMostFiles) entries_.pop_back();
    }

private:
    static constexpr size_t kMostFiles = 8;
    static constexpr size_t kLargestFile = 4 << 20;  // bytes

    struct Entry {
        std::string nativePath;
        FileIdentity identity;
        bool settled;  // the identity alone tells that the file is the same
        std::string bytes;
        std::shared_ptr<const CProfileText> text;
    };

    std::list<Entry>::iterator FindEntry(const std::string &nativePath) {
        return std::find_if(entries_.begin(), entries_.end(),
                            [&](const Entry &entry) { return entry.nativePath == nativePath; });
    }

    std::list<Entry> entries_;  // last used first
};

CProfileCache &Cache() {
    static CProfileCache cache;
    return cache;
}

// A name that stands on disk as it is spelled needs no look-up, and no further call than the cache's own.
std::string ProfilePath(const char *file) {
    std::string spelled = NativePathAsSpelled(file);
    struct stat status;
    return stat(spelled.c_str(), &status) == 0 ? spelled : ToNativePath(file);
}

template <typename Edit>
bool EditProfile(const char *file, Edit edit) try {
    const std::lock_guard guard(Cache().lock);
    const std::string nativePath = ProfilePath(file);
    const auto old = Cache().Load(nativePath);
    if (!old) return false;  // else the file would be replaced by the edit alone
    auto text = std::make_shared<CProfileText>(*old);
    const bool accepted = edit(*text);
    if (!text->IsChanged()) return accepted;
    std::string bytes = text->Bytes();
    if (!ReplaceNativeFile(nativePath, bytes)) return false;
    text->MarkSaved();
    if (const auto identity = Identify(nativePath))
        Cache().Keep(nativePath, *identity, std::move(bytes), std::move(text));
    return accepted;
} catch (const std::bad_alloc &) {
    return false;
} catch (const std::length_error &) {
    return false;
}

// The value, or an empty optional for a missing one; never throws.
std::optional<std::string> ReadValue(const char *section, const char *key, const char *file) try {
    if (!section || !key || !file || !*file) return {};
    const std::lock_guard guard(Cache().lock);
    const auto text = Cache().Load(ProfilePath(file));
    const auto value = text ? text->Find(section, key) : std::nullopt;
    return value ? std::optional<std::string>(*value) : std::nullopt;
} catch (const std::bad_alloc &) {
    return {};
} catch (const std::length_error &) {
    return {};
}

// The length of `text` cut to `limit` bytes, without a part of a character at the end.
size_t CutLength(std::string_view text, size_t limit) {
    if (text.size() <= limit) return text.size();
    size_t length = limit;
    while (length > 0 && limit - length < 3 && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80) --length;
    return (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80 ? limit : length;
}

}  // namespace

uint32_t GetPrivateProfileStringA(const char *section, const char *key, const char *fallback, char *buffer,
                                  uint32_t size, const char *file) {
    if (!buffer || size == 0) return 0;
    const std::optional<std::string> value = ReadValue(section, key, file);
    std::string_view text = value ? std::string_view(*value) : std::string_view(fallback ? fallback : "");
    text = text.substr(0, text.find('\0'));
    const size_t length = CutLength(text, size - 1);
    memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    return static_cast<uint32_t>(length);
}

int GetPrivateProfileIntA(const char *section, const char *key, int fallback, const char *file) {
    const std::optional<std::string> value = ReadValue(section, key, file);
    if (!value) return fallback;
    std::string_view text = *value;
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    uint32_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        number = number * 10 + static_cast<uint32_t>(c - '0');
    }
    return static_cast<int>(negative ? 0u - number : number);
}

bool WritePrivateProfileStringA(const char *section, const char *key, const char *value, const char *file) {
    if (!section || !file || !*file) return false;
    return EditProfile(file, [&](CProfileText &text) {
        if (!key) return text.RemoveSection(section);
        if (!value) return text.RemoveKey(section, key);
        return text.Set(section, key, value);
    });
}

bool WritePrivateProfileKeys(const char *section, std::span<const std::pair<std::string, std::string>> values,
                             const char *file) {
    if (!section || !file || !*file) return false;
    return EditProfile(file, [&](CProfileText &text) {
        bool accepted = true;
        // Through c_str: a value ends at its first zero, as it does key by key.
        for (const auto &[key, value] : values) accepted = text.Set(section, key.c_str(), value.c_str()) && accepted;
        return accepted;
    });
}

std::string ReadProfileString(const std::string &section, const std::string &key, const std::string &fallback,
                              const std::string &file, uint32_t size) {
    std::string value = ReadValue(section.c_str(), key.c_str(), file.c_str()).value_or(fallback);
    value.resize(std::min(value.size(), value.find('\0')));
    value.resize(CutLength(value, size ? size - 1 : 0));
    return value;
}
