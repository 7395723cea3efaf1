#pragma once

#include <cstdint>

#include <QColor>

namespace rotavel {

// 32-bit RGBA with red in the lowest byte, to and from the toolkit's colours.

inline QColor ToQColor(std::uint32_t rgba) {
    return QColor(static_cast<int>(rgba & 0xFF), static_cast<int>(rgba >> 8 & 0xFF),
                  static_cast<int>(rgba >> 16 & 0xFF), static_cast<int>(rgba >> 24));
}

inline std::uint32_t FromQColor(const QColor& colour) {
    const auto byte = [](int value) { return static_cast<std::uint32_t>(value); };
    return byte(colour.red()) | byte(colour.green()) << 8 | byte(colour.blue()) << 16 |
           byte(colour.alpha()) << 24;
}

}  // namespace rotavel
