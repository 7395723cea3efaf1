#include "draw/dots.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <numbers>
#include <utility>
#include <vector>

#include <QLineF>

namespace rotavel {

namespace {

// What is less than this, in pixels of the bitmap, antialiasing does not show.
constexpr double Precision = 1.0 / 16;

constexpr double LongestPiece = 64;

constexpr double HalfTurn = std::numbers::pi;

// The visible dots of one line.
struct DotRow {
    QPointF First;
    QPointF Direction;  // of length 1
    double Distance;    // of their middles
    double Steps;       // from the first to the last, a whole number
};

// A place and the direction of the shape on it.
struct Dot {
    double X;
    double Y;
    double DirectionX;
    double DirectionY;

    auto operator<=>(const Dot&) const = default;
};

// The part of a line, as fractions of its length, that lies inside a rectangle; first above second
// when none does.
std::pair<double, double> VisiblePart(const QLineF& line, const QRectF& visible) {
    double first = 0;
    double second = 1;
    const auto clip = [&](double start, double delta, double low, double high) {
        if (delta == 0) {
            if (start < low || start > high) {
                first = 2;
            }
            return;
        }
        const double atLow = (low - start) / delta;
        const double atHigh = (high - start) / delta;
        first = std::max(first, std::min(atLow, atHigh));
        second = std::min(second, std::max(atLow, atHigh));
    };
    clip(line.x1(), line.dx(), visible.left(), visible.right());
    clip(line.y1(), line.dy(), visible.top(), visible.bottom());
    return {first, second};
}

// Adds the dots of one line, the first of them `lead` behind its start.
void AddRow(std::vector<DotRow>& rows, const QLineF& line, double lead, double distance,
            const QRectF& visible) {
    const double length = line.length();
    const auto [from, to] = VisiblePart(line, visible);
    if (length == 0) {
        return;
    }
    const double first = std::max(std::ceil((from * length - lead) / distance), 0.0);
    const double last = std::floor((to * length - lead) / distance);
    if (first <= last) {
        // Steps of a unit vector keep dots of upright and level lines on whole coordinates.
        const QPointF direction(line.dx() / length, line.dy() / length);
        rows.push_back(
            {line.p1() + direction * (lead + first * distance), direction, distance, last - first});
    }
}

// All dots, `distance` apart along each subpath, that reach into what is visible.
std::vector<DotRow> RowsAlong(const QPainterPath& path, double distance, const QRectF& visible) {
    std::vector<DotRow> rows;
    QPointF from;
    double lead = 0;  // from the line's start to the next dot
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            lead = 0;
        } else {
            const QLineF line(from, element);
            AddRow(rows, line, lead, distance, visible);
            const double rest = std::fmod(std::max(line.length() - lead, 0.0), distance);
            lead = line.length() < lead ? lead - line.length() : distance - rest;
        }
        from = element;
    }
    return rows;
}

// From a shape at the origin along the x axis to one at a place along a direction.
QTransform Placed(QPointF place, QPointF direction) {
    return {direction.x(), direction.y(), -direction.y(), direction.x(), place.x(), place.y()};
}

// The outline of discs of one row that overlap or touch, along the x axis with disc 0 at the
// origin: those from one to another, without what reaches into their neighbours.
QPolygonF JoinedDiscs(const DotRow& row, double diameter, double first, double last,
                      double precision) {
    const double widest = std::sqrt(8 * precision / diameter);  // angle between two corners
    const double meeting = std::acos(row.Distance / diameter);  // where a disc meets the next
    QPolygonF outline;
    const auto addArc = [&](double disc, double start, double end) {
        const double corners = std::max(std::ceil(std::abs(end - start) / widest), 1.0);
        for (double corner = 0; corner <= corners; ++corner) {
            const double angle = start + (end - start) * corner / corners;
            outline.append(QPointF(disc * row.Distance, 0) +
                           diameter / 2 * QPointF(std::cos(angle), std::sin(angle)));
        }
    };
    const auto behind = [&](double disc) { return disc == 0 ? HalfTurn : HalfTurn - meeting; };
    const auto ahead = [&](double disc) { return disc == row.Steps ? 0 : meeting; };
    for (double disc = first; disc <= last; ++disc) {
        addArc(disc, behind(disc), ahead(disc));
    }
    for (double disc = last; disc >= first; --disc) {
        addArc(disc, -ahead(disc), -behind(disc));
    }
    return outline;
}

// Adds a row of discs that overlap or touch. The toolkit looks for each pixel of an edge from the
// left, so they come in pieces that are not much longer than high, and from right to left.
void AddJoinedDiscs(QPainterPath& outline, const DotRow& row, double diameter, double precision) {
    const double most = std::ceil(std::max(diameter, LongestPiece) / row.Distance);
    const double pieces = std::ceil((row.Steps + 1) / most);
    for (double i = 0; i < pieces; ++i) {
        const double first = (row.Direction.x() > 0 ? pieces - 1 - i : i) * most;
        const double last = std::min(first + most - 1, row.Steps);
        outline.addPolygon(Placed(row.First, row.Direction)
                               .map(JoinedDiscs(row, diameter, first, last, precision)));
    }
}

QPolygonF JoinedSquares(double side, double length) {
    return QRectF(-side / 2, -side / 2, length + side, side);
}

// Paints dots that overlap as one shape for each row, which takes no longer than a line does.
void PaintJoined(QPainter& painter, const std::vector<DotRow>& rows, const DotStyle& style,
                 double precision) {
    // Discs this far apart look like a line: the notches between them are no deeper.
    const double closest = std::min(std::sqrt(4 * style.Size * precision), style.Size);
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    for (DotRow row : rows) {
        const double length = row.Steps * row.Distance;
        if (style.Round) {
            row.Steps = std::min(row.Steps, std::ceil(length / closest));
            row.Distance = row.Steps == 0 ? style.Size : length / row.Steps;
            AddJoinedDiscs(outline, row, style.Size, precision);
        } else {
            outline.addPolygon(
                Placed(row.First, row.Direction).map(JoinedSquares(style.Size, length)));
        }
    }
    painter.drawPath(outline);
}

// A polygon of a disc's area. Its corners stand out by twice the precision at most, but they are
// pointed: no pixel is off by as much.
QPolygonF Disc(double diameter, double precision) {
    const double widest = std::sqrt(12 * precision / diameter);
    const double halfCorner = HalfTurn / 4 / std::ceil(HalfTurn / 4 / widest);
    const double radius =
        diameter / 2 * std::sqrt(halfCorner / (std::sin(halfCorner) * std::cos(halfCorner)));
    QPolygonF disc;
    for (double angle = halfCorner; angle < 2 * HalfTurn; angle += 2 * halfCorner) {
        disc.append(radius * QPointF(std::cos(angle), std::sin(angle)));
    }
    return disc;
}

QPolygonF Square(double side) {
    return QRectF(-side / 2, -side / 2, side, side);
}

// The direction of a square that looks the same, so that equal squares can be found.
QPointF InFirstQuarter(QPointF direction) {
    while (!(direction.x() > 0 && direction.y() >= 0)) {
        direction = {direction.y(), -direction.x()};
    }
    return direction;
}

// Paints dots one by one, which the toolkit does several times faster than all as one outline.
void PaintApart(QPainter& painter, const std::vector<DotRow>& rows, const DotStyle& style,
                double precision) {
    std::vector<Dot> dots;
    for (const auto& [first, direction, distance, steps] : rows) {
        const QPointF turn = style.Round ? QPointF(1, 0) : InFirstQuarter(direction);
        for (double i = 0; i <= steps; ++i) {
            const QPointF place = first + direction * (i * distance);
            dots.push_back({place.x(), place.y(), turn.x(), turn.y()});
        }
    }
    // Where lines cross, a dot painted twice would have darker edges than the others.
    std::sort(dots.begin(), dots.end());
    dots.erase(std::unique(dots.begin(), dots.end()), dots.end());
    const QPolygonF shape = style.Round ? Disc(style.Size, precision) : Square(style.Size);
    QPolygonF placed = shape;
    for (const Dot& dot : dots) {
        std::transform(shape.begin(), shape.end(), placed.begin(), [&dot](QPointF corner) {
            return QPointF(dot.X + corner.x() * dot.DirectionX - corner.y() * dot.DirectionY,
                           dot.Y + corner.x() * dot.DirectionY + corner.y() * dot.DirectionX);
        });
        painter.drawConvexPolygon(placed);
    }
}

}  // namespace

void PaintDots(QPainter& painter, const QPainterPath& path, const DotStyle& style,
               const QColor& colour) {
    if (!(style.Size > 0)) {
        return;
    }
    const QPaintDevice& device = *painter.device();
    const double scale = device.devicePixelRatio();
    const double reach = style.Size;
    const QRectF visible = QRectF(0, 0, device.width() / scale, device.height() / scale)
                               .adjusted(-reach, -reach, reach, reach);
    DotStyle seen = style;
    seen.Distance = style.Distance > Precision ? style.Distance : Precision;
    const std::vector<DotRow> rows = RowsAlong(path, seen.Distance, visible);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    if (seen.Distance <= seen.Size) {
        PaintJoined(painter, rows, seen, Precision / scale);
    } else {
        PaintApart(painter, rows, seen, Precision / scale);
    }
}

}  // namespace rotavel
