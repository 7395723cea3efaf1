#include "app/chart_plot.h"

#include <limits>

#include <QColor>

#include "app/chart_top_speed.h"
#include "app/main_window.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "tests/support/pixels.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();

// The first motorcycle of the default file, on a 180/55 R17.
GearInputs SixSpeed() {
    return {197.857, 1.4583, 3.6667, {2.2353, 1.7, 1.3478, 1.1154, 0.9355, 0.8}};
}

// The gear whose colour a blended pixel has, -1 for white, grey and black.
int GearOf(QRgb pixel) {
    constexpr int hues[] = {0, 120, 240, 30, 180, 300};
    const QColor colour(pixel);
    for (int gear = 0; gear < 6; ++gear) {
        if (colour.hsvSaturation() > 60 && std::abs(colour.hsvHue() - hues[gear]) < 12) {
            return gear;
        }
    }
    return -1;
}

std::int64_t Plot(const GearInputs& inputs, std::int64_t maxRpm, std::int64_t topSpeed) {
    FontLoad(ProgramFont, u"Arial", 8);
    const PlotSize plot = PlotSizeFor(maxRpm, topSpeed);
    const std::int64_t image = ImageCreate(AnyNumber, plot.Width + PlotSize::ImageMarginX,
                                           plot.Height + PlotSize::ImageMarginY);
    EXPECT_TRUE(VectorBegin(ImageVectorTarget(image)));
    DrawPlot(inputs, maxRpm, topSpeed, SpeedUnit::Kmh);
    VectorEnd();
    return image;
}

using ChartPlotTest = DrawTest;

TEST_F(ChartPlotTest, SizesAndPointsAreOnTheScale) {
    const struct {
        std::int64_t MaxRpm, Top, Width, Height;
    } sizes[] = {{9000, 190, 720, 380}, {8100, 0, 640, 0}, {249, 9, 0, 0}, {-500, -30, -40, -60}};
    for (const auto& each : sizes) {
        EXPECT_EQ(PlotSizeFor(each.MaxRpm, each.Top).Width, each.Width) << each.MaxRpm;
        EXPECT_EQ(PlotSizeFor(each.MaxRpm, each.Top).Height, each.Height) << each.Top;
    }
    EXPECT_GT(PlotSizeFor(Largest, Largest).Height, 1LL << 32);
    EXPECT_LT(PlotSizeFor(-Largest, -Largest).Width, -(1LL << 32));
}

TEST_F(ChartPlotTest, AxesHaveATickAndALabelForEachStep) {
    const std::int64_t image = Plot(SixSpeed(), 8100, 200);
    ASSERT_EQ(SizeOf(image), QSize(720, 490));
    for (const QPoint end : {QPoint(20, 440), {700, 440}, {40, 20}, {40, 460}}) {
        EXPECT_EQ(PixelOf(image, end.x(), end.y()), Black) << end.x() << ", " << end.y();
    }
    for (int x = 60; x <= 700; x += 20) {
        const bool isStep = x <= 680;
        EXPECT_EQ(PixelOf(image, x, 450), isStep ? Black : White) << x;
        EXPECT_EQ(InkIn(image, QRect(x - 5, 462, 12, 24)).Pixels > 0, isStep) << x;
    }
    for (int y = 40; y <= 460; y += 20) {
        const bool isStep = y <= 440;
        EXPECT_EQ(PixelOf(image, 30, y), isStep ? Black : White) << y;
        EXPECT_EQ(InkIn(image, QRect(5, y - 5, 18, 12)).Pixels > 10, isStep) << y;
    }
}

TEST_F(ChartPlotTest, GridIsDottedAndItsUprightLinesEndWhereTheyAlwaysDo) {
    const std::int64_t image = Plot({}, 9000, 390);
    for (const auto& [x, y, isDot] : {std::tuple(120, 580, true), std::tuple(125, 585, false),
                                      std::tuple(110, 55, false), std::tuple(110, 590, true)}) {
        EXPECT_EQ(PixelOf(image, x, y) != White, isDot) << x << ", " << y;
    }
}

TEST_F(ChartPlotTest, EachGearHasItsLineAndLegend) {
    GearInputs inputs = SixSpeed();
    inputs.GearRatio[4] = -2.0;  // is drawn, below the axis
    inputs.GearRatio[5] = 0.0;
    const std::int64_t image = Plot(inputs, 4000, 230);
    for (int gear = 0; gear < 6; ++gear) {
        const QRect legend(70, 40 + 20 * gear, 44, 17);
        EXPECT_EQ(InkIn(image, legend).Pixels > 80, gear < 5) << gear;
    }
    for (const std::size_t gear : {0U, 1U, 2U, 3U}) {
        const std::int64_t speed = GearTopSpeed(inputs, gear, 4000, SpeedUnit::Kmh);
        const int endY = 500 - 2 * static_cast<int>(speed);
        EXPECT_EQ(GearOf(PixelOf(image, 360, endY)), gear);
        EXPECT_EQ(GearOf(PixelOf(image, 362, endY - 2)), -1) << gear;
    }
    EXPECT_EQ(GearOf(PixelOf(image, 70, 508)), 4);
}

}  // namespace
}  // namespace rotavel
