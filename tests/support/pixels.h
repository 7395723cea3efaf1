#pragma once

#include <QImage>
#include <QRect>

#include "draw/image.h"
#include "gui/numbers.h"
#include "gui/toolkit/handle.h"
#include "tests/support/gui_test.h"

namespace rotavel::tests {

inline constexpr QRgb Black = 0x000000;
inline constexpr QRgb White = 0xFFFFFF;

// A test that looks at images, in the program's pixels whatever the screen's scale.
class DrawTest : public GuiTest {
  protected:
    void TearDown() override {
        ImageFree(AnyNumber);
        GuiTest::TearDown();
    }
};

// The colour at the middle of a pixel: 0xRRGGBB.
inline QRgb PixelOf(const QImage& bitmap, int x, int y) {
    const double scale = bitmap.devicePixelRatio();
    return bitmap.pixel(static_cast<int>((x + 0.5) * scale), static_cast<int>((y + 0.5) * scale)) &
           0xFFFFFF;
}
inline QRgb PixelOf(std::int64_t image, int x, int y) {
    return PixelOf(*FromHandle(ImageHandle(image)), x, y);
}
inline QSize SizeOf(std::int64_t image) {
    return FromHandle(ImageHandle(image))->deviceIndependentSize().toSize();
}

// What is to be seen in an image that was white.
struct Ink {
    QRect Covered;  // the smallest rectangle around it
    int Pixels = 0;
    int Blacks = 0;  // of these
};
inline Ink InkIn(std::int64_t image) {
    Ink ink;
    const QSize size = SizeOf(image);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            if (const QRgb colour = PixelOf(image, x, y); colour != White) {
                ink.Covered |= QRect(x, y, 1, 1);
                ++ink.Pixels;
                ink.Blacks += colour == Black ? 1 : 0;
            }
        }
    }
    return ink;
}

}  // namespace rotavel::tests
