#include <gtest/gtest.h>
#include <limits>

#include "app/chart_top_speed.h"

namespace rotavel {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();

// A five-speed of the default file, its decimals typed with commas.
GearTexts FiveSpeed() {
    return {{u"130", u"80", u"17"},
            u"1,3125",
            u"4,125",
            {u"2,3636", u"1.6429", u"1.2778", u"1.0556", u"0.9000", u""}};
}

// Drives at 0.06 km/h per rpm in a gear of ratio 1, without rounding errors.
GearInputs Plain(std::array<double, GearCount> ratios) {
    return {.Circumference = 100, .PrimaryRatio = 1, .FinalDriveRatio = 1, .GearRatio = ratios};
}

TEST(GearCalculation, TyreSizeGivesCircumference) {
    const struct {
        const char16_t *Width, *Percent, *Rim;
        double Circumference;
        const char16_t* InchWidth;
    } cases[] = {
        {u"180", u"55", u"17", 197.85750532308518, u"metric"},
        {u"180", u"55,5", u"17,5", 198.4229920007313, u"metric"},
        {u"3.25", u"80", u"18", 200.74777056438776, u"3.25"},
        {u"3,5", u"", u"18", 203.88936321797758, u"3.50"},
        {u"3.25", u"", u"21", 0.0, u"3.25"},
        {u"", u"55", u"17", 0.0, u".000"},
    };
    for (const auto& size : cases) {
        const GearTexts texts = {{size.Width, size.Percent, size.Rim}, u"1", u"1", {u"1", u"0"}};
        GearInputs inputs;
        const GearReading reading = ReadGearTexts(texts, inputs);
        EXPECT_DOUBLE_EQ(inputs.Circumference, size.Circumference);
        EXPECT_EQ(reading.Mask, size.Circumference > 0.0 ? 1U : 0U);
        EXPECT_EQ(reading.InchWidth.value_or(u"metric"), size.InchWidth);
    }
}

TEST(GearCalculation, UnusableTextsLeaveWhatWasReadBefore) {
    GearInputs inputs;
    ReadGearTexts(FiveSpeed(), inputs);
    GearTexts texts = FiveSpeed();
    texts.PrimaryRatio = u"0";
    texts.GearRatio[0] = u"9";
    EXPECT_EQ(ReadGearTexts(texts, inputs).Mask, 0U);
    EXPECT_EQ(inputs.GearRatio[0], 2.3636);

    texts = FiveSpeed();
    texts.Tyre.Width = u"9.99";
    texts.GearRatio = {u"", u"-1", u"1.5", u"nan", u"", u"0.5"};
    EXPECT_EQ(ReadGearTexts(texts, inputs).Mask, 0b100100U);
    EXPECT_DOUBLE_EQ(inputs.Circumference, 200.999097976675);
}

TEST(GearCalculation, SpeedsAndEngineSpeeds) {
    GearInputs inputs;
    const GearMask mask = ReadGearTexts(FiveSpeed(), inputs).Mask;
    const auto speeds = RoadSpeeds(inputs, 4000, SpeedUnit::Kmh);
    EXPECT_NEAR(speeds[0].value(), 37.69711, 1e-5);
    EXPECT_NEAR(RoadSpeeds(inputs, 4000, SpeedUnit::Mph)[0].value(), 23.42404, 1e-5);
    EXPECT_FALSE(speeds[5]);
    EXPECT_NEAR(EngineSpeed(inputs, mask, 2, u"80,5", SpeedUnit::Kmh).value(), 4617.8164905, 1e-6);
    EXPECT_NEAR(EngineSpeed(inputs, mask, 2, u"100", SpeedUnit::Mph).value(), 9231.8698909, 1e-6);
    EXPECT_FALSE(EngineSpeed(inputs, mask, 2, u"----", SpeedUnit::Kmh));
    EXPECT_FALSE(EngineSpeed(inputs, mask, 5, u"80", SpeedUnit::Kmh));
    EXPECT_EQ(GearTopSpeed(inputs, 4, 8750, SpeedUnit::Kmh), 217);
    EXPECT_EQ(GearTopSpeed(Plain({1}), 0, 100'000'000, SpeedUnit::Mph), 3'728'250);
}

TEST(GearCalculation, ChartTopIsTheNextTenAbove) {
    const struct {
        std::int64_t MaxRpm;
        SpeedUnit Unit;
        std::int64_t Top;
    } cases[] = {
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
    EXPECT_EQ(GearTopSpeed(Plain({0}), 0, -1, SpeedUnit::Kmh), -Largest - 1);
    EXPECT_EQ(GearTopSpeed(Plain({0}), 0, 1, SpeedUnit::Kmh), Largest);
    EXPECT_EQ(GearTopSpeed(Plain({0}), 0, 0, SpeedUnit::Kmh), 0);
}

TEST(GearCalculation, ChartRemembersItsTopGear) {
    std::int64_t topGearIndex = 0;
    const auto top = [&topGearIndex](const GearInputs& inputs) {
        return TopSpeedForChart(inputs, 1, 3000, SpeedUnit::Mph, topGearIndex).value();
    };
    GearInputs firstGearOnly = Plain({4});
    firstGearOnly.FinalDriveRatio = 0.5;
    EXPECT_EQ(top(firstGearOnly), 450);  // 720 km/h: the final drive for the gear's ratio as well
    EXPECT_EQ(topGearIndex, -1);
    EXPECT_EQ(top(Plain({4, 2, 0.5, 0, 0, 0})), 120);
    EXPECT_EQ(top(Plain({4, 2, 1, 0, 0, 0.5})), 230);
    EXPECT_EQ(top(Plain({4, 2, 1, 0, 0, 0})), 30) << "the fastest in the mask, first gear alone";
    topGearIndex = 0;
    EXPECT_EQ(top(Plain({4, 2, 1, -1, 0, 0})), -100);
    EXPECT_FALSE(TopSpeedForChart(Plain({}), 0, 3000, SpeedUnit::Kmh, topGearIndex));
}

}  // namespace
}  // namespace rotavel
