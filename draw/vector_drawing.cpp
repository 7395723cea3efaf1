#include "draw/vector_drawing.h"

#include <algorithm>
#include <cmath>

#include <QFontMetricsF>
#include <QImage>
#include <QLineF>
#include <QPainterPathStroker>

#include "draw/current_drawing.h"
#include "draw/dots.h"
#include "draw/image.h"
#include "gui/toolkit/colour.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/text.h"

namespace rotavel {

namespace {

constexpr double LargestCoordinate = 1e6;
constexpr double PointsPerInch = 72;

// How many times as long as the line is wide the point of a corner may be; longer ones are cut off.
constexpr double MiterLimit = 10;

// In pixels, less than antialiasing shows. A line of one pixel or less gets a hairline from the
// toolkit, pale and low where it slants, and one of no length is dropped though it has ends: both
// are made this much larger.
constexpr double Hair = 1e-4;

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

// Strokes of an odd width go through the middle of the pixels of whole coordinates and those of an
// even width between them, so that both cover whole pixels.
QPainterPath SharpFor(double width, const QPainterPath& path) {
    const double shift = std::lround(std::max(width, 1.0)) % 2 == 0 ? 0 : 0.5;
    return path.translated(shift, shift);
}

QPen PenFor(const QColor& colour, double width, std::uint32_t flags) {
    QPen pen(colour, width + Hair);
    pen.setCapStyle(CapFor(width, flags));
    pen.setJoinStyle((flags & StrokeRoundJoin) != 0   ? Qt::RoundJoin
                     : (flags & StrokeBevelJoin) != 0 ? Qt::BevelJoin
                                                      : Qt::SvgMiterJoin);
    pen.setMiterLimit(MiterLimit);
    return pen;
}

void Stroke(QPainter& painter, const QPainterPath& path, const QPen& pen) {
    if (pen.widthF() * painter.device()->devicePixelRatio() > 1) {
        painter.strokePath(path, pen);
    } else {
        painter.fillPath(QPainterPathStroker(pen).createStroke(path), pen.color());
    }
}

// An empty image for what is to be laid over another.
QImage LayerOver(const QImage& image) {
    QImage layer(image.size(), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(image.devicePixelRatio());
    layer.fill(Qt::transparent);
    return layer;
}

// Has the current drawing painted on, if there is one, and begins a new path unless the flags keep
// the present one. Painting gets an opaque colour and may paint a place twice.
template <typename Painting>
void Paint(std::uint32_t flags, Painting paint) {
    Drawing* const drawing = CurrentDrawing();
    if (drawing == nullptr) {
        return;
    }
    QPainter& painter = drawing->Painter;
    QColor opaque = drawing->Colour;
    opaque.setAlpha(255);
    if (opaque == drawing->Colour) {
        paint(painter, drawing->Path, opaque);
    } else {
        QImage layer = LayerOver(*FromHandle(drawing->Target.Bitmap));
        QPainter onLayer(&layer);
        onLayer.setRenderHints(painter.renderHints());
        paint(onLayer, drawing->Path, opaque);
        onLayer.end();
        painter.setOpacity(drawing->Colour.alphaF());
        painter.drawImage(0, 0, layer);
        painter.setOpacity(1);
    }
    if ((flags & StrokeKeepPath) == 0) {
        BeginNewPath(*drawing);
    }
}

// Adds a line to a path; one of no length counts where no other follows it.
void AddLine(QPainterPath& path, QPointF to) {
    const int last = path.elementCount() - 1;
    const bool isFirst = path.elementAt(last).isMoveTo();
    const QPointF start = path.elementAt(isFirst ? last : last - 1);
    const bool isAfterNone = !isFirst && path.elementAt(last - 1).isMoveTo() &&
                             QLineF(start, path.currentPosition()).length() <= Hair;
    if (to == start && (isFirst || isAfterNone)) {
        to.rx() += Hair;
    }
    if (isAfterNone) {
        path.setElementPositionAt(last, to.x(), to.y());
    } else {
        path.lineTo(to);
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
        AddLine(drawing->Path, Mapped(*drawing, x, y));
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
    Paint(flags, [=](QPainter& painter, const QPainterPath& path, const QColor& colour) {
        if (const double bounded = Bounded(width); bounded > 0) {
            Stroke(painter, SharpFor(bounded, path), PenFor(colour, bounded, flags));
        }
    });
}

void PathStrokeDotted(double width, double distance, std::uint32_t flags) {
    Paint(flags, [=](QPainter& painter, const QPainterPath& path, const QColor& colour) {
        const DotStyle style{Bounded(width), Bounded(distance), (flags & StrokeRoundEnd) != 0};
        PaintDots(painter, SharpFor(style.Size, path), style, colour);
    });
}

void PathFill() {
    Paint(0, [](QPainter& painter, const QPainterPath& path, const QColor& colour) {
        painter.fillPath(path, colour);
    });
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
    drawing->Painter.resetTransform();  // all else is mapped before
    PathMoveTo(corner.x() + metrics.horizontalAdvance(line), corner.y());
}

}  // namespace rotavel
