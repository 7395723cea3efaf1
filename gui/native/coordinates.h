#pragma once

#include <algorithm>
#include <cstdint>

namespace rotavel {

// The windowing system's limit for a side, and for how far off a position makes sense.
inline constexpr std::int64_t LargestSide = 32767;

// Coordinates and sides that no screen reaches are cut to what the toolkit can hold.
inline int ToCoordinate(std::int64_t value) {
    return static_cast<int>(std::clamp(value, -LargestSide, LargestSide));
}

inline int ToSide(std::int64_t value) {
    return static_cast<int>(std::clamp<std::int64_t>(value, 0, LargestSide));
}

}  // namespace rotavel
