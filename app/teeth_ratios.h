#pragma once

#include <cstdint>

namespace rotavel {

// When the gadget holds the teeth of one gear wheel of a pair: writes the pair's ratio, driven by
// driving teeth with 4 decimals, into its ratio field. A division by zero is shown as what it is.
void UpdateRatioFromTeeth(std::int64_t gadget);

}  // namespace rotavel
