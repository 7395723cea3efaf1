#include "draw/vector_drawing.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>

#include "draw/current_drawing.h"
#include "draw/dots.h"
#include "draw/image.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/image.h"
#include "gui/toolkit/text.h"

namespace rotavel {

namespace {

constexpr double LargestCoordinate = 1e6;
constexpr double PointsPerInch = 72;

// Dots closer than this many pixels are drawn as a line.
constexpr double SmallestDistance = 1.0 / 16;

// Larger dots are too few to be worth a stamp.
constexpr double LargestStamp = 32;

// How many times as long as the line is wide the point of a corner may be; longer ones are cut off.
constexpr double MiterLimit = 10;

// Strokes go through the middle of the pixels of whole coordinates, so that they are sharp.
constexpr double PixelMiddle = 0.5;

// The rasteriser takes no infinite or undefined coordinates and does badly with huge ones.
double Bounded(double coordinate) {
    return std::isnan(coordinate) ? 0
                                  : std::clamp(coordinate, -LargestCoordinate, LargestCoordinate);
}

QPointF Mapped(const Drawing& drawing, double x, double y) {
    return drawing.Transform.map(QPointF(Bounded(x), Bounded(y)));
}

void BeginNewPath(Drawing& drawing) {
    drawing.Path.clear();
    drawing.Path.moveTo(drawing.Transform.map(QPointF(0, 0)));
}

Qt::PenCapStyle CapFor(double width, std::uint32_t flags) {
    if ((flags & StrokeRoundEnd) != 0) {
        return Qt::RoundCap;
    }
    // A line no wider than a pixel covers the pixels of its end points whole.
    return (flags & StrokeSquareEnd) != 0 || width <= 1 ? Qt::SquareCap : Qt::FlatCap;
}

QPen PenFor(const Drawing& drawing, double width, std::uint32_t flags) {
    QPen pen(drawing.Colour, std::max(Bounded(width), 0.0));
    pen.setCapStyle(CapFor(width, flags));
    pen.setJoinStyle((flags & StrokeRoundJoin) != 0   ? Qt::RoundJoin
                     : (flags & StrokeBevelJoin) != 0 ? Qt::BevelJoin
                                                      : Qt::SvgMiterJoin);
    pen.setMiterLimit(MiterLimit);
    return pen;
}

void Stroke(Drawing& drawing, const QPen& pen, std::uint32_t flags) {
    if (pen.widthF() > 0) {  // the toolkit would draw a hairline for a width of 0
        drawing.Painter.setTransform(QTransform::fromTranslate(PixelMiddle, PixelMiddle));
        drawing.Painter.strokePath(drawing.Path, pen);
    }
    if ((flags & StrokeKeepPath) == 0) {
        BeginNewPath(drawing);
    }
}

}  // namespace

DrawingTarget ImageVectorTarget(std::int64_t image) {
    return {ImageHandle(image), -1};
}

bool VectorBegin(const DrawingTarget& target) {
    if (!BeginDrawing(target)) {
        return false;
    }
    CurrentDrawing()->Painter.setRenderHint(QPainter::Antialiasing);
    return true;
}

void VectorEnd() {
    EndDrawing();
}

void VectorSetColour(Colour colour) {
    if (Drawing* const drawing = CurrentDrawing()) {
        drawing->Colour = ToQColor(colour);
    }
}

void VectorSetFont(NativeFont* font, double size) {
    Drawing* const drawing = CurrentDrawing();
    if (drawing == nullptr || font == nullptr || !(size > 0)) {
        return;
    }
    QFont sized = *FromHandle(font);
    sized.setPointSizeF(Bounded(size) * PointsPerInch /
                        FromHandle(drawing->Target.Bitmap)->logicalDpiY());
    drawing->Font = QFont(sized, drawing->Painter.device());
}

void VectorRotate(double x, double y, double degrees) {
    if (Drawing* const drawing = CurrentDrawing()) {
        drawing->Transform.translate(Bounded(x), Bounded(y))
            .rotate(Bounded(degrees))
            .translate(-Bounded(x), -Bounded(y));
    }
}

void PathMoveTo(double x, double y) {
    if (Drawing* const drawing = CurrentDrawing()) {
        drawing->Path.moveTo(Mapped(*drawing, x, y));
    }
}

void PathLineTo(double x, double y) {
    if (Drawing* const drawing = CurrentDrawing()) {
        drawing->Path.lineTo(Mapped(*drawing, x, y));
    }
}

void PathAddBox(double x, double y, double width, double height) {
    PathMoveTo(x, y);
    PathLineTo(x + width, y);
    PathLineTo(x + width, y + height);
    PathLineTo(x, y + height);
    if (Drawing* const drawing = CurrentDrawing()) {
        drawing->Path.closeSubpath();
    }
}

void PathStroke(double width, std::uint32_t flags) {
    if (Drawing* const drawing = CurrentDrawing()) {
        Stroke(*drawing, PenFor(*drawing, width, flags), flags);
    }
}

void PathStrokeDotted(double width, double distance, std::uint32_t flags) {
    Drawing* const drawing = CurrentDrawing();
    if (drawing == nullptr) {
        return;
    }
    if (!(distance >= SmallestDistance)) {
        // Such dots cannot be told from a line.
        Stroke(*drawing, PenFor(*drawing, width, flags), flags);
        return;
    }
    QImage& bitmap = *FromHandle(drawing->Target.Bitmap);
    const bool round = (flags & StrokeRoundEnd) != 0;
    const double size = std::max(Bounded(width), 0.0);
    const QRectF visible =
        QRectF(QPointF(), bitmap.deviceIndependentSize()).adjusted(-size, -size, size, size);
    const std::vector<Dot> dots =
        DotsAlong(drawing->Path.translated(PixelMiddle, PixelMiddle), distance, visible);
    if (round && size <= LargestStamp) {
        StampDots(bitmap, dots, size, drawing->Colour);
    } else {
        drawing->Painter.setTransform(QTransform());
        drawing->Painter.fillPath(OutlineOfDots(dots, size, round), drawing->Colour);
    }
    if ((flags & StrokeKeepPath) == 0) {
        BeginNewPath(*drawing);
    }
}

void PathFill() {
    if (Drawing* const drawing = CurrentDrawing()) {
        drawing->Painter.setTransform(QTransform());
        drawing->Painter.fillPath(drawing->Path, drawing->Colour);
        BeginNewPath(*drawing);
    }
}

void VectorDrawText(std::u16string_view text) {
    Drawing* const drawing = CurrentDrawing();
    if (drawing == nullptr) {
        return;
    }
    const QString line = ToQString(text);
    const QFontMetricsF metrics(drawing->Font, drawing->Painter.device());
    const QPointF corner = drawing->Transform.inverted().map(drawing->Path.currentPosition());
    drawing->Painter.setTransform(drawing->Transform);
    drawing->Painter.setFont(drawing->Font);
    drawing->Painter.setPen(drawing->Colour);
    drawing->Painter.drawText(QPointF(corner.x(), corner.y() + metrics.ascent()), line);
    PathMoveTo(corner.x() + metrics.horizontalAdvance(line), corner.y());
}

}  // namespace rotavel
