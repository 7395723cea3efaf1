#pragma once

#include <cstdint>

#include "app/chart_scale.h"

namespace rotavel {

// Draws the two axes with ticks and labels, and the dotted grid, with the colour and font of the
// current vector drawing.
void DrawChartGrid(const PlotSize& plot, std::int64_t topSpeed);

}  // namespace rotavel
