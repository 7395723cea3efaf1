#pragma once

#include <cstdint>

#include "gui/numbers.h"

namespace rotavel {

// A list of items of which one may be selected. The user's choice of an item, also of the one that
// is selected already, posts GadgetActivity with type Change. State is the index of the selected
// item, -1 for none; adding items selects none. Text is the selected item's; setting it selects the
// item with exactly that text, and changes nothing when there is none.
//
// The editable form adds a field. Typing posts Change too, and Focus and LostFocus come as from a
// string field. Text is the field's; setting it selects the item with exactly that text or, without
// one, deselects the row while the state stays. The state follows the last item that the list
// showed or the user chose. Drops, once enabled, come from the whole of it.

inline constexpr std::uint32_t ComboBoxEditable = 1;
inline constexpr std::uint32_t ComboBoxLowerCase = 2;  // item and set texts are folded; wins
inline constexpr std::uint32_t ComboBoxUpperCase = 4;
inline constexpr std::uint32_t ComboBoxImages =
    8;  // plain form: an item added without image gets a blank one

std::int64_t ComboBoxGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                  std::int64_t width, std::int64_t height, std::uint32_t flags = 0);

}  // namespace rotavel
