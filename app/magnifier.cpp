#include "app/magnifier.h"

#include "draw/colour.h"
#include "draw/image.h"
#include "draw/raster_drawing.h"
#include "gui/gadget.h"
#include "gui/image_gadget.h"
#include "gui/numbers.h"
#include "gui/window.h"

namespace rotavel {

namespace {

constexpr std::int64_t MagnifierWindow = 2;
constexpr std::int64_t MagnifierImage = 64;

constexpr std::int64_t Enlargement = 5;
constexpr std::int64_t MagnifiedSide = 20;
constexpr std::int64_t MagnifierSide = MagnifiedSide * Enlargement;
constexpr Colour CrossHairColour = 0;

std::int64_t RightEdge(std::int64_t window) {
    return WindowGetX(window, OuterFrame) + WindowGetWidth(window, OuterFrame);
}

}  // namespace

void OpenMagnifier(std::int64_t besideWindow) {
    if (WindowCreate(MagnifierWindow, RightEdge(besideWindow), WindowGetY(besideWindow, OuterFrame),
                     MagnifierSide, MagnifierSide, u"", WindowHidden | WindowBorderless,
                     WindowNativeHandle(besideWindow)) != 0) {
        ImageGadgetCreate(MagnifierImage, 0, 0, MagnifierSide, MagnifierSide);
    }
}

void MoveMagnifier(std::int64_t besideWindow) {
    WindowSetBounds(MagnifierWindow, RightEdge(besideWindow), WindowGetY(besideWindow, OuterFrame),
                    IgnoreValue, IgnoreValue);
}

void ChartMagnify(std::int64_t image, std::int64_t x, std::int64_t y) {
    WindowShow(MagnifierWindow, Shown);
    constexpr std::int64_t middle = MagnifiedSide / 2;
    const std::int64_t grabbed =
        ImageGrab(image, AnyNumber, x - middle, y - middle, MagnifiedSide, MagnifiedSide);
    if (grabbed == 0) {
        return;
    }
    if (RasterBegin(ImageRasterTarget(grabbed))) {
        RasterLine(middle, 0, middle, MagnifiedSide, CrossHairColour);
        RasterLine(0, middle, MagnifiedSide, middle, CrossHairColour);
        RasterEnd();
    }
    ImageResize(grabbed, MagnifierSide, MagnifierSide, ResizeNearestPixel);
    SetGadgetImage(MagnifierImage, ImageHandle(grabbed));
    ImageFree(grabbed);
}

void HideMagnifier() {
    WindowShow(MagnifierWindow, Hidden);
}

void CloseMagnifier() {
    WindowDestroy(MagnifierWindow);
}

}  // namespace rotavel
