#pragma once

#include <cstdint>

namespace rotavel {

// A small window without a border beside another window, which shows the surroundings of a pixel of
// an image five times enlarged, with a cross-hair on the pixel.

// Opens it, hidden, at the right edge of a window.
void OpenMagnifier(std::int64_t besideWindow);

// Moves it to where that edge is now.
void MoveMagnifier(std::int64_t besideWindow);

// Shows the surroundings of a pixel of the image; those outside of the image are white. Without an
// image it shows what it showed before.
void ChartMagnify(std::int64_t image, std::int64_t x, std::int64_t y);

void HideMagnifier();
void CloseMagnifier();

}  // namespace rotavel
