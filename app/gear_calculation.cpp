#include "app/gear_calculation.h"

#include "text/number_text.h"
#include "text/text.h"

namespace rotavel {

namespace {

constexpr double CentimetresPerMetre = 100.0;
constexpr double MetresPerKilometre = 1000.0;

// Not each other's reciprocals, and neither stands in for the other: the first is this
// program's own for speeds shown, the second the international mile for speeds typed.
constexpr double MphPerKmh = 0.621375;
constexpr double KmhPerMph = 1.609344;

double TypedNumber(std::u16string_view text) {
    return TextToNumber(ReplaceCharacter(text, u',', u'.'));
}

}  // namespace

double UnitFactor(SpeedUnit unit) {
    return unit == SpeedUnit::Kmh ? 1.0 : MphPerKmh;
}

GearReading ReadGearTexts(const GearTexts& texts, GearInputs& inputs) {
    const TyreReading tyre = ReadTyre(texts.Tyre);
    GearReading reading{.Mask = 0, .InchWidth = tyre.InchWidth};
    inputs.Circumference = tyre.Circumference.value_or(inputs.Circumference);
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

std::optional<double> EngineSpeed(const GearInputs& inputs, std::size_t gear,
                                  std::u16string_view speed, SpeedUnit unit) {
    if (!(inputs.GearRatio[gear] > 0.0)) {
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

}  // namespace rotavel
