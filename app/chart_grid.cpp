#include "app/chart_grid.h"

#include "draw/vector_drawing.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr double DotDistance = 10.0;
constexpr std::int64_t GridStep = 10;
// The grid's upright lines end here however high the chart is.
constexpr std::int64_t GridBottom = 580;
constexpr std::int64_t AxisStart = 20;
constexpr std::int64_t AxisOverhang = 20;  // beyond the plot
constexpr std::int64_t HalfTick = 10;
// An rpm label reads upwards: it stands this far left of its tick and begins this far below
// y = plot height.
constexpr std::int64_t RpmLabelLeft = 5;
constexpr std::int64_t RpmLabelFoot = 85;
// A speed label stands this far from the image's left edge and above its tick.
constexpr std::int64_t SpeedLabelLeft = 5;
constexpr std::int64_t SpeedLabelRise = 5;

void MoveTo(std::int64_t x, std::int64_t y) {
    PathMoveTo(static_cast<double>(x), static_cast<double>(y));
}

void LineTo(std::int64_t x, std::int64_t y) {
    PathLineTo(static_cast<double>(x), static_cast<double>(y));
}

void DrawRpmLabel(std::int64_t rpm, std::int64_t x, const PlotSize& plot) {
    const auto footX = static_cast<double>(x - RpmLabelLeft);
    const auto footY = static_cast<double>(plot.Height + RpmLabelFoot);
    VectorRotate(footX, footY, -90);
    PathMoveTo(footX, footY);
    VectorDrawText(IntegerToText(rpm));
    VectorRotate(footX, footY, 90);
}

void DrawRpmAxis(const PlotSize& plot) {
    const std::int64_t y = plot.Height + ChartMargin;
    MoveTo(AxisStart, y);
    LineTo(plot.Width + ChartMargin + AxisOverhang, y);
    PathStroke(ChartLineWidth);
    std::int64_t label = RpmPerStep;
    for (std::int64_t x = ChartMargin + ChartStep; x <= plot.Width + ChartMargin; x += ChartStep) {
        DrawRpmLabel(label, x, plot);
        label += RpmPerStep;
        MoveTo(x, y - HalfTick);
        LineTo(x, y + HalfTick);
    }
    PathStroke(ChartLineWidth);
}

void DrawSpeedAxis(const PlotSize& plot, std::int64_t topSpeed) {
    MoveTo(ChartMargin, AxisStart);
    LineTo(ChartMargin, plot.Height + ChartMargin + AxisOverhang);
    PathStroke(ChartLineWidth);
    std::int64_t label = topSpeed;
    for (std::int64_t y = ChartMargin; y <= plot.Height + ChartMargin; y += ChartStep) {
        MoveTo(SpeedLabelLeft, y - SpeedLabelRise);
        VectorDrawText(IntegerToText(label));
        label -= SpeedPerStep;
        MoveTo(ChartMargin - HalfTick, y);
        LineTo(ChartMargin + HalfTick, y);
    }
    PathStroke(ChartLineWidth);
}

void DrawDottedGrid(const PlotSize& plot) {
    for (std::int64_t y = ChartMargin; y <= plot.Height + ChartMargin; y += GridStep) {
        MoveTo(AxisStart, y);
        LineTo(plot.Width + ChartMargin, y);
    }
    for (std::int64_t x = ChartMargin + ChartStep; x <= plot.Width + ChartMargin; x += ChartStep) {
        MoveTo(x, ChartMargin);
        LineTo(x, GridBottom);
    }
    PathStrokeDotted(ChartLineWidth, DotDistance, StrokeRoundEnd);
}

}  // namespace

void DrawChartGrid(const PlotSize& plot, std::int64_t topSpeed) {
    DrawRpmAxis(plot);
    DrawSpeedAxis(plot, topSpeed);
    DrawDottedGrid(plot);
}

}  // namespace rotavel
