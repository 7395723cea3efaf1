#pragma once

#include <cstdint>

#include "gui/gadgets/gadget_creation.h"

namespace rotavel {

// The editable form of a combo box; the result is as for ComboBoxGadgetCreate.
std::int64_t EditComboBoxGadgetCreate(const NewGadget& gadget);

}  // namespace rotavel
