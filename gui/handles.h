#pragma once

namespace rotavel {

// Opaque handles of the toolkit's own things. They are made and owned by the floor that hands them
// out, are valid until the object they belong to is freed, and are only ever passed on.
struct NativeWindow;
struct NativeView;
struct NativeFont;
struct NativeImage;

}  // namespace rotavel
