#include "app/gear_commands.h"

#include <optional>
#include <string>

#include "app/inch_width_rule.h"
#include "app/main_window.h"
#include "gui/gadget.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

GearTexts TextsOnShow() {
    GearTexts texts{.Tyre = {.Width = GetGadgetText(TyreWidthField),
                             .Percent = GetGadgetText(PercentHeightField),
                             .Rim = GetGadgetText(RimDiameterField)},
                    .PrimaryRatio = GetGadgetText(PrimaryRatioField),
                    .FinalDriveRatio = GetGadgetText(FinalRatioField),
                    .GearRatio = {}};
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        texts.GearRatio[gear] = GetGadgetText(GadgetOfGear(GearRatioField, gear));
    }
    return texts;
}

}  // namespace

SpeedUnit UnitOnShow() {
    return static_cast<SpeedUnit>(GetGadgetState(SpeedUnitBox));
}

GearMask ReadGearInputs(GearInputs& target) {
    const GearTexts texts = TextsOnShow();
    const GearReading reading = ReadGearTexts(texts, target);
    if (reading.InchWidth && !texts.Tyre.Width.empty()) {
        ShowInchWidth(*reading.InchWidth);
    }
    return reading.Mask;
}

void CalcSpeeds() {
    GearInputs inputs;
    if (ReadGearInputs(inputs) == 0) {
        return;
    }
    const auto speeds = RoadSpeeds(inputs, TextToInteger(GetGadgetText(RpmField)), UnitOnShow());
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        SetGadgetText(GadgetOfGear(GearSpeedField, gear),
                      speeds[gear] ? NumberToText(*speeds[gear], 0) : NoSpeedText);
    }
}

void CalcRpmForGear(std::size_t gear) {
    GearInputs inputs;
    ReadGearInputs(inputs);  // no ratio is above 0 where there is nothing to calculate with
    const std::optional<double> rpm =
        EngineSpeed(inputs, gear, GetGadgetText(GadgetOfGear(GearSpeedField, gear)), UnitOnShow());
    if (!rpm) {
        return;
    }
    for (std::size_t other = 0; other < GearCount; ++other) {
        if (other != gear) {
            SetGadgetText(GadgetOfGear(GearSpeedField, other), NoSpeedText);
        }
    }
    SetGadgetText(RpmField, NumberToText(*rpm, 0));
}

}  // namespace rotavel
