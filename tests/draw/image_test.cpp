#include "draw/image.h"

#include <array>
#include <functional>
#include <tuple>

#include "draw/raster_drawing.h"
#include "draw/vector_drawing.h"
#include "gui/canvas_gadget.h"
#include "gui/gadget.h"
#include "gui/window.h"
#include "tests/support/pixels.h"

namespace rotavel {
namespace {

using namespace tests;

std::int64_t WhiteImage() {
    return ImageGrab(ImageCreate(AnyNumber, 1, 1), AnyNumber, 1, 1, 40, 30);
}

using ImageTest = DrawTest;

TEST_F(ImageTest, RasterLinesIncludeBothEndsAndAreClipped) {
    const std::tuple<std::array<std::int64_t, 4>, QRect, int> cases[] = {
        {{2, 3, 2, 3}, {2, 3, 1, 1}, 1},
        {{9, 2, 3, 5}, {3, 2, 7, 4}, 7},
        {{3, 5, 9, 2}, {3, 2, 7, 4}, 7},
        {{39, INT64_MAX, 39, INT64_MIN}, {39, 0, 1, 30}, 30},
        {{0, 0, 100'000, 50'000}, {0, 0, 40, 21}, 40},
        {{0, 30, 39, 30}, {}, 0},
    };
    for (const auto& [ends, covered, pixels] : cases) {
        const std::int64_t image = WhiteImage();
        const auto [x1, y1, x2, y2] = ends;
        RasterBegin(ImageRasterTarget(image));
        RasterLine(x1, y1, x2, y2, 0);  // opaque, even so
        EXPECT_EQ(InkIn(image).Covered, covered) << x1 << ", " << y1;
        EXPECT_EQ(InkIn(image).Pixels, pixels);
        EXPECT_EQ(InkIn(ImageGrab(image, AnyNumber, 2, 1, 40, 30)).Covered,
                  covered.translated(-2, -1) & QRect(0, 0, 40, 30));
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
    EXPECT_EQ(ImageCreate(AnyNumber, 32768, 1) + ImageCreate(AnyNumber, 1, 0), 0);
    const std::function<void()> takes[] = {
        [&] { ImageResize(image, 50, 50, ResizeSmooth); }, [&] { ImageFree(image); },
        [&] { ImageCreate(5, 40, 30); }, [] { ImageFree(AnyNumber); }};
    for (const auto& take : takes) {
        ImageCreate(5, 40, 30);
        EXPECT_TRUE(VectorBegin(ImageVectorTarget(ImageExists(image) ? image : 5)));
        take();
        RasterLine(0, 0, 9, 0, 0);
        PathStroke(9);
    }
    EXPECT_FALSE(ImageExists(other));
}

// A canvas may go while it is drawn on.
TEST_F(ImageTest, DrawsOnCanvases) {
    for (void (*const close)(std::int64_t) : {FreeGadget, WindowDestroy}) {
        WindowCreate(0, 0, 0, 200, 200, u"", 0);
        CanvasGadgetCreate(1, 10, 10, 40, 30);
        ASSERT_TRUE(RasterBegin(CanvasRasterTarget(1)));
        RasterLine(0, 0, 9, 0, 0);
        EXPECT_EQ(PixelOf(*FromHandle(CanvasBitmap(1)), 9, 0), Black);
        close(close == FreeGadget ? 1 : 0);
        ForgetEvents();
        RasterLine(0, 0, 9, 0, 0);
        EXPECT_FALSE(RasterBegin(CanvasRasterTarget(1)));
    }
}

}  // namespace
}  // namespace rotavel
