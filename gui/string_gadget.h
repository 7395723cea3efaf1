#pragma once

#include <cstdint>
#include <string_view>

#include "gui/numbers.h"

namespace rotavel {

// A one-line field. Each edit of the user's posts one GadgetActivity with type Change; becoming and
// ceasing to be the gadget that keys go to posts Focus and LostFocus (not a password field's, nor
// when only the window lost the keyboard). A text that the program sets posts nothing and is bound
// by neither maximum length nor the digits-only rule. Undo goes back to what was shown before an
// edit, but not beyond the program's text or to one that the user could not type.

inline constexpr std::uint32_t StringPassword = 1;
inline constexpr std::uint32_t StringReadOnly = 2;   // still selectable
inline constexpr std::uint32_t StringUpperCase = 4;  // wins over lower case while typing
inline constexpr std::uint32_t StringLowerCase = 8;  // wins over upper case when the program sets
inline constexpr std::uint32_t StringNumeric = 16;   // 0 to 9 only; not folded while typing
inline constexpr std::uint32_t StringBorderless = 32;

// Attribute: how many UTF-16 units the user may type, 2147483647 until set.
inline constexpr std::int64_t StringMaximumLength = 1;

std::int64_t StringGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height,
                                std::u16string_view text = {}, std::uint32_t flags = 0);

}  // namespace rotavel
