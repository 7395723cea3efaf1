#include "app/chart_plot.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/chart_top_speed.h"
#include "app/main_window.h"
#include "draw/colour.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int64_t Margin = 40;  // of the axes' origin to the image's edges
constexpr std::int64_t Step = 20;    // of ticks and labels
constexpr std::int64_t RpmPerStep = 250;
constexpr std::int64_t SpeedPerStep = 10;
constexpr std::int64_t GridStep = 10;
// The grid's upright lines end here however high the chart is.
constexpr std::int64_t GridBottom = 580;

constexpr double LineWidth = 1.0;
constexpr double DotDistance = 10.0;
constexpr double LabelSize = 10.0;
constexpr double LegendSize = 14.0;
constexpr std::int64_t LegendLeft = 70;

constexpr Colour White = ColourRGBA(255, 255, 255, 255);
constexpr Colour Black = ColourRGBA(0, 0, 0, 255);
constexpr std::array<Colour, GearCount> GearColours = {
    ColourRGBA(255, 0, 0, 255),   ColourRGBA(0, 255, 0, 255),   ColourRGBA(0, 0, 255, 255),
    ColourRGBA(255, 128, 0, 255), ColourRGBA(0, 255, 255, 255), ColourRGBA(255, 0, 255, 255),
};

// Beyond this a size cannot be an image's, and sums with it cannot overflow.
constexpr std::int64_t OutOfReach = 1LL << 40;

void MoveTo(std::int64_t x, std::int64_t y) {
    PathMoveTo(static_cast<double>(x), static_cast<double>(y));
}

void LineTo(std::int64_t x, std::int64_t y) {
    PathLineTo(static_cast<double>(x), static_cast<double>(y));
}

void DrawBackground(const PlotSize& plot) {
    VectorSetColour(White);
    PathAddBox(0, 0, static_cast<double>(plot.Width + PlotSize::ImageMarginX),
               static_cast<double>(plot.Height + PlotSize::ImageMarginY));
    PathFill();
}

void DrawRpmAxis(const PlotSize& plot) {
    const std::int64_t y = plot.Height + Margin;
    MoveTo(20, y);
    LineTo(plot.Width + 60, y);
    PathStroke(LineWidth);
    std::int64_t label = RpmPerStep;
    for (std::int64_t x = Margin + Step; x <= plot.Width + Margin; x += Step) {
        // The label reads upwards, from its foot at this point.
        const auto footX = static_cast<double>(x - 5);
        const auto footY = static_cast<double>(plot.Height + 85);
        VectorRotate(footX, footY, -90);
        PathMoveTo(footX, footY);
        VectorDrawText(IntegerToText(label));
        label += RpmPerStep;
        VectorRotate(footX, footY, 90);
        MoveTo(x, y - 10);
        LineTo(x, y + 10);
    }
    PathStroke(LineWidth);
}

void DrawSpeedAxis(const PlotSize& plot, std::int64_t topSpeed) {
    MoveTo(Margin, 20);
    LineTo(Margin, plot.Height + 60);
    PathStroke(LineWidth);
    std::int64_t label = topSpeed;
    for (std::int64_t y = Margin; y <= plot.Height + Margin; y += Step) {
        MoveTo(5, y - 5);
        VectorDrawText(IntegerToText(label));
        label -= SpeedPerStep;
        MoveTo(Margin - 10, y);
        LineTo(Margin + 10, y);
    }
    PathStroke(LineWidth);
}

void DrawGrid(const PlotSize& plot) {
    for (std::int64_t y = Margin; y <= plot.Height + Margin; y += GridStep) {
        MoveTo(20, y);
        LineTo(plot.Width + Margin, y);
    }
    for (std::int64_t x = Margin + Step; x <= plot.Width + Margin; x += Step) {
        MoveTo(x, Margin);
        LineTo(x, GridBottom);
    }
    PathStrokeDotted(LineWidth, DotDistance, StrokeRoundEnd);
}

void DrawGear(const GearInputs& inputs, std::size_t gear, const PlotSize& plot, std::int64_t maxRpm,
              SpeedUnit unit) {
    const auto topSpeed = static_cast<double>(GearTopSpeed(inputs, gear, maxRpm, unit));
    const auto row = static_cast<std::int64_t>(gear);
    VectorSetColour(GearColours[gear]);
    MoveTo(LegendLeft, Margin + Step * row);
    VectorDrawText(IntegerToText(row + 1) + u" gear");
    MoveTo(Margin, plot.Height + Margin);
    PathLineTo(Margin + static_cast<double>(maxRpm) * 2 / 25,
               static_cast<double>(plot.Height) - 2 * topSpeed + Margin);
    PathStroke(LineWidth);
}

}  // namespace

PlotSize PlotSizeFor(std::int64_t maxRpm, std::int64_t topSpeed) {
    const auto stepsOf = [](std::int64_t value, std::int64_t perStep) {
        return std::clamp(value, -OutOfReach, OutOfReach) / perStep * Step;
    };
    return {stepsOf(maxRpm, RpmPerStep), stepsOf(topSpeed, SpeedPerStep)};
}

PlotPoint PlotPointAt(std::int64_t x, std::int64_t y, std::int64_t topSpeed) {
    const std::int64_t height = PlotSizeFor(0, topSpeed).Height;
    return {(x - Margin) * RpmPerStep / Step, (height - y + Margin) / 2};
}

void DrawPlot(const GearInputs& inputs, std::int64_t maxRpm, std::int64_t topSpeed,
              SpeedUnit unit) {
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    VectorSetFont(FontHandle(ProgramFont), LabelSize);
    DrawBackground(plot);
    VectorSetColour(Black);
    DrawRpmAxis(plot);
    DrawSpeedAxis(plot, topSpeed);
    DrawGrid(plot);
    VectorSetFont(FontHandle(ProgramFont), LegendSize);
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        if (inputs.GearRatio[gear] != 0.0) {
            DrawGear(inputs, gear, plot, maxRpm, unit);
        }
    }
}

}  // namespace rotavel
