// A growing list of text lines, cheap for a million of them.
#pragma once

#include <cstddef>
#include <deque>
#include <memory>
#include <string_view>
#include <vector>

// Lines are appended and never changed; views of them stay valid until Clear. A line costs its text and 12 bytes.
// Appending takes constant time and moves nothing.
class LineStore {
public:
    void Append(std::string_view text);
    void Clear();

    size_t Count() const { return lines_.size(); }
    std::string_view Line(size_t index) const;  // `index` below Count
    size_t TextBytes() const { return textBytes_; }

private:
    static constexpr size_t kChunkBytes = 64 * 1024;

    char *Reserve(size_t bytes);

    std::vector<std::unique_ptr<char[]>> chunks_;
    char *free_ = nullptr;  // in the newest shared chunk
    size_t freeBytes_ = 0;
    size_t textBytes_ = 0;
    std::deque<const char *> lines_;  // each points to a 32-bit length and the text behind it
};
