#pragma once

#include <cstdint>
#include <string_view>

namespace rotavel {

// The chart window: road speed against engine speed for every gear, with a read-out of the point
// under the pointer and a magnifier beside the window. While it is open the main window is
// disabled.

// "Graphic": opens the chart for what the main window shows. Does nothing while a chart is open or
// when there is nothing to calculate with.
void ShowSpeedChart();

// Opens the chart up to maxRpm turns a minute and a top speed in the unit shown. Returns the number
// of the image that holds the plot; 0 when there is none, because the inputs are of no use, the
// window cannot be made (nothing is open then) or the image cannot (the window is open, empty).
std::int64_t OpenSpeedChart(std::u16string_view heading, std::int64_t maxRpm,
                            std::int64_t topSpeed);

// Reads out and magnifies the point under the pointer, where that lies in the plot.
void ChartMouseMove(std::int64_t image, std::int64_t maxRpm, std::int64_t topSpeed);

// Shows the surroundings of a pixel of the image in the magnifier, five times enlarged.
void ChartMagnify(std::int64_t image, std::int64_t x, std::int64_t y);

// Handles the current event, which is one of a window other than the main window.
void HandleChartEvent();

}  // namespace rotavel
