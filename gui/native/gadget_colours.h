#pragma once

#include <cstdint>

#include <QColor>
#include <QPalette>

namespace rotavel {

// 32-bit RGBA with red in the lowest byte, to and from the toolkit's colours.

inline QColor ToColour(std::int64_t rgba) {
    const auto bits = static_cast<std::uint32_t>(rgba);
    return QColor(static_cast<int>(bits & 0xFF), static_cast<int>(bits >> 8 & 0xFF),
                  static_cast<int>(bits >> 16 & 0xFF), static_cast<int>(bits >> 24));
}

inline std::int64_t FromColour(const QColor& colour) {
    return static_cast<std::int64_t>(colour.red()) |
           static_cast<std::int64_t>(colour.green()) << 8 |
           static_cast<std::int64_t>(colour.blue()) << 16 |
           static_cast<std::int64_t>(colour.alpha()) << 24;
}

// Gives one role of a view's palette a colour in every state.
template <typename View>
void SetPaletteColour(View& view, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = view.palette();
    palette.setColor(role, colour);
    view.setPalette(palette);
}

}  // namespace rotavel
