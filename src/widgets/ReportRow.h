// What a CReportCtrl shows: its columns and rows.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct ReportColumn {
    std::string title;
    int width = 0;         // in average characters of the list's font, at first; never less than the title needs
    bool toRight = false;  // as numbers are set
    bool stretch = false;  // takes the width that the others leave
};

struct ReportRow {
    std::vector<std::string> cells;  // by column; missing ones are empty
    std::optional<intptr_t> data;    // what the row stands for, in the owner's terms; survives sorting
};
