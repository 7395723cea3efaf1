#pragma once

#include <cstdint>

class QImage;

namespace rotavel {

// The bitmap of a canvas gadget, for drawing on; null when there is no such canvas or its size
// leaves nothing to draw on.
QImage* CanvasBitmap(std::int64_t gadget);

// Has `notify` called with each canvas bitmap that goes while it is being drawn on.
void NotifyOfLostCanvas(void (*notify)(const QImage* bitmap));

// Brings what was drawn on the bitmap to the screen.
void ShowCanvasBitmap(std::int64_t gadget);

}  // namespace rotavel
