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
    FieldKey{u"RearWheelWidth", TyreWidthField},
    FieldKey{u"RearWheelPercentHeight", PercentHeightField},
    FieldKey{u"RearWheelDiameter", RimDiameterField},
    FieldKey{GearKeys[0], GearRatioField},
    FieldKey{GearKeys[1], GearRatioField + 1},
    FieldKey{GearKeys[2], GearRatioField + 2},
    FieldKey{GearKeys[3], GearRatioField + 3},
    FieldKey{GearKeys[4], GearRatioField + 4},
    FieldKey{GearKeys[5], GearRatioField + 5},
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
    for (const FieldKey& each : FieldKeys) {
        SetGadgetText(each.Field, SettingsReadString(each.Key, u""));
    }
    const std::u16string maxRpm = IntegerToText(SettingsReadInteger(u"MaxRPM", DefaultMaxRpm));
    SetGadgetText(MaxRpmField, maxRpm);
    SetGadgetText(RpmField, maxRpm);
}

void SaveLastValues() {
    SettingsSelectGroup(SettingsGroup);
    SettingsWriteString(u"Manufacturer", CurrentManufacturer);
    SettingsWriteString(u"Modell", CurrentModel);
    SettingsWriteInteger(u"MaxRPM", TextToInteger(GetGadgetText(MaxRpmField)));
    for (const FieldKey& each : FieldKeys) {
        SettingsWriteString(each.Key, GetGadgetText(each.Field));
    }
    SettingsWriteString(u"SpeedType", GetGadgetText(SpeedUnitBox));
}

}  // namespace rotavel
