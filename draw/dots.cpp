#include "draw/dots.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>
#include <utility>

#include <QLineF>
#include <QPainter>

namespace rotavel {

namespace {

// A disc's place within a pixel is rounded to this fraction of it.
constexpr int Phases = 8;

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
void AddDots(std::vector<Dot>& dots, const QLineF& line, double lead, double distance,
             const QRectF& visible) {
    const double length = line.length();
    const auto [first, second] = VisiblePart(line, visible);
    if (length == 0 || first > second) {
        return;
    }
    // Steps of a unit vector keep dots of upright and level lines on whole coordinates.
    const QPointF unit(line.dx() / length, line.dy() / length);
    for (double dot = std::max(std::ceil((first * length - lead) / distance), 0.0);
         lead + dot * distance <= second * length; ++dot) {
        dots.push_back({line.p1() + unit * (lead + dot * distance), unit});
    }
}

// A disc as coverages of 0 to 255, its middle at a phase of the pixel in the bitmap's middle.
QImage MakeDisc(double diameter, int phaseX, int phaseY) {
    const int reach = static_cast<int>(std::ceil(diameter / 2)) + 1;
    QImage disc(2 * reach + 1, 2 * reach + 1, QImage::Format_Alpha8);
    disc.fill(0);
    QPainter painter(&disc);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(QPointF(reach + static_cast<double>(phaseX) / Phases,
                                reach + static_cast<double>(phaseY) / Phases),
                        diameter / 2, diameter / 2);
    return disc;
}

int Blend(int under, int over, int weight) {
    return under + (over - under) * weight / 255;
}

void Stamp(QImage& bitmap, const QImage& disc, QPoint corner, const QColor& colour) {
    const QRect covered = QRect(corner, disc.size()).intersected(QRect(QPoint(), bitmap.size()));
    for (int y = covered.top(); y <= covered.bottom(); ++y) {
        auto* const pixels = reinterpret_cast<QRgb*>(bitmap.scanLine(y));
        const uchar* const coverages = disc.constScanLine(y - corner.y()) - corner.x();
        for (int x = covered.left(); x <= covered.right(); ++x) {
            const int weight = coverages[x] * colour.alpha() / 255;
            const QRgb under = pixels[x];
            pixels[x] = qRgb(Blend(qRed(under), colour.red(), weight),
                             Blend(qGreen(under), colour.green(), weight),
                             Blend(qBlue(under), colour.blue(), weight));
        }
    }
}

}  // namespace

std::vector<Dot> DotsAlong(const QPainterPath& path, double distance, const QRectF& visible) {
    std::vector<Dot> dots;
    QPointF from;
    double lead = 0;  // from the line's start to the next dot
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            lead = 0;
        } else {
            const QLineF line(from, element);
            AddDots(dots, line, lead, distance, visible);
            const double rest = std::fmod(std::max(line.length() - lead, 0.0), distance);
            lead = line.length() < lead ? lead - line.length() : distance - rest;
        }
        from = element;
    }
    return dots;
}

void StampDots(QImage& bitmap, const std::vector<Dot>& dots, double diameter,
               const QColor& colour) {
    const double scale = bitmap.devicePixelRatio();
    const auto toPhase = [scale](double coordinate) {
        return static_cast<int>(std::lround(coordinate * scale * Phases));
    };
    std::vector<std::pair<int, int>> stamps;
    stamps.reserve(dots.size());
    for (const Dot& dot : dots) {
        stamps.emplace_back(toPhase(dot.Place.y()), toPhase(dot.Place.x()));
    }
    std::sort(stamps.begin(), stamps.end());
    stamps.erase(std::unique(stamps.begin(), stamps.end()), stamps.end());

    std::map<std::pair<int, int>, QImage> discs;
    for (const auto& [y, x] : stamps) {
        const int pixelX = x >= 0 ? x / Phases : (x + 1) / Phases - 1;
        const int pixelY = y >= 0 ? y / Phases : (y + 1) / Phases - 1;
        QImage& disc = discs[{x - pixelX * Phases, y - pixelY * Phases}];
        if (disc.isNull()) {
            disc = MakeDisc(diameter * scale, x - pixelX * Phases, y - pixelY * Phases);
        }
        Stamp(bitmap, disc, {pixelX - disc.width() / 2, pixelY - disc.height() / 2}, colour);
    }
}

QPainterPath OutlineOfDots(const std::vector<Dot>& dots, double size, bool round) {
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    const QRectF bounds(-size / 2, -size / 2, size, size);
    for (const auto& [place, direction] : dots) {
        if (round) {
            outline.addEllipse(bounds.translated(place));
        } else {
            outline.addPolygon(QTransform(direction.x(), direction.y(), -direction.y(),
                                          direction.x(), place.x(), place.y())
                                   .map(QPolygonF(bounds)));
            outline.closeSubpath();
        }
    }
    return outline;
}

}  // namespace rotavel
