#include "app/current_motorcycle.h"

#include <cstdint>

#include "app/gear_calculation.h"
#include "app/main_window.h"
#include "gui/gadget.h"
#include "gui/status_bar.h"
#include "text/number_text.h"

namespace rotavel {

std::u16string CurrentManufacturer;
std::u16string CurrentModel;

void ShowCurrentMotorcycle() {
    StatusBarSetText(MainStatusBar, 0, CurrentManufacturer + u" - " + CurrentModel, StatusCentred);
}

void ForgetCurrentMotorcycle() {
    CurrentManufacturer.clear();
    CurrentModel.clear();
    StatusBarSetText(MainStatusBar, 0, u"", StatusCentred);
}

void ChooseMotorcycle(const MotorcycleChoice& choice) {
    const MotorcycleRecord& motorcycle = *choice.Motorcycle;
    CurrentManufacturer = choice.Maker->Name;
    CurrentModel = motorcycle.Model;
    SetGadgetText(TyreWidthField, NumberToTextShortest(motorcycle.RearWheelWidth));
    SetGadgetText(PercentHeightField, IntegerToText(motorcycle.RearWheelPercentHeight));
    SetGadgetText(RimDiameterField, IntegerToText(motorcycle.RearWheelDiameter));
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        SetGadgetText(GearRatioField + static_cast<std::int64_t>(gear),
                      NumberToTextShortest(motorcycle.GearRatio[gear]));
    }
    SetGadgetText(PrimaryRatioField, NumberToTextShortest(motorcycle.PrimaryRatio));
    SetGadgetText(FinalRatioField, NumberToTextShortest(motorcycle.FinalDriveRatio));
    SetGadgetText(MaxRpmField, IntegerToText(motorcycle.MaxRPM));
    SetGadgetText(RpmField, IntegerToText(motorcycle.MaxRPM));
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        SetGadgetText(GearSpeedField + static_cast<std::int64_t>(gear), NoSpeedText);
    }
    ShowCurrentMotorcycle();
}

}  // namespace rotavel
