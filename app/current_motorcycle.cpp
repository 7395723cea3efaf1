#include "app/current_motorcycle.h"

#include <cstdint>

#include "app/gear_calculation.h"
#include "app/main_window.h"
#include "gui/gadget.h"
#include "gui/status_bar.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

struct {
    std::u16string Manufacturer;
    std::u16string Model;
} current;

}  // namespace

const std::u16string& CurrentManufacturer() {
    return current.Manufacturer;
}

const std::u16string& CurrentModel() {
    return current.Model;
}

void SetCurrentMotorcycle(const std::u16string& manufacturer, const std::u16string& model) {
    current = {manufacturer, model};
}

void ShowCurrentMotorcycle() {
    StatusBarSetText(MainStatusBar, 0, current.Manufacturer + u" - " + current.Model,
                     StatusCentred);
}

void ForgetCurrentMotorcycle() {
    current = {};
    StatusBarSetText(MainStatusBar, 0, u"", StatusCentred);
}

void ChooseMotorcycle(const MotorcycleChoice& choice) {
    const MotorcycleRecord& motorcycle = *choice.Motorcycle;
    SetCurrentMotorcycle(choice.Maker->Name, motorcycle.Model);
    SetGadgetText(TyreWidthField, NumberToTextShortest(motorcycle.RearWheelWidth));
    SetGadgetText(PercentHeightField, IntegerToText(motorcycle.RearWheelPercentHeight));
    SetGadgetText(RimDiameterField, IntegerToText(motorcycle.RearWheelDiameter));
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        SetGadgetText(GadgetOfGear(GearRatioField, gear),
                      NumberToTextShortest(motorcycle.GearRatio[gear]));
    }
    SetGadgetText(PrimaryRatioField, NumberToTextShortest(motorcycle.PrimaryRatio));
    SetGadgetText(FinalRatioField, NumberToTextShortest(motorcycle.FinalDriveRatio));
    SetGadgetText(MaxRpmField, IntegerToText(motorcycle.MaxRPM));
    SetGadgetText(RpmField, IntegerToText(motorcycle.MaxRPM));
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        SetGadgetText(GadgetOfGear(GearSpeedField, gear), NoSpeedText);
    }
    ShowCurrentMotorcycle();
}

}  // namespace rotavel
