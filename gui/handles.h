#pragma once

#include <cstdint>

namespace rotavel {

// Opaque handles of the toolkit's own things. They are made and owned by the floor that hands them
// out, are valid until the object they belong to is freed, and are only ever passed on.
struct NativeWindow;
struct NativeView;
struct NativeFont;
struct NativeImage;

// "Keep the current value" where a position or size is changed, "choose automatically" where one is
// given: an x or y that centres a window, a status bar field that takes the width left over.
inline constexpr std::int64_t IgnoreValue = -65535;

}  // namespace rotavel
