#pragma once

#include <cstdint>

namespace rotavel {

// A colour with red in bits 0 to 7, then green, blue and alpha, 0 to 255 each.
using Colour = std::uint32_t;

constexpr Colour ColourRGBA(std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                            std::uint8_t alpha) {
    return static_cast<Colour>(red) | static_cast<Colour>(green) << 8 |
           static_cast<Colour>(blue) << 16 | static_cast<Colour>(alpha) << 24;
}

}  // namespace rotavel
