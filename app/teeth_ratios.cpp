#include "app/teeth_ratios.h"

#include "app/main_window.h"
#include "gui/gadget.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int32_t RatioDecimals = 4;

struct WheelPair {
    std::int64_t Driving;
    std::int64_t Driven;
    std::int64_t Ratio;
};

constexpr WheelPair GearPair(std::size_t gear) {
    return {GadgetOfGear(GearDrivingField, gear), GadgetOfGear(GearDrivenField, gear),
            GadgetOfGear(GearRatioField, gear)};
}

constexpr WheelPair WheelPairs[] = {
    {PrimaryDrivingField, PrimaryDrivenField, PrimaryRatioField},
    GearPair(0),
    GearPair(1),
    GearPair(2),
    GearPair(3),
    GearPair(4),
    GearPair(5),
    {FinalDrivingField, FinalDrivenField, FinalRatioField},
};

double TeethIn(std::int64_t field) {
    return static_cast<double>(TextToInteger(GetGadgetText(field)));
}

}  // namespace

void UpdateRatioFromTeeth(std::int64_t gadget) {
    for (const WheelPair& pair : WheelPairs) {
        if (gadget == pair.Driving || gadget == pair.Driven) {
            const double ratio = TeethIn(pair.Driven) / TeethIn(pair.Driving);
            SetGadgetText(pair.Ratio, NumberToText(ratio, RatioDecimals));
        }
    }
}

}  // namespace rotavel
