#pragma once

#include <cstdint>

namespace rotavel {

// How a rewritten settings file looks; any combination, other bits are ignored.
inline constexpr std::uint32_t CompactSeparator = 1;  // "Key=Value" instead of "Key = Value"
inline constexpr std::uint32_t GroupSpacing = 2;  // an empty line before each group but the first

}  // namespace rotavel
