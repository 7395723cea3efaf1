#pragma once

#include <array>
#include <string_view>

#include "app/gear_calculation.h"

namespace rotavel {

// The settings file's names, spelled as files in use have them.

// The group of the values shown last; every other group is a motorcycle.
inline constexpr std::u16string_view LastValuesGroup = u"Settings";

// Keys of that group alone.
inline constexpr std::u16string_view ManufacturerKey = u"Manufacturer";
inline constexpr std::u16string_view ModelKey = u"Modell";
inline constexpr std::u16string_view SpeedTypeKey = u"SpeedType";

// Keys of every group.
inline constexpr std::u16string_view RearWheelWidthKey = u"RearWheelWidth";
inline constexpr std::u16string_view RearWheelPercentHeightKey = u"RearWheelPercentHeight";
inline constexpr std::u16string_view RearWheelDiameterKey = u"RearWheelDiameter";
inline constexpr std::u16string_view PrimaryRatioKey = u"PrimaryRatio";
inline constexpr std::array<std::u16string_view, GearCount> GearRatioKeys = {
    u"Gear1Ratio", u"Gear2Ratio", u"Gear3Ratio", u"Gear4Ratio", u"Gear5Ratio", u"Gear6Ratio",
};
inline constexpr std::u16string_view FinalDriveRatioKey = u"FinalDriveRatio";
inline constexpr std::u16string_view MaxRpmKey = u"MaxRPM";

}  // namespace rotavel
