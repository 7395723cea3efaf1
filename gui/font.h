#pragma once

#include <cstdint>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// Numbered fonts, shared by gadgets and drawings.

// Loads a font family at a size in points under `number` (0 and up, or AnyNumber; a font that holds
// the number is replaced). A family that is not installed is replaced by the system's nearest.
// Returns the automatic number, else non-zero; 0 when number or size (1 to 1000) cannot be used.
std::int64_t FontLoad(std::int64_t number, std::u16string_view name, double points);

// Frees a font; AnyNumber frees all. Gadgets keep the look they were given.
void FreeFont(std::int64_t number);

// The font's handle for drawings, or null.
NativeFont* FontHandle(std::int64_t number);

}  // namespace rotavel
