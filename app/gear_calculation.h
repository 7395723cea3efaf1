#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rotavel {

inline constexpr std::size_t GearCount = 6;

// The working set of one calculation.
struct GearInputs {
    double Circumference = 0.0;  // rolling circumference of the rear tyre, centimetres
    double PrimaryRatio = 0.0;
    double FinalDriveRatio = 0.0;
    std::array<double, GearCount> GearRatio{};  // first gear to sixth
};

// Bit n - 1 is set when gear n has a ratio above 0. A mask of 0: the inputs are of no use.
using GearMask = std::uint64_t;

// The entries of the speed-unit box, by their place in it.
enum class SpeedUnit : std::int64_t { Kmh = 0, Mph = 1 };

// The texts of the entry fields, as they stand there.
struct GearTexts {
    std::u16string Width;    // millimetres (180), or inches when below 10 (3.25)
    std::u16string Percent;  // tyre height in percent of the width, not looked at for an inch size
    std::u16string Rim;      // rim diameter, inches
    std::u16string PrimaryRatio;
    std::u16string FinalDriveRatio;
    std::array<std::u16string, GearCount> GearRatio;
};

struct GearReading {
    GearMask Mask = 0;
    std::optional<std::u16string> InchWidth;  // an inch size: the width as it is to be shown
};

// Reads the texts into the inputs, which are not cleared first: an inch size that is not made
// leaves the circumference as it was, and a circumference, primary or final drive that is not
// above 0 leaves the gear ratios as they were and gives a mask of 0.
GearReading ReadGearTexts(const GearTexts& texts, GearInputs& inputs);

// Road speed in km/h in a gear of this ratio when the crankshaft makes so many turns an hour.
double RoadSpeed(const GearInputs& inputs, double gearRatio, double turnsPerHour);

// Road speed in the unit for every gear at rpm turns a minute; nothing for a gear without a ratio
// above 0.
std::array<std::optional<double>, GearCount> RoadSpeeds(const GearInputs& inputs, std::int64_t rpm,
                                                        SpeedUnit unit);

// Engine speed in turns a minute at which the gear (0 to 5) drives at the speed typed in the unit.
// Nothing when the mask lacks the gear or the speed is not above 0.
std::optional<double> EngineSpeed(const GearInputs& inputs, GearMask mask, std::size_t gear,
                                  std::u16string_view speed, SpeedUnit unit);

// Road speed in the unit of the gear (0 to 5) at maxRpm turns a minute, rounded to a whole number:
// where the gear's line ends in the chart.
std::int64_t GearTopSpeed(const GearInputs& inputs, std::size_t gear, std::int64_t maxRpm,
                          SpeedUnit unit);

// Road speed in the unit at the top of the chart, the next multiple of 10 strictly above what the
// top gear reaches at maxRpm turns a minute. Nothing when the mask is 0.
//
// topGearIndex (-1 to 5, 0 before the first use) is the gear that sets it, counted from 0; the
// caller keeps it from one use to the next. Once it is not 0 only sixth gear can displace it, even
// when its own gear has no ratio any more. -1, found when a first use has nothing but first gear,
// stands for the final drive ratio in place of a gear's.
std::optional<std::int64_t> TopSpeedForChart(const GearInputs& inputs, GearMask mask,
                                             std::int64_t maxRpm, SpeedUnit unit,
                                             std::int64_t& topGearIndex);

// The nearest whole number, of two equally near the even one. What does not fit in 64 bits becomes
// the nearest value that does; not-a-number becomes 0.
std::int64_t RoundToInteger(double value);

}  // namespace rotavel
