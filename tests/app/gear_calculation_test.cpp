#include "app/gear_calculation.h"

#include <cstdio>
#include <limits>
#include <tuple>

#include "app/chart_top_speed.h"
#include "app/inch_tyre_diameters.h"
#include "app_test.h"

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

TEST(GearCalculation, TableOfInchTyresIsWhole) {
    std::string sizes;
    for (int width = 0; width < 1000; ++width) {
        for (int rim = 10; rim < 30; ++rim) {
            char size[16];
            std::snprintf(size, sizeof size, "%d.%02d-%d", width / 100, width % 100, rim);
            if (const auto diameter = FindInchTyreDiameter(ToUtf16(size))) {
                sizes.append(size).append("=").append(std::to_string(*diameter)).append(" ");
            }
        }
    }
    EXPECT_EQ(tests::HashOf(sizes), 0x87b2226f2ce01909) << sizes;
    EXPECT_FALSE(FindInchTyreDiameter(u"3.25"));
}

TEST(GearCalculation, TyreSizeGivesCircumference) {
    const struct {
        const char16_t *Width, *Percent, *Rim;
        double Circumference;
        const char16_t* InchWidth;
    } cases[] = {
        {u"180", u"55", u"17", 197.85750532308518, u"metric"},
        {u"180", u"55,5", u"17.5", 202.4128146707904, u"metric"},
        {u"10", u"100", u"14", 117.99822006883264, u"metric"},
        {u"3.25", u"80", u"18", 200.74777056438776, u"3.25"},
        {u"3,5", u"", u"18", 203.88936321797758, u"3.50"},
        {u"3", u"", u"16", 180.95573684677208, u"3.00"},
        {u"3.255", u"", u"18", 200.74777056438776, u"3.25"},
        {u"9.99", u"80", u"17", 0.0, u"9.99"},
        {u"", u"55", u"17", 0.0, u".000"},
        {u"180", u"0", u"17,5", 135.65397078200726, u"metric"},  // the rim is read up to its comma
    };
    for (const auto& size : cases) {
        const GearTexts texts = {{size.Width, size.Percent, size.Rim}, u"1", u"1", {u"1", u"0"}};
        GearInputs inputs;
        const GearReading reading = ReadGearTexts(texts, inputs);
        EXPECT_EQ(inputs.Circumference, size.Circumference);
        EXPECT_EQ(reading.Mask, size.Circumference > 0.0 ? 1U : 0U);
        EXPECT_EQ(reading.InchWidth.value_or(u"metric"), size.InchWidth);
    }
}

TEST(GearCalculation, UnusableTextsLeaveWhatWasReadBefore) {
    GearInputs inputs;
    ReadGearTexts(FiveSpeed(), inputs);
    for (const auto unusable : {&GearTexts::PrimaryRatio, &GearTexts::FinalDriveRatio}) {
        GearTexts texts = FiveSpeed();
        texts.*unusable = u"0";
        texts.GearRatio[0] = u"9";
        EXPECT_EQ(ReadGearTexts(texts, inputs).Mask, 0U);
        EXPECT_EQ(inputs.GearRatio[0], 2.3636);
    }
    GearTexts texts = FiveSpeed();
    texts.Tyre.Width = u"9.99";
    texts.GearRatio = {u"", u"-1", u"1.5", u"nan", u"", u"0.5"};
    EXPECT_EQ(ReadGearTexts(texts, inputs).Mask, 0b100100U);
    EXPECT_EQ(inputs.Circumference, 200.999097976675);
}

TEST(GearCalculation, SpeedsAndEngineSpeeds) {
    GearInputs inputs;
    const GearMask mask = ReadGearTexts(FiveSpeed(), inputs).Mask;
    const auto kmh = RoadSpeeds(inputs, 4000, SpeedUnit::Kmh);
    EXPECT_EQ(kmh[0], 37.69711408162968);
    EXPECT_EQ(kmh[4], 99.00099871482213);
    EXPECT_EQ(kmh[5], std::nullopt);
    EXPECT_EQ(RoadSpeeds(inputs, 4000, SpeedUnit::Mph)[4], 61.5167455764226);
    EXPECT_EQ(EngineSpeed(inputs, mask, 2, u"80,5", SpeedUnit::Kmh), 4617.816490532015);
    EXPECT_EQ(EngineSpeed(inputs, mask, 2, u"100", SpeedUnit::Mph), 9231.869890855598);
    EXPECT_FALSE(EngineSpeed(inputs, mask, 2, u"----", SpeedUnit::Kmh));
    EXPECT_FALSE(EngineSpeed(inputs, mask, 2, u"-1", SpeedUnit::Kmh));
    EXPECT_FALSE(EngineSpeed(inputs, mask, 5, u"80", SpeedUnit::Kmh));
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
