// One row of the table of editor styles.
#pragma once

#include <cstdint>
#include <string>

// Rows with an id of 0 and above set that style of the component; the negative ids have meanings of their own.
struct CStyle {
    static constexpr int kExecutionLine = -1, kSelection = -2, kCaret = -3;

    int id = 0;
    std::string name;
    uint32_t textColour = 0, backColour = 0xFFFFFF;  // 0x00BBGGRR
    bool bold = false, italic = false, underline = false;
    bool noChange = false;  // selected text keeps its colours

    bool operator==(const CStyle &) const = default;
};
