#include "app/chart_top_speed.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "app/chart_scale.h"

namespace rotavel {

namespace {

// The nearest whole number, of two equally near the even one; not-a-number gives 0.
std::int64_t RoundToInteger(double value) {
    constexpr double firstTooLarge = 0x1p63;
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= firstTooLarge) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (value < -firstTooLarge) {
        return std::numeric_limits<std::int64_t>::min();
    }
    return static_cast<std::int64_t>(std::nearbyint(value));
}

// The turns an hour are formed in 64 bits, where they wrap.
double SpeedAt(const GearInputs& inputs, double gearRatio, std::int64_t maxRpm) {
    const std::uint64_t turnsPerHour =
        static_cast<std::uint64_t>(maxRpm) * static_cast<std::uint64_t>(MinutesPerHour);
    return RoadSpeed(inputs, gearRatio,
                     static_cast<double>(static_cast<std::int64_t>(turnsPerHour)));
}

double RatioAt(const GearInputs& inputs, std::int64_t gearIndex) {
    return gearIndex < 0 ? inputs.FinalDriveRatio
                         : inputs.GearRatio[static_cast<std::size_t>(gearIndex)];
}

// Of the gears with a ratio above 0.
double FastestSpeed(const GearInputs& inputs, std::int64_t maxRpm) {
    double fastest = -std::numeric_limits<double>::infinity();
    for (const double gearRatio : inputs.GearRatio) {
        if (gearRatio > 0.0) {
            fastest = std::max(fastest, SpeedAt(inputs, gearRatio, maxRpm));
        }
    }
    return fastest;
}

// A gear of any ratio but 0.0 counts, also a negative one. First gear leaves the index at 0, which
// reads as not found, so the scan goes on to -1; the final drive is never 0.0 there.
void FindTopGear(const GearInputs& inputs, std::int64_t& topGearIndex) {
    for (std::int64_t k = GearCount - 1; k >= -1; --k) {
        if (RatioAt(inputs, k) != 0.0) {
            topGearIndex = k;
        }
        if (topGearIndex != 0) {
            return;
        }
    }
}

}  // namespace

std::int64_t GearTopSpeed(const GearInputs& inputs, std::size_t gear, std::int64_t maxRpm,
                          SpeedUnit unit) {
    return RoundToInteger(SpeedAt(inputs, inputs.GearRatio[gear], maxRpm) * UnitFactor(unit));
}

std::int64_t TopSpeedForChart(const GearInputs& inputs, std::int64_t maxRpm, SpeedUnit unit,
                              std::int64_t& topGearIndex) {
    FindTopGear(inputs, topGearIndex);

    double kmh = SpeedAt(inputs, RatioAt(inputs, topGearIndex), maxRpm);
    if (!std::isfinite(kmh)) {
        kmh = FastestSpeed(inputs, maxRpm);
    }
    std::int64_t top = RoundToInteger(kmh);
    if (unit == SpeedUnit::Mph) {
        top = RoundToInteger(static_cast<double>(top) * UnitFactor(unit));
    }
    const auto above = static_cast<std::int64_t>(static_cast<std::uint64_t>(top) +
                                                 static_cast<std::uint64_t>(SpeedPerStep));
    return above / SpeedPerStep * SpeedPerStep;
}

}  // namespace rotavel
