#include "app/chart_plot.h"

#include <algorithm>
#include <array>
#include <string>

#include "app/main_window.h"
#include "draw/colour.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int64_t margin = 40;  // of the axes' origin to the image's edges
constexpr std::int64_t step = 20;    // of ticks and labels
constexpr std::int64_t rpmPerStep = 250;
constexpr std::int64_t speedPerStep = 10;
constexpr std::int64_t gridStep = 10;
// The grid's upright lines end here however high the chart is.
constexpr std::int64_t gridBottom = 580;

constexpr double lineWidth = 1.0;
constexpr double dotDistance = 10.0;
constexpr double labelSize = 10.0;
constexpr double legendSize = 14.0;
constexpr std::int64_t legendLeft = 70;

constexpr Colour white = ColourRGBA(255, 255, 255, 255);
constexpr Colour black = ColourRGBA(0, 0, 0, 255);
constexpr std::array<Colour, GearCount> GearColours = {
    ColourRGBA(255, 0, 0, 255),   ColourRGBA(0, 255, 0, 255),   ColourRGBA(0, 0, 255, 255),
    ColourRGBA(255, 128, 0, 255), ColourRGBA(0, 255, 255, 255), ColourRGBA(255, 0, 255, 255),
};

// Beyond this a size cannot be an image's, and sums with it cannot overflow.
constexpr std::int64_t outOfReach = 1LL << 40;

void MoveTo(std::int64_t x, std::int64_t y) {
    PathMoveTo(static_cast<double>(x), static_cast<double>(y));
}

void LineTo(std::int64_t x, std::int64_t y) {
    PathLineTo(static_cast<double>(x), static_cast<double>(y));
}

void DrawBackground(const PlotSize& plot) {
    VectorSetColour(white);
    PathAddBox(0, 0, static_cast<double>(plot.Width + PlotSize::ImageMarginX),
               static_cast<double>(plot.Height + PlotSize::ImageMarginY));
    PathFill();
}

void DrawRpmAxis(const PlotSize& plot) {
    const std::int64_t y = plot.Height + margin;
    MoveTo(20, y);
    LineTo(plot.Width + 60, y);
    PathStroke(lineWidth);
    std::int64_t label = rpmPerStep;
    for (std::int64_t x = margin + step; x <= plot.Width + margin; x += step) {
        // The label reads upwards, from its foot at this point.
        const auto footX = static_cast<double>(x - 5);
        const auto footY = static_cast<double>(plot.Height + 85);
        VectorRotate(footX, footY, -90);
        PathMoveTo(footX, footY);
        VectorDrawText(IntegerToText(label));
        label += rpmPerStep;
        VectorRotate(footX, footY, 90);
        MoveTo(x, y - 10);
        LineTo(x, y + 10);
    }
    PathStroke(lineWidth);
}

void DrawSpeedAxis(const PlotSize& plot, std::int64_t topSpeed) {
    MoveTo(margin, 20);
    LineTo(margin, plot.Height + 60);
    PathStroke(lineWidth);
    std::int64_t label = topSpeed;
    for (std::int64_t y = margin; y <= plot.Height + margin; y += step) {
        MoveTo(5, y - 5);
        VectorDrawText(IntegerToText(label));
        label -= speedPerStep;
        MoveTo(margin - 10, y);
        LineTo(margin + 10, y);
    }
    PathStroke(lineWidth);
}

void DrawGrid(const PlotSize& plot) {
    for (std::int64_t y = margin; y <= plot.Height + margin; y += gridStep) {
        MoveTo(20, y);
        LineTo(plot.Width + margin, y);
    }
    for (std::int64_t x = margin + step; x <= plot.Width + margin; x += step) {
        MoveTo(x, margin);
        LineTo(x, gridBottom);
    }
    PathStrokeDotted(lineWidth, dotDistance, StrokeRoundEnd);
}

void DrawGear(const GearInputs& inputs, std::size_t gear, const PlotSize& plot, std::int64_t maxRpm,
              SpeedUnit unit) {
    const auto topSpeed = static_cast<double>(GearTopSpeed(inputs, gear, maxRpm, unit));
    const auto row = static_cast<std::int64_t>(gear);
    VectorSetColour(GearColours[gear]);
    MoveTo(legendLeft, margin + step * row);
    VectorDrawText(IntegerToText(row + 1) + u" gear");
    MoveTo(margin, plot.Height + margin);
    PathLineTo(margin + static_cast<double>(maxRpm) * 2 / 25,
               static_cast<double>(plot.Height) - 2 * topSpeed + margin);
    PathStroke(lineWidth);
}

}  // namespace

PlotSize PlotSizeFor(std::int64_t maxRpm, std::int64_t topSpeed) {
    const auto stepsOf = [](std::int64_t value, std::int64_t perStep) {
        return std::clamp(value, -outOfReach, outOfReach) / perStep * step;
    };
    return {stepsOf(maxRpm, rpmPerStep), stepsOf(topSpeed, speedPerStep)};
}

PlotPoint PlotPointAt(std::int64_t x, std::int64_t y, std::int64_t topSpeed) {
    const std::int64_t height = PlotSizeFor(0, topSpeed).Height;
    return {(x - margin) * rpmPerStep / step, (height - y + margin) / 2};
}

void DrawPlot(const GearInputs& inputs, std::int64_t maxRpm, std::int64_t topSpeed,
              SpeedUnit unit) {
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    VectorSetFont(FontHandle(ProgramFont), labelSize);
    DrawBackground(plot);
    VectorSetColour(black);
    DrawRpmAxis(plot);
    DrawSpeedAxis(plot, topSpeed);
    DrawGrid(plot);
    VectorSetFont(FontHandle(ProgramFont), legendSize);
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        if (inputs.GearRatio[gear] != 0.0) {
            DrawGear(inputs, gear, plot, maxRpm, unit);
        }
    }
}

}  // namespace rotavel
