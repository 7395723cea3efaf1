#pragma once

#include <cstddef>
#include <cstdint>

#include "app/gear_calculation.h"

namespace rotavel {

// The speeds that the chart is laid out by: whole numbers in the unit. maxRpm is in turns a minute.

// Road speed of the gear (0 to 5) at maxRpm: where its line ends. Saturated where 64 bits do not
// hold it.
std::int64_t GearTopSpeed(const GearInputs& inputs, std::size_t gear, std::int64_t maxRpm,
                          SpeedUnit unit);

// The upper end of the speed axis, the next multiple of 10 strictly above what the top gear reaches
// at maxRpm. One gear at least must have a ratio above 0. Where 64 bits do not hold the speed, it
// wraps to what no window can have.
//
// topGearIndex (-1 to 5, 0 before the first use) is the top gear, counted from 0; the caller keeps
// it from one use to the next. Once it is not 0 only sixth gear can displace it, even when its own
// gear has no ratio any more: where it so gives no finite speed, the fastest gear stands in for it.
// -1, found when a first use has nothing but first gear, stands for the final drive ratio in place
// of a gear's.
std::int64_t TopSpeedForChart(const GearInputs& inputs, std::int64_t maxRpm, SpeedUnit unit,
                              std::int64_t& topGearIndex);

}  // namespace rotavel
