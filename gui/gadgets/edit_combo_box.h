#pragma once

#include <cstdint>

#include "gui/gadgets/gadget_functions.h"

class QComboBox;

namespace rotavel {

// What both forms have in common: a combo box keeps the size it was given, and a turn of the wheel
// over it neither chooses nor takes the keyboard.
void PrepareComboBox(QComboBox& box);

// The editable form of a combo box; arguments and result as for ComboBoxGadgetCreate.
std::int64_t EditComboBoxGadgetCreate(std::int64_t number, const GadgetBounds& bounds,
                                      std::uint32_t flags);

}  // namespace rotavel
