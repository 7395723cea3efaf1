#include "app/chart_plot.h"

#include <optional>

#include <QColor>

#include "app/chart_top_speed.h"
#include "app/main_window.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "tests/support/pixels.h"
#include "text/number_text.h"

namespace rotavel {
namespace {

using namespace tests;

// The first motorcycle of the default file, on its 180/55 R17.
GearInputs SixSpeed(double fifthGear, double sixthGear) {
    return {
        197.85750532308518, 1.4583, 3.6667, {2.2353, 1.7, 1.3478, 1.1154, fifthGear, sixthGear}};
}

// Drives at 0.06 km/h per rpm in a gear of ratio 1, without rounding errors.
GearInputs Plain(std::array<double, GearCount> ratios) {
    return {.Circumference = 100, .PrimaryRatio = 0.5, .FinalDriveRatio = 2, .GearRatio = ratios};
}

// A chart up to 8100 rpm as it should be, with the speeds at which the gears' lines end.
struct Expected {
    GearInputs Inputs;
    SpeedUnit Unit;
    int TopSpeed;
    std::array<std::optional<int>, GearCount> Tops;

    static constexpr int Right = 680;  // the plot's edge; the lines end at 688
    int Axis() const { return 2 * TopSpeed + 40; }

    bool IsAxisOrTick(int x, int y) const {
        return (y == Axis() && x >= 20 && x <= Right + 20) ||
               (x == 40 && y >= 20 && y <= Axis() + 20) ||
               (x % 20 == 0 && x >= 60 && x <= Right && std::abs(y - Axis()) <= 10) ||
               (y % 20 == 0 && y >= 40 && y <= Axis() && std::abs(x - 40) <= 10);
    }
    // Level lines of dots to the end of the plot; upright ones down to 580 whatever its height.
    bool IsDot(int x, int y) const {
        return x % 10 == 0 && y % 10 == 0 && y >= 40 && x <= Right &&
               ((y <= Axis() && x >= 20) || (y <= 580 && x % 20 == 0 && x >= 60));
    }
    bool IsNearLine(int x, int y) const {
        return x >= 39 && x <= 689 && std::ranges::any_of(Tops, [&](std::optional<int> top) {
                   return top && std::abs(Axis() - *top * (x - 40) / 324.0 - y) < 2;
               });
    }
};

// The picture that `draw` makes on a new image.
template <typename Draw>
QImage Picture(const Expected& chart, Draw draw) {
    const std::int64_t image = ImageCreate(AnyNumber, Expected::Right + 40, chart.Axis() + 50);
    EXPECT_TRUE(VectorBegin(ImageVectorTarget(image)));
    draw();
    VectorEnd();
    return *FromHandle(ImageHandle(image));
}

// Nothing but the texts of the chart, on white.
void DrawTexts(const Expected& chart) {
    VectorSetColour(0xFFFFFFFF);
    PathAddBox(0, 0, 1000, 1000);
    PathFill();
    VectorSetColour(0xFF000000);
    VectorSetFont(FontHandle(ProgramFont), 10);
    for (int x = 60; x <= Expected::Right; x += 20) {
        VectorRotate(x - 5, chart.Axis() + 45, -90);
        PathMoveTo(x - 5, chart.Axis() + 45);
        VectorDrawText(IntegerToText((x - 40) / 20 * 250));
        VectorRotate(x - 5, chart.Axis() + 45, 90);
    }
    for (int y = 40; y <= chart.Axis(); y += 20) {
        PathMoveTo(5, y - 5);
        VectorDrawText(IntegerToText((chart.Axis() - y) / 2));
    }
    VectorSetFont(FontHandle(ProgramFont), 14);
    // Alpha, blue, green, red.
    constexpr Colour colours[] = {0xFF0000FF, 0xFF00FF00, 0xFFFF0000,
                                  0xFF0080FF, 0xFFFFFF00, 0xFFFF00FF};
    for (std::size_t gear = 0; gear < GearCount && chart.Tops[gear]; ++gear) {
        const auto row = static_cast<std::int64_t>(gear);
        VectorSetColour(colours[gear]);
        PathMoveTo(70, static_cast<double>(40 + 20 * row));
        VectorDrawText(IntegerToText(row + 1) + u" gear");
    }
}

using ChartPlotTest = DrawTest;

TEST_F(ChartPlotTest, EveryPixelIsAsItShouldBe) {
    const Expected charts[] = {
        {SixSpeed(0.9355, 0.8), SpeedUnit::Kmh, 230, {80, 106, 133, 161, 192, 225}},
        {SixSpeed(0.9355, 0.8), SpeedUnit::Mph, 150, {50, 66, 83, 100, 119, 140}},
        // So high that the grid's upright lines end between the axis and the image's edge, with a
        // gear that is drawn below the axis and one that there is not.
        {SixSpeed(-2.0, 0.0), SpeedUnit::Kmh, 260, {80, 106, 133, 161, -90, std::nullopt}},
    };
    FontLoad(ProgramFont, u"Arial", 8);
    for (const Expected& chart : charts) {
        SCOPED_TRACE(chart.TopSpeed);
        const QImage texts = Picture(chart, [&] { DrawTexts(chart); });
        const QImage plot =
            Picture(chart, [&] { DrawPlot(chart.Inputs, 8100, chart.TopSpeed, chart.Unit); });
        for (int pixel = 0; pixel < (Expected::Right + 40) * (chart.Axis() + 50); ++pixel) {
            const int x = pixel % (Expected::Right + 40);
            const int y = pixel / (Expected::Right + 40);
            const QRgb shown = PixelOf(plot, x, y);
            const bool isRight = chart.IsNearLine(x, y)     ? true
                                 : chart.IsAxisOrTick(x, y) ? shown == Black
                                 : chart.IsDot(x, y)        ? shown != White && shown != Black
                                                            : shown == PixelOf(texts, x, y);
            ASSERT_TRUE(isRight) << x << ", " << y << " is " << std::hex << shown;
        }
    }
}

TEST_F(ChartPlotTest, ReachesToTheNextTenAboveTheTopGearsSpeed) {
    std::int64_t topGearIndex = 0;
    const struct {
        std::array<double, GearCount> Ratios;
        std::int64_t MaxRpm;
        SpeedUnit Unit;
        std::int64_t Top;
        std::int64_t TopGear;
    } cases[] = {
        {{4}, 3000, SpeedUnit::Mph, 60, -1},     // the final drive for the gear's ratio as well
        {{8, 1}, 3125, SpeedUnit::Kmh, 190, 1},  // 187.5 counts as 188
        {{8, 1}, 3175, SpeedUnit::Kmh, 200, 1},  // 190.5 counts as 190
        {{8, 1}, 6692, SpeedUnit::Mph, 260, 1},  // 401.52 and 249.8 are rounded
        {{8, 1}, std::int64_t{1} << 62, SpeedUnit::Kmh, 10, 1},  // 60 times that wraps to 0
        {{4, 2, 1, -1}, 3000, SpeedUnit::Kmh, -170, 3},
        // The top gear is remembered. When it is gone the fastest of the others stands in.
        {{4, 2, 1, 0, 0, 0.5}, 3000, SpeedUnit::Mph, 230, 5},
        {{4, 1, 2, -0.5}, 3000, SpeedUnit::Mph, 120, 5},
    };
    for (const auto& [ratios, maxRpm, unit, top, topGear] : cases) {
        const GearMask mask = ratios[1] > 0 ? 0b111 : 1;
        topGearIndex = topGear == 5 ? topGearIndex : 0;
        EXPECT_EQ(TopSpeedForChart(Plain(ratios), mask, maxRpm, unit, topGearIndex), top) << maxRpm;
        EXPECT_EQ(topGearIndex, topGear) << maxRpm;
    }
}

}  // namespace
}  // namespace rotavel
