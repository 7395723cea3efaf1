#pragma once

#include <algorithm>
#include <cstdint>

namespace rotavel {

// The windowing system's limit for a side, and for how far off a position makes sense.
inline constexpr std::int64_t LargestSide = 32767;

// The most pixels that a window or image may have: 256 MiB of them, far more than any screen.
inline constexpr std::int64_t LargestArea = 64LL * 1024 * 1024;

// Whether a window or image of this size can be made.
inline bool IsPossibleSize(std::int64_t width, std::int64_t height) {
    return width >= 1 && height >= 1 && width <= LargestSide && height <= LargestSide &&
           width * height <= LargestArea;
}

// Coordinates and sides that no screen reaches are cut to what the toolkit can hold.
inline int ToCoordinate(std::int64_t value) {
    return static_cast<int>(std::clamp(value, -LargestSide, LargestSide));
}

inline int ToSide(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, 0, LargestSide));
}

}  // namespace rotavel
