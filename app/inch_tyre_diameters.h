#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace rotavel {

// The outer diameter in millimetres of an inch tyre size written as width, "-", rim diameter,
// such as "3.25-18" (639 mm). The text must match to the character; a size that is not made gives
// nothing.
std::optional<std::int64_t> FindInchTyreDiameter(std::u16string_view size);

}  // namespace rotavel
