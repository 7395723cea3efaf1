#include "app/gear_calculation.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "app/inch_tyres.h"
#include "text/number_text.h"

namespace rotavel {
namespace {

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();

// A five-speed of the default file, its decimals typed with commas.
GearTexts FiveSpeed() {
    return {.Width = u"130",
            .Percent = u"80",
            .Rim = u"17",
            .PrimaryRatio = u"1,3125",
            .FinalDriveRatio = u"4,125",
            .GearRatio = {u"2,3636", u"1.6429", u"1.2778", u"1.0556", u"0.9000", u""}};
}

// Drives at 0.06 km/h per rpm in a gear of ratio 1, without rounding errors.
GearInputs Plain(std::array<double, GearCount> ratios) {
    return {
        .Circumference = 100.0, .PrimaryRatio = 1.0, .FinalDriveRatio = 1.0, .GearRatio = ratios};
}

TEST(InchTyres, TableIsAsPublished) {
    std::int64_t made = 0;
    std::int64_t weighted = 0;
    std::int64_t place = 0;
    for (const char16_t* width :
         {u"2.00", u"2.25", u"2.50", u"2.75", u"3.00", u"3.25", u"3.50", u"3.75", u"4.00", u"4.25",
          u"4.50", u"5.00", u"3.60", u"4.10", u"4.60", u"5.10"}) {
        for (const char16_t* rim : {u"-14", u"-15", u"-16", u"-17", u"-18", u"-19"}) {
            const auto diameter = FindInchTyreDiameter(std::u16string(width) + rim);
            ++place;
            made += diameter.has_value() ? 1 : 0;
            weighted += place * diameter.value_or(0);
        }
    }
    EXPECT_EQ(made, 72);
    EXPECT_EQ(weighted, 1880367);
    EXPECT_FALSE(FindInchTyreDiameter(u"3.25-18 "));
    EXPECT_FALSE(FindInchTyreDiameter(u"3.25"));
}

TEST(GearCalculation, TyreSizeGivesCircumference) {
    const struct {
        const char16_t* Width;
        const char16_t* Percent;
        const char16_t* Rim;
        double Circumference;
        const char16_t* InchWidth;
    } cases[] = {
        {u"180", u"55", u"17", 197.85750532308518, u"metric"},
        {u"180", u"55,5", u"17,5", 198.4229920007313, u"metric"},
        {u"3.25", u"80", u"18", 200.74777056438776, u"3.25"},
        {u"3,5", u"", u"18", 203.88936321797758, u"3.50"},
        {u"3", u"", u"16", 180.95573684677208, u"3.00"},
        {u"3.255", u"", u"18", 200.74777056438776, u"3.25"},
        {u"3.25", u"", u"21", 0.0, u"3.25"},
        {u"", u"55", u"17", 0.0, u".000"},
    };
    for (const auto& size : cases) {
        GearTexts texts = FiveSpeed();
        texts.Width = size.Width;
        texts.Percent = size.Percent;
        texts.Rim = size.Rim;
        GearInputs inputs;
        const GearReading reading = ReadGearTexts(texts, inputs);

        EXPECT_DOUBLE_EQ(inputs.Circumference, size.Circumference);
        EXPECT_EQ(reading.Mask, size.Circumference > 0.0 ? 0b011111U : 0U);
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
    EXPECT_EQ(inputs.PrimaryRatio, 0.0);
    EXPECT_EQ(inputs.GearRatio[0], 2.3636);

    texts = FiveSpeed();
    texts.Width = u"9.99";
    texts.GearRatio = {u"", u"-1", u"1.5", u"nan", u"", u"0.5"};
    EXPECT_EQ(ReadGearTexts(texts, inputs).Mask, 0b100100U);
    EXPECT_DOUBLE_EQ(inputs.Circumference, 200.999097976675);
    EXPECT_EQ(inputs.GearRatio[1], -1.0);
}

TEST(GearCalculation, SpeedsAndEngineSpeeds) {
    GearInputs inputs;
    const GearMask mask = ReadGearTexts(FiveSpeed(), inputs).Mask;

    const auto shown = [&inputs](SpeedUnit unit) {
        std::u16string line;
        for (const std::optional<double>& speed : RoadSpeeds(inputs, 4000, unit)) {
            line += speed ? NumberToText(*speed, 0) + u" " : u"---- ";
        }
        return line;
    };
    EXPECT_EQ(shown(SpeedUnit::Kmh), u"38 54 70 84 99 ---- ");
    EXPECT_EQ(shown(SpeedUnit::Mph), u"23 34 43 52 62 ---- ");

    EXPECT_NEAR(EngineSpeed(inputs, mask, 2, u"80,5", SpeedUnit::Kmh).value(), 4617.8164905, 1e-6);
    EXPECT_NEAR(EngineSpeed(inputs, mask, 2, u"100", SpeedUnit::Mph).value(), 9231.8698909, 1e-6);
    EXPECT_FALSE(EngineSpeed(inputs, mask, 2, u"----", SpeedUnit::Kmh));
    EXPECT_FALSE(EngineSpeed(inputs, mask, 2, u"nan", SpeedUnit::Kmh));
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
        {3325, SpeedUnit::Kmh, 210},                  // 199.5 counts as 200
        {6692, SpeedUnit::Mph, 260},                  // 401.52 and 249.8 are both rounded
        {std::int64_t{1} << 62, SpeedUnit::Kmh, 10},  // 60 times that wraps to 0
        {-3125, SpeedUnit::Kmh, -170},
    };
    for (const auto& chart : cases) {
        std::int64_t topGearIndex = 0;
        EXPECT_EQ(TopSpeedForChart(Plain({8, 1, 0, 0, 0, 0}), 0b11, chart.MaxRpm, chart.Unit,
                                   topGearIndex),
                  chart.Top);
        EXPECT_EQ(topGearIndex, 1);
    }
}

TEST(GearCalculation, ChartRemembersItsTopGear) {
    std::int64_t topGearIndex = 0;
    const auto top = [&topGearIndex](const GearInputs& inputs) {
        return TopSpeedForChart(inputs, 1, 3000, SpeedUnit::Mph, topGearIndex).value();
    };

    GearInputs firstGearOnly = Plain({4, 0, 0, 0, 0, 0});
    firstGearOnly.FinalDriveRatio = 0.5;
    EXPECT_EQ(top(firstGearOnly), 450);  // 720 km/h: the final drive for the gear's ratio as well
    EXPECT_EQ(topGearIndex, -1);

    EXPECT_EQ(top(Plain({4, 2, 0.5, 0, 0, 0})), 120);
    EXPECT_EQ(top(Plain({4, 2, 1, 0, 0, 0.5})), 230);
    EXPECT_EQ(topGearIndex, 5);
    EXPECT_GT(top(Plain({4, 2, 1, 0, 0, 0})), Largest / 2);  // a gear without ratio: infinite

    topGearIndex = 0;
    EXPECT_EQ(top(Plain({4, 2, 1, -1, 0, 0})), -100);
    EXPECT_EQ(topGearIndex, 3);
    EXPECT_FALSE(TopSpeedForChart(Plain({}), 0, 3000, SpeedUnit::Kmh, topGearIndex));
}

TEST(GearCalculation, RoundsHalvesToEvenAndSaturates) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(RoundToInteger(186.5), 186);
    EXPECT_EQ(RoundToInteger(-187.5), -188);
    EXPECT_EQ(RoundToInteger(0x1p63), Largest);
    EXPECT_EQ(RoundToInteger(-infinity), -Largest - 1);
    EXPECT_EQ(RoundToInteger(std::nan("")), 0);
}

}  // namespace
}  // namespace rotavel
