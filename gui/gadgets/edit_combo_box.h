#pragma once

#include <cstdint>

#include "gui/gadgets/gadget_functions.h"

class QComboBox;
class QString;

namespace rotavel {

// What both forms have in common: a combo box keeps the size it was given, and a turn of the wheel
// over it neither chooses nor takes the keyboard.
void PrepareComboBox(QComboBox& box);

// A text as the flags of a combo box fold it.
QString FoldedItem(std::u16string_view text, std::uint32_t flags);

// The editable form of a combo box; arguments and result as for ComboBoxGadgetCreate.
std::int64_t EditComboBoxGadgetCreate(GadgetNumber number, const GadgetBounds& bounds,
                                      std::uint32_t flags);

}  // namespace rotavel
