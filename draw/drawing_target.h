#pragma once

#include <cstdint>

#include "gui/handles.h"

namespace rotavel {

// What a drawing works on: the bitmap of an image or of a canvas gadget. Without a bitmap no
// drawing can be started on it. One drawing is current at a time; starting one ends the one before.
struct DrawingTarget {
    NativeImage* Bitmap = nullptr;
    std::int64_t Canvas = -1;  // the canvas gadget that shows the result, -1 for none
};

}  // namespace rotavel
