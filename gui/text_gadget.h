#pragma once

#include <cstdint>
#include <string_view>

#include "gui/numbers.h"

namespace rotavel {

// A label: a text that cannot be edited or selected. Posts no events. Disabling it only greys it.

inline constexpr std::uint32_t TextRight = 1;  // wins over centred
inline constexpr std::uint32_t TextCentred = 2;
inline constexpr std::uint32_t TextBordered = 4;

std::int64_t TextGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                              std::int64_t width, std::int64_t height,
                              std::u16string_view text = {}, std::uint32_t flags = 0);

}  // namespace rotavel
