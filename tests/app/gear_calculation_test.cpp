#include "app/gear_calculation.h"

#include <gtest/gtest.h>
#include <limits>
#include <tuple>

#include "app/chart_top_speed.h"

namespace rotavel {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();

// Drives at 0.06 km/h per rpm in a gear of ratio 1, without rounding errors.
GearInputs Plain(std::array<double, GearCount> ratios) {
    return {.Circumference = 100, .PrimaryRatio = 1, .FinalDriveRatio = 1, .GearRatio = ratios};
}

TEST(GearCalculation, ChartTopIsTheNextTenAbove) {
    const std::tuple<std::int64_t, SpeedUnit, std::int64_t> cases[] = {
        {3125, SpeedUnit::Kmh, 190},                  // 187.5 counts as 188
        {3175, SpeedUnit::Kmh, 200},                  // 190.5 counts as 190, and that is not above
        {6692, SpeedUnit::Mph, 260},                  // 401.52 and 249.8 are both rounded
        {std::int64_t{1} << 62, SpeedUnit::Kmh, 10},  // 60 times that wraps to 0
        {-3125, SpeedUnit::Kmh, -170},
    };
    for (const auto& [maxRpm, unit, top] : cases) {
        std::int64_t topGearIndex = 0;
        EXPECT_EQ(TopSpeedForChart(Plain({8, 1}), 0b11, maxRpm, unit, topGearIndex), top);
        EXPECT_EQ(topGearIndex, 1);
    }
    EXPECT_EQ(GearTopSpeed(Plain({3}), 0, 9325, SpeedUnit::Kmh), 186);  // 186.5
    EXPECT_EQ(GearTopSpeed(Plain({0}), 0, -1, SpeedUnit::Kmh), -Largest - 1);
    EXPECT_EQ(GearTopSpeed(Plain({0}), 0, 1, SpeedUnit::Kmh), Largest);
    EXPECT_EQ(GearTopSpeed(Plain({0}), 0, 0, SpeedUnit::Kmh), 0);
}

TEST(GearCalculation, ChartRemembersItsTopGear) {
    std::int64_t topGearIndex = 0;
    const auto top = [&topGearIndex](const GearInputs& inputs, GearMask mask) {
        return TopSpeedForChart(inputs, mask, 3000, SpeedUnit::Mph, topGearIndex).value();
    };
    GearInputs firstGearOnly = Plain({4});
    firstGearOnly.FinalDriveRatio = 0.5;
    EXPECT_EQ(top(firstGearOnly, 1), 450);  // the final drive for the gear's ratio as well
    EXPECT_EQ(topGearIndex, -1);
    EXPECT_EQ(top(Plain({4, 2, 0.5, 0, 0, 0}), 0b111), 120);
    EXPECT_EQ(top(Plain({4, 2, 1, 0, 0, 0.5}), 0b100111), 230);

    // Sixth gear is gone: the fastest of the gears in the mask stands in, wherever it is.
    EXPECT_EQ(top(Plain({4, 1, 2, 0, 0, 0}), 0b111), 120);
    EXPECT_EQ(top(Plain({4, 1, 2, 0, 0, 0}), 0b101), 60);
    EXPECT_EQ(topGearIndex, 5);
    topGearIndex = 0;
    EXPECT_EQ(top(Plain({4, 2, 1, -1, 0, 0}), 0b111), -100);
    EXPECT_FALSE(TopSpeedForChart(Plain({}), 0, 3000, SpeedUnit::Kmh, topGearIndex));
}

}  // namespace
}  // namespace rotavel
