#pragma once

#include <vector>

#include <QColor>
#include <QImage>
#include <QPainterPath>

namespace rotavel {

// Dots along a path. The toolkit's own dashes drift along a line and cost a full stroke each;
// these stand where they belong, and a chart's thousands of them take about a millisecond.

struct Dot {
    QPointF Place;
    QPointF Direction;  // of its line, of length 1
};

// The dots, `distance` apart from each subpath's start on, that can be seen inside `visible`.
// The path consists of straight lines; distance is above 0.
std::vector<Dot> DotsAlong(const QPainterPath& path, double distance, const QRectF& visible);

// Blends a disc of a diameter in the place of each dot into a 32-bit bitmap; places that coincide
// count once. Places and diameter are in the bitmap's device-independent pixels.
void StampDots(QImage& bitmap, const std::vector<Dot>& dots, double diameter, const QColor& colour);

// Discs, or squares turned along their lines, as a path.
QPainterPath OutlineOfDots(const std::vector<Dot>& dots, double size, bool round);

}  // namespace rotavel
