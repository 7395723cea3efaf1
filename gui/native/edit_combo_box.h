#pragma once

#include <cstdint>

#include "gui/native/gadget_functions.h"

namespace rotavel {

// The editable form of a combo box; arguments and result as for ComboBoxGadgetCreate.
std::int64_t EditComboBoxGadgetCreate(std::int64_t number, const GadgetBounds& bounds,
                                      std::uint32_t flags);

}  // namespace rotavel
