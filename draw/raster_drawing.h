#pragma once

#include <cstdint>

#include "draw/colour.h"
#include "draw/drawing_target.h"
#include "gui/handles.h"

namespace rotavel {

// Drawing with whole pixels: origin at the top left, y downwards. All operations work on the
// current drawing, do nothing without one, and are clipped to the target. The targets are 24 bits
// deep: alpha is not looked at.

// The raster output of an image or a canvas gadget; one without a bitmap when there is none.
DrawingTarget ImageRasterTarget(std::int64_t image);
DrawingTarget CanvasRasterTarget(std::int64_t gadget);

// Starts a drawing; false when the target has no bitmap. RasterEnd ends it and shows the result.
bool RasterBegin(const DrawingTarget& target);
void RasterEnd();

// A line one pixel wide that includes both end points.
void RasterLine(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, Colour colour);

// Copies an image with its top left corner at (x, y).
void RasterDrawImage(NativeImage* image, std::int64_t x, std::int64_t y);

}  // namespace rotavel
