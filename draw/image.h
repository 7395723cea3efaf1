#pragma once

#include <cstdint>

#include "gui/handles.h"

namespace rotavel {

// Numbered images, 24 bits deep. Sizes are in the program's pixels; at a higher screen scale an
// image holds more of its own. A number that is no live image makes an operation do nothing and
// return 0. Creating under a number in use frees the image that holds it.

// A new black image. Returns the automatic number for AnyNumber, else non-zero; 0 when a side is
// below 1 or above 32767, it has more than 64 Mi pixels or memory is short.
std::int64_t ImageCreate(std::int64_t number, std::int64_t width, std::int64_t height);

// A new image with a copy of a rectangle of another; what lies outside of that one is white.
std::int64_t ImageGrab(std::int64_t source, std::int64_t number, std::int64_t x, std::int64_t y,
                       std::int64_t width, std::int64_t height);

// Modes of ImageResize.
inline constexpr std::uint32_t ResizeSmooth = 0;
inline constexpr std::uint32_t ResizeNearestPixel = 1;

// Scales an image in place. False when the size is not possible; the image then stays as it was.
bool ImageResize(std::int64_t image, std::int64_t width, std::int64_t height, std::uint32_t mode);

void ImageFree(std::int64_t image);  // AnyNumber frees all
bool ImageExists(std::int64_t image);

// What gadgets take, valid until the image is freed; null when there is no such image.
NativeImage* ImageHandle(std::int64_t image);

}  // namespace rotavel
