#include "build/ConsoleLineSplitter.h"

#include <algorithm>
#include <cstring>

void ConsoleLineSplitter::Add(std::string_view bytes) {
    while (!(bytes = SkipLineEnd(bytes)).empty()) {
        const size_t end = bytes.find_first_of("\r\n");
        if (end == std::string_view::npos) {
            Keep(bytes);
            return;
        }
        EndLine(bytes.substr(0, end), bytes[end]);
        bytes.remove_prefix(end + 1);
    }
}

void ConsoleLineSplitter::Finish() {
    if (used_ > 0) sink_({buffer_, used_});
    used_ = 0;
    skipping_ = Skipping::nothing;
}

std::string_view ConsoleLineSplitter::SkipLineEnd(std::string_view bytes) {
    if (skipping_ == Skipping::nothing) return bytes;
    const char repeated = skipping_ == Skipping::carriageReturns ? '\r' : '\n';
    const size_t other = bytes.find_first_not_of(repeated);
    if (other == std::string_view::npos) return {};
    bytes.remove_prefix(other);
    if (repeated == '\r' && bytes.front() == '\n') bytes.remove_prefix(1);
    skipping_ = Skipping::nothing;
    return bytes;
}

void ConsoleLineSplitter::Keep(std::string_view bytes) {
    while (!bytes.empty()) {
        if (used_ == kLongestLine) CutPiece();
        const size_t count = std::min(bytes.size(), kLongestLine - used_);
        std::memcpy(buffer_ + used_, bytes.data(), count);
        used_ += count;
        bytes.remove_prefix(count);
    }
}

void ConsoleLineSplitter::EndLine(std::string_view rest, char end) {
    if (used_ == 0 && rest.size() <= kLongestLine) {
        sink_(rest);
    } else {
        Keep(rest);
        sink_({buffer_, used_});
        used_ = 0;
    }
    skipping_ = end == '\r' ? Skipping::carriageReturns : Skipping::lineFeeds;
}

void ConsoleLineSplitter::CutPiece() {
    constexpr size_t kMostFollowers = 3;  // of a UTF-8 character's first byte
    const auto follows = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    // The character that the piece ends in may be cut off: it goes to the next piece, unless the bytes are no UTF-8.
    size_t first = used_ - 1;
    while (first > 0 && used_ - first <= kMostFollowers && follows(buffer_[first])) --first;
    const bool isLead = static_cast<unsigned char>(buffer_[first]) >= 0xC0;
    const size_t piece = isLead && first > 0 ? first : used_;
    sink_({buffer_, piece});
    std::memmove(buffer_, buffer_ + piece, used_ - piece);
    used_ -= piece;
}
