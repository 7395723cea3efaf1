#pragma once

#include <cstdint>

#include "app/gear_calculation.h"

namespace rotavel {

// Draws the chart with the current vector drawing: axes, grid, legend and one line a gear, up to
// maxRpm turns a minute and topSpeed in the unit.
void DrawPlot(const GearInputs& inputs, std::int64_t maxRpm, std::int64_t topSpeed, SpeedUnit unit);

}  // namespace rotavel
