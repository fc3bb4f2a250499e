#include "bench/peer/Picture.h"

#include <algorithm>

#include "bench/Measure.h"

Area Area::Part(double left, double top, double right, double bottom) const {
    const auto along = [](int begin, int length, double share) { return begin + static_cast<int>(length * share); };
    const int newX = along(x, width, left), newY = along(y, height, top);
    return {newX, newY, along(x, width, right) - newX, along(y, height, bottom) - newY};
}

double Picture::Share(uint32_t colour) const {
    return static_cast<double>(std::ranges::count(pixels, colour)) / area.Size();
}

double Picture::Ink() const {
    int changes = 0;
    for (int row = 0; row < area.height; ++row) {
        const uint32_t *line = pixels.data() + static_cast<ptrdiff_t>(row) * area.width;
        for (int column = 1; column < area.width; ++column) changes += line[column] != line[column - 1];
    }
    return static_cast<double>(changes) / area.Size();
}

double Picture::Difference(const Picture &other) const {
    const int left = area.x - other.area.x, top = area.y - other.area.y;
    Require(left >= 0 && top >= 0 && left + area.width <= other.area.width && top + area.height <= other.area.height,
            "pictures of different places are compared");
    int different = 0;
    for (int row = 0; row < area.height; ++row) {
        const uint32_t *mine = pixels.data() + static_cast<ptrdiff_t>(row) * area.width;
        const uint32_t *theirs = other.pixels.data() + static_cast<ptrdiff_t>(row + top) * other.area.width + left;
        for (int column = 0; column < area.width; ++column) different += mine[column] != theirs[column];
    }
    return static_cast<double>(different) / area.Size();
}
