#include "app/last_values.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/current_motorcycle.h"
#include "app/gear_calculation.h"
#include "app/main_window.h"
#include "app/settings_keys.h"
#include "gui/gadget.h"
#include "settings/settings_store.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int64_t DefaultMaxRpm = 8750;

struct FieldKey {
    std::u16string_view Key;
    std::int64_t Field;
};

// Keys kept as the text of a field, in the order of writing.
constexpr std::array FieldKeys = {
    FieldKey{RearWheelWidthKey, TyreWidthField},
    FieldKey{RearWheelPercentHeightKey, PercentHeightField},
    FieldKey{RearWheelDiameterKey, RimDiameterField},
    FieldKey{GearRatioKeys[0], GadgetOfGear(GearRatioField, 0)},
    FieldKey{GearRatioKeys[1], GadgetOfGear(GearRatioField, 1)},
    FieldKey{GearRatioKeys[2], GadgetOfGear(GearRatioField, 2)},
    FieldKey{GearRatioKeys[3], GadgetOfGear(GearRatioField, 3)},
    FieldKey{GearRatioKeys[4], GadgetOfGear(GearRatioField, 4)},
    FieldKey{GearRatioKeys[5], GadgetOfGear(GearRatioField, 5)},
    FieldKey{PrimaryRatioKey, PrimaryRatioField},
    FieldKey{FinalDriveRatioKey, FinalRatioField},
};

}  // namespace

void RestoreLastValues() {
    SettingsSelectGroup(LastValuesGroup);
    const std::u16string_view kmh = UnitTexts[static_cast<std::size_t>(SpeedUnit::Kmh)];
    const bool isKmh = SettingsReadString(SpeedTypeKey, kmh) == kmh;
    SetGadgetState(SpeedUnitBox,
                   static_cast<std::int64_t>(isKmh ? SpeedUnit::Kmh : SpeedUnit::Mph));
    SetCurrentMotorcycle(SettingsReadString(ManufacturerKey, u""),
                         SettingsReadString(ModelKey, u""));
    for (const FieldKey& each : FieldKeys) {
        SetGadgetText(each.Field, SettingsReadString(each.Key, u""));
    }
    const std::u16string maxRpm = IntegerToText(SettingsReadInteger(MaxRpmKey, DefaultMaxRpm));
    SetGadgetText(MaxRpmField, maxRpm);
    SetGadgetText(RpmField, maxRpm);
}

void SaveLastValues() {
    SettingsSelectGroup(LastValuesGroup);
    SettingsWriteString(ManufacturerKey, CurrentManufacturer());
    SettingsWriteString(ModelKey, CurrentModel());
    SettingsWriteInteger(MaxRpmKey, TextToInteger(GetGadgetText(MaxRpmField)));
    for (const FieldKey& each : FieldKeys) {
        SettingsWriteString(each.Key, GetGadgetText(each.Field));
    }
    SettingsWriteString(SpeedTypeKey, GetGadgetText(SpeedUnitBox));
}

}  // namespace rotavel
