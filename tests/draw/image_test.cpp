#include "draw/image.h"

#include "draw/raster_drawing.h"
#include "draw/vector_drawing.h"
#include "tests/support/pixels.h"

namespace rotavel {
namespace {

using namespace tests;

// An image on which each pixel tells its place: 0xXXYY00.
std::int64_t Coloured(std::uint8_t side) {
    const std::int64_t image = ImageCreate(AnyNumber, side, side);
    RasterBegin(ImageRasterTarget(image));
    for (std::uint8_t y = 0; y < side; ++y) {
        for (std::uint8_t x = 0; x < side; ++x) {
            RasterLine(x, y, x, y, ColourRGBA(x, y, 0, 255));
        }
    }
    return image;
}

std::int64_t WhiteImage() {
    return ImageGrab(ImageCreate(AnyNumber, 1, 1), AnyNumber, 1, 1, 40, 30);
}

using ImageTest = DrawTest;

TEST_F(ImageTest, CanBeMadeUpToTheLimits) {
    const struct {
        std::int64_t Width, Height;
        bool Possible;
    } cases[] = {{32767, 1, true},  {1, 32767, true},     {0, 5, false},        {5, -1, false},
                 {32768, 1, false}, {32767, 2049, false}, {INT64_MAX, 2, false}};
    for (const auto& [width, height, possible] : cases) {
        const std::int64_t source = ImageCreate(AnyNumber, 4, 4);
        EXPECT_EQ(ImageCreate(AnyNumber, width, height) != 0, possible) << width;
        EXPECT_EQ(ImageGrab(source, AnyNumber, 0, 0, width, height) != 0, possible) << width;
        EXPECT_EQ(ImageResize(source, width, height, ResizeNearestPixel), possible) << width;
        EXPECT_EQ(SizeOf(source).width(), possible ? width : 4);
    }
}

TEST_F(ImageTest, GrabsWhatLiesInsideAndPadsWithWhite) {
    const std::int64_t source = Coloured(30);
    for (const auto& [left, top] : {std::pair(5, 9), {-10, -10}, {20, 25}, {100, 0}}) {
        const std::int64_t grabbed = ImageGrab(source, AnyNumber, left, top, 20, 20);
        for (int pixel = 0; pixel < 20 * 20; ++pixel) {
            const int x = left + pixel % 20;
            const int y = top + pixel / 20;
            const QRgb expected = QRect(0, 0, 30, 30).contains(x, y) ? qRgba(x, y, 0, 0) : White;
            ASSERT_EQ(PixelOf(grabbed, pixel % 20, pixel / 20), expected) << x << ", " << y;
        }
    }
    EXPECT_NE(ImageGrab(source, 7, INT64_MIN, INT64_MAX, 20, 20), 0);
    EXPECT_EQ(InkIn(7).Pixels, 0);
    EXPECT_NE(ImageGrab(7, 7, 1, 0, 2, 3), 0) << "an image may take its source's number";
    EXPECT_EQ(SizeOf(7), QSize(2, 3));
}

TEST_F(ImageTest, ResizesToTheNearestPixel) {
    const struct {
        int Side, Pixel, Shows;
    } cases[] = {{100, 4, 0},  {100, 5, 1}, {100, 50, 10}, {100, 54, 10}, {100, 99, 19},
                 {20, 10, 10}, {10, 0, 1},  {10, 9, 19},   {30, 29, 19}};
    for (const auto& each : cases) {
        const std::int64_t image = Coloured(20);
        ASSERT_TRUE(ImageResize(image, each.Side, each.Side, ResizeNearestPixel));
        EXPECT_EQ(PixelOf(image, each.Pixel, each.Pixel), qRgba(each.Shows, each.Shows, 0, 0))
            << each.Pixel << " of " << each.Side;
    }
}

TEST_F(ImageTest, RasterLinesIncludeBothEndsAndAreClipped) {
    const struct {
        std::int64_t X1, Y1, X2, Y2;
        QRect Covered;
        int Pixels;
    } cases[] = {
        {10, 0, 10, 20, {10, 0, 1, 21}, 21},
        {2, 3, 2, 3, {2, 3, 1, 1}, 1},
        {9, 2, 3, 5, {3, 2, 7, 4}, 7},
        {INT64_MIN, 4, INT64_MAX, 4, {0, 4, 40, 1}, 40},
        {39, INT64_MAX, 39, INT64_MIN, {39, 0, 1, 30}, 30},
        {-5, -5, 5, 5, {0, 0, 6, 6}, 6},
        {0, 30, 39, 30, {}, 0},
        {40, 0, 40, 29, {}, 0},
    };
    for (const auto& each : cases) {
        const std::int64_t image = WhiteImage();
        RasterBegin(ImageRasterTarget(image));
        RasterLine(each.X1, each.Y1, each.X2, each.Y2, 0);  // opaque, even so
        RasterLine(each.X2, each.Y2, each.X1, each.Y1, 0);
        EXPECT_EQ(InkIn(image).Covered, each.Covered) << each.X1 << ", " << each.Y1;
        EXPECT_EQ(InkIn(image).Pixels, each.Pixels) << "the way back takes the same pixels";
    }
}

TEST_F(ImageTest, OneDrawingIsCurrentAndGoesWithItsImage) {
    const std::int64_t image = WhiteImage();
    const std::int64_t other = WhiteImage();
    RasterBegin(ImageRasterTarget(image));
    EXPECT_TRUE(VectorBegin(ImageVectorTarget(other)));
    RasterLine(0, 0, 9, 0, 0);
    EXPECT_EQ(InkIn(image).Pixels, 0) << "its drawing had ended";
    EXPECT_EQ(InkIn(other).Pixels, 10);
    EXPECT_FALSE(RasterBegin(ImageRasterTarget(99)));
    VectorBegin(ImageVectorTarget(other));
    ImageFree(other);
    EXPECT_FALSE(ImageExists(other));
    RasterLine(0, 0, 9, 0, 0);
}

}  // namespace
}  // namespace rotavel
