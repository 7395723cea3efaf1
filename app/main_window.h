#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "app/gear_calculation.h"
#include "app/motorcycle_records.h"

namespace rotavel {

// The main window: its numbers and texts.

inline constexpr std::int64_t MainWindow = 0;
inline constexpr std::int64_t MainMenu = 0;
inline constexpr std::int64_t MainStatusBar = 0;
inline constexpr std::int64_t ProgramFont = 0;  // of every gadget and of the chart

// How much shorter than their window the fields of a status bar are, in pixels.
inline constexpr std::int64_t StatusBarMargin = 5;

// Gadgets that commands read and write; of those that each gear has one of, first gear's.
inline constexpr std::int64_t TyreWidthField = 1;
inline constexpr std::int64_t PercentHeightField = 3;
inline constexpr std::int64_t RimDiameterField = 5;
inline constexpr std::int64_t SpeedUnitBox = 11;
inline constexpr std::int64_t GearDrivingField = 18;
inline constexpr std::int64_t GearDrivenField = 24;
inline constexpr std::int64_t GearRatioField = 30;
inline constexpr std::int64_t GearSpeedField = 36;
inline constexpr std::int64_t CalcRpmButton = 42;
inline constexpr std::int64_t PrimaryDrivingField = 49;
inline constexpr std::int64_t PrimaryDrivenField = 50;
inline constexpr std::int64_t PrimaryRatioField = 51;
inline constexpr std::int64_t FinalDrivingField = 53;
inline constexpr std::int64_t FinalDrivenField = 54;
inline constexpr std::int64_t FinalRatioField = 55;
inline constexpr std::int64_t MaxRpmField = 57;
inline constexpr std::int64_t RpmField = 60;
inline constexpr std::int64_t CalcSpeedButton = 61;
inline constexpr std::int64_t GraphicButton = 62;

// The number of a gear's gadget (gears by their place in an array, from 0), and the gear whose
// gadget a number is.
constexpr std::int64_t GadgetOfGear(std::int64_t firstGearGadget, std::size_t gear) {
    return firstGearGadget + static_cast<std::int64_t>(gear);
}
constexpr std::optional<std::size_t> GearOfGadget(std::int64_t firstGearGadget,
                                                  std::int64_t gadget) {
    const std::size_t gear =
        static_cast<std::size_t>(gadget) - static_cast<std::size_t>(firstGearGadget);
    return gear < GearCount ? std::optional(gear) : std::nullopt;
}

// What the speed-unit box shows for each SpeedUnit.
inline constexpr std::array<std::u16string_view, 2> UnitTexts = {u"km/h", u"mph"};

// Menu items. The motorcycles take the numbers from FirstMotorcycleMenuItem on.
inline constexpr std::int64_t QuitMenuItem = 1;
inline constexpr std::int64_t AboutMenuItem = 2;
inline constexpr std::int64_t FirstMotorcycleMenuItem = 10;

// What a gear's speed field shows while it has no speed.
inline constexpr const char16_t* NoSpeedText = u"----";

// The program's name and version, and who wrote it.
inline constexpr const char16_t* ProgramTitle = u"Rotavel V1.55";
inline constexpr const char16_t* CopyrightText = u"\u00A9 2026 The Rotavel authors";

// Opens the main window with its menu bar and gadgets, and gives each motorcycle the number of its
// menu item.
void OpenMainWindow(std::vector<MakerRecord>& makers);

}  // namespace rotavel
