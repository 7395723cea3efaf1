#pragma once

#include <cstdint>

#include "runtime/numbers.h"

namespace rotavel {

// The numbers by which a program knows its windows and gadgets: 0 and up, chosen by the program, or
// an automatic one where AnyNumber (-1) is given at creation. At destruction AnyNumber stands for
// all of them. An automatic number is larger than any a program would choose.
using WindowNumber = std::int64_t;
using GadgetNumber = std::int64_t;

// "Keep the current value" where a position or size is changed, "choose automatically" where one is
// given: an x or y that centres a window, a status bar field that takes the width left over.
inline constexpr std::int64_t IgnoreValue = -65535;

}  // namespace rotavel
