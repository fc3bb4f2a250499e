// One symbol of the index, or one place in the history of jumps.
#pragma once

#include <cstdint>
#include <string>

struct BrowseRecord {
    std::string name;  // of the symbol; in the history the word that was jumped from
    std::string file;  // Windows form, as the tag file spells it
    int32_t line = 0;  // from 1, 0: unknown; in the history the caret's line, from 0

    intptr_t item = 0;  // the row that shows it in the browse tree; 0: none

    // In the history only, else -1
    int32_t pos = -1;  // of the caret, in bytes
    int32_t firstVisibleLine = -1;
    int32_t viewIndex = -1;  // among the document's views
};
