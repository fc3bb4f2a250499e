// What a view has to know of a printer and its paper.
#pragma once

// All numbers are above 0.
struct PrintFigures {
    int logPixelsX = 0, logPixelsY = 0;  // pixels per inch
    int horzSize = 0, vertSize = 0;      // the whole sheet, not only what the printer reaches; mm, cut off
};
