#pragma once

#include <cstdint>

#include "app/gear_calculation.h"

namespace rotavel {

// The chart window: road speed against engine speed for every gear, with a read-out of the point
// under the pointer and a magnifier beside the window. While it is open the main window is
// disabled.

// What the charts of one run of the program keep.
struct SpeedChart {
    // What one chart leaves behind, the next one finds.
    GearInputs Inputs;
    std::int64_t TopGearIndex = 0;

    // Of the open chart: the number of the image that holds the plot (0: there is none), and where
    // the axes end, in turns a minute and in the unit shown.
    std::int64_t ChartImage = 0;
    std::int64_t ChartMaxRpm = 0;
    std::int64_t ChartTopSpeed = 0;
};

// "Graphic": opens the chart for what the main window shows. Does nothing while a chart is open;
// opens none when there is nothing to calculate with.
void ShowSpeedChart(SpeedChart& chart);

// Handles the current event, which is one of a window other than the main window.
void HandleChartEvent(SpeedChart& chart);

}  // namespace rotavel
