#pragma once

#include <cstdint>
#include <string_view>

#include "gui/numbers.h"

namespace rotavel {

// A push button; its text is its title. Pressing it, with the pointer or by space bar or Return,
// posts GadgetActivity of this type.
inline constexpr std::int64_t ButtonPressed = 0;

std::int64_t ButtonGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::u16string_view text,
                                std::uint32_t flags = 0);

}  // namespace rotavel
