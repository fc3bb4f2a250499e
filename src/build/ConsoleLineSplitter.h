// Cuts the output of a console process into lines.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

// A line ends at CR or LF; a run of the same character after it belongs to the end, and so does one LF behind a run of
// CR: "a\r\n", "a\r\r\n" and "a\n\n" are one line each, however the bytes are split over the calls of Add. A line of
// more than kLongestLine bytes is cut into pieces at borders of UTF-8 characters. Memory is one fixed buffer. Not for
// two threads at once.
class ConsoleLineSplitter {
public:
    static constexpr size_t kLongestLine = 8191;

    using Sink = std::function<void(std::string_view line)>;  // `line` lives for the call only

    explicit ConsoleLineSplitter(Sink sink) : sink_(std::move(sink)) {}

    void Add(std::string_view bytes);
    void Finish();  // hands out what has no line end; the next Add begins afresh

private:
    enum class Skipping { nothing, carriageReturns, lineFeeds };

    std::string_view SkipLineEnd(std::string_view bytes);
    void Keep(std::string_view bytes);
    void EndLine(std::string_view rest, char end);
    void CutPiece();

    Sink sink_;
    Skipping skipping_ = Skipping::nothing;
    size_t used_ = 0;
    char buffer_[kLongestLine];
};
