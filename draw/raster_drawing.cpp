#include "draw/raster_drawing.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include <QImage>

#include "draw/current_drawing.h"
#include "draw/image.h"
#include "gui/canvas_gadget.h"
#include "gui/toolkit/colour.h"
#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/handle.h"

namespace rotavel {

namespace {

// Ends of lines are cut to this distance, so that the products in OtherAt do not overflow.
constexpr std::int64_t Farthest = std::int64_t{1} << 29;

// A line as a walk along the axis on which it is longer; the other coordinate follows.
struct LineWalk {
    std::int64_t From;
    std::int64_t To;
    std::int64_t OtherFrom;
    std::int64_t OtherTo;

    // The other coordinate at a place of the walk, rounded to the nearest pixel.
    std::int64_t OtherAt(std::int64_t place) const {
        if (To == From) {
            return OtherFrom;
        }
        const std::int64_t length = To - From;
        const std::int64_t twice = 2 * (place - From) * (OtherTo - OtherFrom) + length;
        const std::int64_t quotient = twice / (2 * length);
        return OtherFrom + (twice % (2 * length) < 0 ? quotient - 1 : quotient);
    }
};

}  // namespace

DrawingTarget ImageRasterTarget(std::int64_t image) {
    return {ImageHandle(image), -1};
}

DrawingTarget CanvasRasterTarget(std::int64_t gadget) {
    return {CanvasBitmap(gadget), gadget};
}

bool RasterBegin(const DrawingTarget& target) {
    return BeginDrawing(target);
}

void RasterEnd() {
    EndDrawing();
}

void RasterLine(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, Colour colour) {
    Drawing* const drawing = CurrentDrawing();
    if (drawing == nullptr) {
        return;
    }
    for (std::int64_t* const end : {&x1, &y1, &x2, &y2}) {
        *end = std::clamp(*end, -Farthest, Farthest);
    }
    const bool flat = std::abs(x2 - x1) >= std::abs(y2 - y1);
    LineWalk walk = flat ? LineWalk{x1, x2, y1, y2} : LineWalk{y1, y2, x1, x2};
    if (walk.From > walk.To) {
        std::swap(walk.From, walk.To);
        std::swap(walk.OtherFrom, walk.OtherTo);
    }
    const QSizeF size = FromHandle(drawing->Target.Bitmap)->deviceIndependentSize();
    const auto edge = static_cast<std::int64_t>(flat ? size.width() : size.height());
    QColor opaque = ToQColor(colour);
    opaque.setAlpha(255);
    const std::int64_t end = std::min(walk.To, edge);
    for (std::int64_t place = std::max<std::int64_t>(walk.From, 0); place <= end; ++place) {
        const auto along = static_cast<int>(place);
        const auto across = static_cast<int>(walk.OtherAt(place));
        drawing->Painter.fillRect(flat ? along : across, flat ? across : along, 1, 1, opaque);
    }
}

void RasterDrawImage(NativeImage* image, std::int64_t x, std::int64_t y) {
    Drawing* const drawing = CurrentDrawing();
    if (drawing != nullptr && image != nullptr) {
        // So that an image can be drawn on itself: where the image is being drawn on, and only
        // there, a copied QImage has pixels of its own.
        const QImage source = *FromHandle(image);
        drawing->Painter.drawImage(ToCoordinate(x), ToCoordinate(y), source);
    }
}

}  // namespace rotavel
