#pragma once

#include <cstdint>

#include <QImage>

namespace rotavel {

// How many pixels of its own a bitmap has for a size in the program's pixels.
QSize BitmapSize(std::int64_t width, std::int64_t height);

// A bitmap of this size in the program's pixels, 24 bits deep and as fine as the screen: at a
// screen scale of 2 it holds four of its own pixels for each. A null image when the size is
// not a possible one (see coordinates.h) or memory is short.
QImage MakeBitmap(std::int64_t width, std::int64_t height);

}  // namespace rotavel
