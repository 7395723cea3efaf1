#include "app/last_values.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "app/current_motorcycle.h"
#include "app/gear_calculation.h"
#include "app/main_window.h"
#include "gui/gadget.h"
#include "settings/settings_store.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int64_t defaultMaxRpm = 8750;

struct FieldKey {
    std::u16string_view Key;
    std::int64_t Field;
};

// Keys kept as the text of a field, in the order of writing.
constexpr std::array fieldKeys = {
    FieldKey{u"RearWheelWidth", TyreWidthField},
    FieldKey{u"RearWheelPercentHeight", PercentHeightField},
    FieldKey{u"RearWheelDiameter", RimDiameterField},
    FieldKey{u"Gear1Ratio", GearRatioField},
    FieldKey{u"Gear2Ratio", GearRatioField + 1},
    FieldKey{u"Gear3Ratio", GearRatioField + 2},
    FieldKey{u"Gear4Ratio", GearRatioField + 3},
    FieldKey{u"Gear5Ratio", GearRatioField + 4},
    FieldKey{u"Gear6Ratio", GearRatioField + 5},
    FieldKey{u"PrimaryRatio", PrimaryRatioField},
    FieldKey{u"FinalDriveRatio", FinalRatioField},
};

}  // namespace

void RestoreLastValues() {
    const bool metric = SettingsReadString(u"SpeedType", u"km/h") == u"km/h";
    SetGadgetState(SpeedUnitBox,
                   static_cast<std::int64_t>(metric ? SpeedUnit::Kmh : SpeedUnit::Mph));
    CurrentManufacturer = SettingsReadString(u"Manufacturer", u"");
    CurrentModel = SettingsReadString(u"Modell", u"");
    for (const FieldKey& each : fieldKeys) {
        SetGadgetText(each.Field, SettingsReadString(each.Key, u""));
    }
    const std::u16string maxRpm = IntegerToText(SettingsReadInteger(u"MaxRPM", defaultMaxRpm));
    SetGadgetText(MaxRpmField, maxRpm);
    SetGadgetText(RpmField, maxRpm);
}

void SaveLastValues() {
    SettingsSelectGroup(u"Settings");
    SettingsWriteString(u"Manufacturer", CurrentManufacturer);
    SettingsWriteString(u"Modell", CurrentModel);
    SettingsWriteInteger(u"MaxRPM", TextToInteger(GetGadgetText(MaxRpmField)));
    for (const FieldKey& each : fieldKeys) {
        SettingsWriteString(each.Key, GetGadgetText(each.Field));
    }
    SettingsWriteString(u"SpeedType", GetGadgetText(SpeedUnitBox));
}

}  // namespace rotavel
