#pragma once

#include <cstdint>

namespace rotavel {

// Where the chart's values lie in its image, in pixels: 20 for each 250 rpm across and for each 10
// speed units up. The origin of the axes is at (40, height of the plot + 40).
inline constexpr std::int64_t ChartMargin = 40;  // left of the origin, above the plot
inline constexpr std::int64_t ChartStep = 20;    // of ticks and labels
inline constexpr std::int64_t RpmPerStep = 250;
inline constexpr std::int64_t SpeedPerStep = 10;
inline constexpr double ChartLineWidth = 1.0;

struct PlotSize {
    std::int64_t Width;
    std::int64_t Height;

    // The image has margins for axes and labels.
    std::int64_t ImageWidth() const { return Width + 80; }
    std::int64_t ImageHeight() const { return Height + 90; }
};

// The size of a plot up to maxRpm turns a minute and a speed. Values far out of reach give sizes
// that no image can have.
PlotSize PlotSizeFor(std::int64_t maxRpm, std::int64_t topSpeed);

// A point of the plot in the chart's own terms.
struct PlotPoint {
    std::int64_t Rpm;    // turns a minute, negative left of the speed axis
    std::int64_t Speed;  // in the unit shown, negative below the rpm axis
};

// What lies under a pixel of the image.
PlotPoint PlotPointAt(std::int64_t x, std::int64_t y, std::int64_t topSpeed);

}  // namespace rotavel
