#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>

namespace rotavel {

// A line of dots. The toolkit's own dashes drift along a line and cost a full stroke each; these
// stand where they belong, and what cannot be seen of them costs nothing.
struct DotStyle {
    double Size;      // a disc's diameter or a square's side, none for 0 or less
    double Distance;  // of their middles; one that is too small to see or no number is widened
    bool Round;       // else squares, turned along their line
};

// Paints dots in an opaque colour along a path of straight lines, the first at the start of each
// subpath. The painter has no transform of its own.
void PaintDots(QPainter& painter, const QPainterPath& path, const DotStyle& style,
               const QColor& colour);

}  // namespace rotavel
