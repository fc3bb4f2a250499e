// What a part of a screen shows, and what can be said about it without knowing the program that drew it.
#pragma once

#include <cstdint>
#include <vector>

struct Area {
    int x = 0, y = 0, width = 0, height = 0;  // pixels

    int Size() const { return width * height; }
    // A part of it; all in shares of the width and the height.
    Area Part(double left, double top, double right, double bottom) const;
};

struct Picture {
    Area area;                     // on the screen
    std::vector<uint32_t> pixels;  // 0x00RRGGBB, row by row

    double Share(uint32_t colour) const;            // of the pixels, 0 to 1
    double Ink() const;                             // share of the pixels that differ from their right neighbour
    double Difference(const Picture &other) const;  // share of the pixels that differ; `other` contains this area
};
