#pragma once

#include <array>
#include <string_view>

#include "app/gear_calculation.h"

namespace rotavel {

// Names in the settings file that more than one part of the program goes by.

// The group of the values shown last; every other group is a motorcycle.
inline constexpr std::u16string_view SettingsGroup = u"Settings";

inline constexpr std::array<std::u16string_view, GearCount> GearKeys = {
    u"Gear1Ratio", u"Gear2Ratio", u"Gear3Ratio", u"Gear4Ratio", u"Gear5Ratio", u"Gear6Ratio",
};

}  // namespace rotavel
