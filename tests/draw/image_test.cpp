#include "draw/image.h"

#include <cstdlib>
#include <functional>
#include <gmock/gmock.h>
#include <vector>

#include <QApplication>

#include "draw/raster_drawing.h"
#include "draw/vector_drawing.h"
#include "gui/application.h"
#include "gui/canvas_gadget.h"
#include "gui/gadget.h"
#include "gui/toolkit/handle.h"
#include "gui/window.h"
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
    EXPECT_EQ(ImageGrab(99, AnyNumber, 0, 0, 4, 4), 0) << "of none";
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
    if (qApp->devicePixelRatio() == 1.5) {
        GTEST_SKIP() << "the program's pixels have one or two of the screen's";
    }
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

TEST_F(ImageTest, DrawsAnImageOntoItselfAsACopy) {
    for (const auto& [left, top] : {std::pair(2, 4), {-6, 2}, {2, -4}, {-2, -2}, {0, 0}}) {
        const std::int64_t image = Coloured(30);
        RasterDrawImage(ImageHandle(image), left, top);
        RasterLine(0, 0, 0, 0, ColourRGBA(9, 8, 7, 0));
        for (int pixel = 1; pixel < 30 * 30; ++pixel) {
            const QPoint place(pixel % 30, pixel / 30);
            const QPoint from = place - QPoint(left, top);
            const QPoint shown = QRect(0, 0, 30, 30).contains(from) ? from : place;
            ASSERT_EQ(PixelOf(image, place.x(), place.y()), qRgba(shown.x(), shown.y(), 0, 0))
                << left << ", " << top << " at " << pixel;
        }
        EXPECT_EQ(PixelOf(image, 0, 0), 0x090807U) << "it can be drawn on as before";
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
    for (const auto& take : std::vector<std::function<void()>>{
             [&] { ImageResize(image, 50, 50, ResizeSmooth); }, [&] { ImageFree(image); },
             [&] { ImageCreate(5, 40, 30); }, [] { ImageFree(AnyNumber); }}) {
        VectorBegin(ImageVectorTarget(ImageExists(image) ? image : ImageCreate(5, 40, 30)));
        take();
        RasterLine(0, 0, 9, 0, ColourRGBA(1, 2, 3, 255));
        PathStroke(9);
    }
    EXPECT_FALSE(ImageExists(other));
}

// A canvas may go, or change its size, while it is drawn on.
TEST_F(ImageTest, DrawsOnCanvases) {
    const auto open = [] {
        WindowCreate(0, 0, 0, 200, 200, u"", 0);
        CanvasGadgetCreate(1, 10, 10, 40, 30);
        ASSERT_TRUE(RasterBegin(CanvasRasterTarget(1)));
        RasterLine(0, 0, 9, 0, 0);
    };
    open();
    ResizeGadget(1, IgnoreValue, IgnoreValue, 80, 60);
    ForgetEvents();
    RasterLine(3, 5, 9, 5, 0);
    RasterEnd();
    ForgetEvents();
    ASSERT_TRUE(RasterBegin(CanvasRasterTarget(1)));
    RasterLine(79, 0, 79, 59, 0);
    RasterEnd();
    const QImage& bitmap = *FromHandle(CanvasBitmap(1));
    EXPECT_EQ(PixelOf(bitmap, 5, 5), Black);
    EXPECT_EQ(PixelOf(bitmap, 79, 59), Black);
    EXPECT_EQ(PixelOf(bitmap, 78, 59), White);
    for (const auto& close :
         std::vector<std::function<void()>>{[] { FreeGadget(1); }, [] { WindowDestroy(0); }}) {
        open();
        close();
        ForgetEvents();
        RasterLine(0, 0, 9, 0, 0);
        EXPECT_FALSE(RasterBegin(CanvasRasterTarget(1)));
    }
}

// A program may end in the middle of a drawing; images go after the toolkit.
TEST_F(ImageTest, EndsWithADrawingOpen) {
    const auto endDrawingOn = [](bool isCanvas) {
        WindowCreate(0, 0, 0, 200, 200, u"", 0);
        CanvasGadgetCreate(1, 10, 10, 40, 30);
        RasterBegin(isCanvas ? CanvasRasterTarget(1) : ImageRasterTarget(WhiteImage()));
        RasterLine(0, 0, 9, 0, 0);
        GuiStop();
        std::exit(0);
    };
    for (const bool isCanvas : {false, true}) {
        EXPECT_EXIT(endDrawingOn(isCanvas), testing::ExitedWithCode(0),
                    testing::Not(testing::HasSubstr("QPaint")));
    }
}

}  // namespace
}  // namespace rotavel
