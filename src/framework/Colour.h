// Colours as the model holds them: words 0x00BBGGRR.
#pragma once

#include <QColor>
#include <cstdint>

inline QColor ToQColor(uint32_t colour) {
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>(colour >> 8 & 0xFF),
                  static_cast<int>(colour >> 16 & 0xFF));
}

inline uint32_t FromQColor(const QColor &colour) {
    return static_cast<uint32_t>(colour.blue() << 16 | colour.green() << 8 | colour.red());
}
