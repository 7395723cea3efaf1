#include "app/chart_plot.h"

#include <array>

#include "app/chart_grid.h"
#include "app/chart_scale.h"
#include "app/chart_top_speed.h"
#include "app/main_window.h"
#include "draw/colour.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr double LabelSize = 10.0;
constexpr double LegendSize = 14.0;
constexpr double LegendLeft = 70.0;

constexpr Colour White = ColourRGBA(255, 255, 255, 255);
constexpr Colour Black = ColourRGBA(0, 0, 0, 255);
constexpr std::array<Colour, GearCount> GearColours = {
    ColourRGBA(255, 0, 0, 255),   ColourRGBA(0, 255, 0, 255),   ColourRGBA(0, 0, 255, 255),
    ColourRGBA(255, 128, 0, 255), ColourRGBA(0, 255, 255, 255), ColourRGBA(255, 0, 255, 255),
};

void DrawBackground(const PlotSize& plot) {
    VectorSetColour(White);
    PathAddBox(0, 0, static_cast<double>(plot.ImageWidth()),
               static_cast<double>(plot.ImageHeight()));
    PathFill();
}

void DrawGear(const GearInputs& inputs, std::size_t gear, const PlotSize& plot, std::int64_t maxRpm,
              SpeedUnit unit) {
    const auto topSpeed = static_cast<double>(GearTopSpeed(inputs, gear, maxRpm, unit));
    const auto row = static_cast<std::int64_t>(gear);
    const auto originY = static_cast<double>(plot.Height + ChartMargin);
    VectorSetColour(GearColours[gear]);
    PathMoveTo(LegendLeft, static_cast<double>(ChartMargin + ChartStep * row));
    VectorDrawText(IntegerToText(row + 1) + u" gear");
    PathMoveTo(ChartMargin, originY);
    PathLineTo(ChartMargin + static_cast<double>(maxRpm) * ChartStep / RpmPerStep,
               originY - topSpeed * ChartStep / SpeedPerStep);
    PathStroke(ChartLineWidth);
}

}  // namespace

void DrawPlot(const GearInputs& inputs, std::int64_t maxRpm, std::int64_t topSpeed,
              SpeedUnit unit) {
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    VectorSetFont(FontHandle(ProgramFont), LabelSize);
    DrawBackground(plot);
    VectorSetColour(Black);
    DrawChartGrid(plot, topSpeed);
    VectorSetFont(FontHandle(ProgramFont), LegendSize);
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        if (inputs.GearRatio[gear] != 0.0) {
            DrawGear(inputs, gear, plot, maxRpm, unit);
        }
    }
}

}  // namespace rotavel
