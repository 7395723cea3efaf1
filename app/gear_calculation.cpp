#include "app/gear_calculation.h"

#include <cmath>
#include <limits>

#include "app/inch_tyres.h"
#include "text/number_text.h"
#include "text/text.h"

namespace rotavel {

namespace {

constexpr double Pi = 3.141592653589793;
constexpr double TwoPi = 6.283185307179586;
constexpr double CentimetresPerInch = 2.54;
constexpr double MillimetresPerCentimetre = 10.0;
constexpr std::int64_t MinutesPerHour = 60;
constexpr double CentimetresPerMetre = 100.0;
constexpr double MetresPerKilometre = 1000.0;

// Not each other's reciprocals, and neither stands in for the other: the first is the customary
// rounded factor for speeds shown, the second the international mile for speeds typed.
constexpr double MphPerKmh = 0.621375;
constexpr double KmhPerMph = 1.609344;

// From this width on a tyre size is metric.
constexpr std::int64_t SmallestMetricWidth = 10;

double TypedNumber(std::u16string_view text) {
    return TextToNumber(ReplaceCharacter(text, u',', u'.'));
}

// Four characters, as inch widths are marked: "3" and "3.5" become "3.00" and "3.50".
std::u16string InchWidthText(std::u16string width) {
    if (width.find(u'.') == std::u16string::npos) {
        width += u".00";
    }
    width.resize(4, u'0');
    return width;
}

double UnitFactor(SpeedUnit unit) {
    return unit == SpeedUnit::Kmh ? 1.0 : MphPerKmh;
}

// The chart forms its turns an hour in 64 bits, where they wrap.
double ChartTurnsPerHour(std::int64_t maxRpm) {
    const std::uint64_t turns =
        static_cast<std::uint64_t>(maxRpm) * static_cast<std::uint64_t>(MinutesPerHour);
    return static_cast<double>(static_cast<std::int64_t>(turns));
}

double RatioAt(const GearInputs& inputs, std::int64_t gearIndex) {
    return gearIndex < 0 ? inputs.FinalDriveRatio
                         : inputs.GearRatio[static_cast<std::size_t>(gearIndex)];
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

GearReading ReadGearTexts(const GearTexts& texts, GearInputs& inputs) {
    GearReading reading;
    const std::u16string width = ReplaceCharacter(texts.Width, u',', u'.');

    if (TextToInteger(width) < SmallestMetricWidth) {
        reading.InchWidth = InchWidthText(width);
        if (const auto diameter = FindInchTyreDiameter(*reading.InchWidth + u"-" + texts.Rim)) {
            inputs.Circumference = static_cast<double>(*diameter) * Pi / MillimetresPerCentimetre;
        }
    } else {
        // The rim's radius and the tyre's height, both in centimetres. Millimetres times percent
        // are thousandths of a centimetre.
        inputs.Circumference = ((TextToNumber(texts.Rim) * CentimetresPerInch / 2.0) +
                                (TextToNumber(width) * TypedNumber(texts.Percent) / 1000.0)) *
                               TwoPi;
    }

    inputs.PrimaryRatio = TypedNumber(texts.PrimaryRatio);
    inputs.FinalDriveRatio = TypedNumber(texts.FinalDriveRatio);
    if (!(inputs.Circumference > 0.0 && inputs.FinalDriveRatio > 0.0 &&
          inputs.PrimaryRatio > 0.0)) {
        return reading;
    }

    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        inputs.GearRatio[gear] = TypedNumber(texts.GearRatio[gear]);
        if (inputs.GearRatio[gear] > 0.0) {
            reading.Mask |= GearMask{1} << gear;
        }
    }
    return reading;
}

double RoadSpeed(const GearInputs& inputs, double gearRatio, double turnsPerHour) {
    return turnsPerHour * inputs.Circumference / (inputs.FinalDriveRatio * inputs.PrimaryRatio) /
           gearRatio / CentimetresPerMetre / MetresPerKilometre;
}

std::array<std::optional<double>, GearCount> RoadSpeeds(const GearInputs& inputs, std::int64_t rpm,
                                                        SpeedUnit unit) {
    const double turnsPerHour = static_cast<double>(rpm) * MinutesPerHour;
    std::array<std::optional<double>, GearCount> speeds;
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        if (inputs.GearRatio[gear] > 0.0) {
            speeds[gear] =
                RoadSpeed(inputs, inputs.GearRatio[gear], turnsPerHour) * UnitFactor(unit);
        }
    }
    return speeds;
}

std::optional<double> EngineSpeed(const GearInputs& inputs, GearMask mask, std::size_t gear,
                                  std::u16string_view speed, SpeedUnit unit) {
    if (gear >= GearCount || (mask >> gear & 1) == 0) {
        return std::nullopt;
    }
    double kmh = TypedNumber(speed);
    if (!(kmh > 0.0)) {
        return std::nullopt;
    }
    if (unit == SpeedUnit::Mph) {
        kmh *= KmhPerMph;
    }
    const double kmhAtOneRpm = RoadSpeed(inputs, inputs.GearRatio[gear], MinutesPerHour);
    return kmh / kmhAtOneRpm;
}

std::int64_t GearTopSpeed(const GearInputs& inputs, std::size_t gear, std::int64_t maxRpm,
                          SpeedUnit unit) {
    return RoundToInteger(RoadSpeed(inputs, inputs.GearRatio[gear], ChartTurnsPerHour(maxRpm)) *
                          UnitFactor(unit));
}

std::optional<std::int64_t> TopSpeedForChart(const GearInputs& inputs, GearMask mask,
                                             std::int64_t maxRpm, SpeedUnit unit,
                                             std::int64_t& topGearIndex) {
    if (mask == 0) {
        return std::nullopt;
    }
    FindTopGear(inputs, topGearIndex);

    std::int64_t top =
        RoundToInteger(RoadSpeed(inputs, RatioAt(inputs, topGearIndex), ChartTurnsPerHour(maxRpm)));
    if (unit == SpeedUnit::Mph) {
        top = RoundToInteger(static_cast<double>(top) * MphPerKmh);
    }
    constexpr std::int64_t step = 10;
    const auto above = static_cast<std::int64_t>(static_cast<std::uint64_t>(top) + step);
    return above / step * step;
}

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

}  // namespace rotavel
