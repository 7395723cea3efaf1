#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "app/tyre_circumference.h"

namespace rotavel {

inline constexpr std::size_t GearCount = 6;
inline constexpr std::int64_t MinutesPerHour = 60;

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

// What a speed in km/h is multiplied with to be shown in the unit.
double UnitFactor(SpeedUnit unit);

// The texts of the entry fields, as they stand there.
struct GearTexts {
    TyreTexts Tyre;
    std::u16string PrimaryRatio;
    std::u16string FinalDriveRatio;
    std::array<std::u16string, GearCount> GearRatio;
};

struct GearReading {
    GearMask Mask = 0;
    std::optional<std::u16string> InchWidth;  // an inch width as it is to be shown
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
// Nothing when the gear's ratio or the speed is not above 0.
std::optional<double> EngineSpeed(const GearInputs& inputs, std::size_t gear,
                                  std::u16string_view speed, SpeedUnit unit);

}  // namespace rotavel
