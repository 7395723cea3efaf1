#include "app/chart_scale.h"

#include <algorithm>

namespace rotavel {

namespace {

// Beyond this a size cannot be an image's, and sums with it cannot overflow.
constexpr std::int64_t OutOfReach = 1LL << 40;

std::int64_t PixelsFor(std::int64_t value, std::int64_t perStep) {
    return std::clamp(value, -OutOfReach, OutOfReach) / perStep * ChartStep;
}

}  // namespace

PlotSize PlotSizeFor(std::int64_t maxRpm, std::int64_t topSpeed) {
    return {PixelsFor(maxRpm, RpmPerStep), PixelsFor(topSpeed, SpeedPerStep)};
}

PlotPoint PlotPointAt(std::int64_t x, std::int64_t y, std::int64_t topSpeed) {
    const std::int64_t height = PlotSizeFor(0, topSpeed).Height;
    return {(x - ChartMargin) * RpmPerStep / ChartStep,
            (height - y + ChartMargin) * SpeedPerStep / ChartStep};
}

}  // namespace rotavel
