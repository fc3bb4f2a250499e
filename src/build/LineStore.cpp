#include "build/LineStore.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace {

using Length = uint32_t;

}  // namespace

void LineStore::Append(std::string_view text) {
    text = text.substr(0, std::numeric_limits<Length>::max());
    const auto length = static_cast<Length>(text.size());
    char *place = Reserve(sizeof length + length);
    std::memcpy(place, &length, sizeof length);
    std::memcpy(place + sizeof length, text.data(), length);
    lines_.push_back(place);
    textBytes_ += length;
}

void LineStore::Clear() {
    lines_.clear();
    lines_.shrink_to_fit();
    chunks_.clear();
    free_ = nullptr;
    freeBytes_ = textBytes_ = 0;
}

std::string_view LineStore::Line(size_t index) const {
    const char *place = lines_[index];
    Length length;
    std::memcpy(&length, place, sizeof length);
    return {place + sizeof length, length};
}

char *LineStore::Reserve(size_t bytes) {
    const bool ownChunk = bytes > kChunkBytes / 8;
    if (ownChunk) return chunks_.emplace_back(new char[bytes]).get();
    if (bytes > freeBytes_) {
        free_ = chunks_.emplace_back(new char[kChunkBytes]).get();
        freeBytes_ = kChunkBytes;
    }
    char *place = free_;
    free_ += bytes;
    freeBytes_ -= bytes;
    return place;
}
