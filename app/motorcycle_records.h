#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "app/gear_calculation.h"

namespace rotavel {

// One motorcycle of the settings file. Never changed once the menu is built.
struct MotorcycleRecord {
    std::u16string Model;  // "Breva 750"
    double PrimaryRatio = 0.0;
    double FinalDriveRatio = 0.0;
    std::array<double, GearCount> GearRatio{};  // first gear to sixth, 0: no such gear
    double RearWheelWidth = 0.0;  // millimetres (180), or inches for an inch size (3.25)
    std::int64_t RearWheelPercentHeight = 0;  // percent of the width, 0 for an inch size
    std::int64_t RearWheelDiameter = 0;       // of the rim, inches
    std::int64_t MaxRPM = 0;                  // revolutions per minute
    std::int64_t MenuItem = 0;                // menu item that chooses it, given by the menu
};

// A maker and its motorcycles, in the order of the settings file.
struct MakerRecord {
    std::u16string Name;  // "Moto Guzzi"; empty for groups without a "-" in their name
    std::vector<MotorcycleRecord> Models;
};

// A motorcycle and who made it; both point into the list they were found in.
struct MotorcycleChoice {
    const MakerRecord* Maker;
    const MotorcycleRecord* Motorcycle;
};

// Reads every group of the open settings store but "Settings" as a motorcycle named "maker - model"
// and returns the makers in order of first appearance. A missing key, or one whose value is no
// number, reads as 0. Leaves the store in its last group.
std::vector<MakerRecord> ReadMotorcycles();

// The first motorcycle with this menu item number, makers and models taken in order, or nothing.
std::optional<MotorcycleChoice> FindMotorcycle(const std::vector<MakerRecord>& makers,
                                               std::int64_t menuItem);

}  // namespace rotavel
