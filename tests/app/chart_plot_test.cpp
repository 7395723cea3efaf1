#include "app/chart_plot.h"

#include <cmath>
#include <limits>
#include <optional>

#include <QColor>

#include "app/main_window.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "tests/support/pixels.h"
#include "text/number_text.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr std::int64_t Largest = std::numeric_limits<std::int64_t>::max();

// The first motorcycle of the default file, on its 180/55 R17.
GearInputs SixSpeed(double fifthGear, double sixthGear) {
    return {
        197.85750532308518, 1.4583, 3.6667, {2.2353, 1.7, 1.3478, 1.1154, fifthGear, sixthGear}};
}

using Tops = std::array<std::optional<int>, GearCount>;

// A chart as it should be: the plot's size, the speed at its top, and where each gear's line ends.
struct Expected {
    GearInputs Inputs;
    SpeedUnit Unit;
    int Width, Height;
    std::int64_t MaxRpm, TopSpeed;
    Tops Top;

    int Axis() const { return Height + 40; }  // the rpm axis's y

    bool IsAxisOrTick(int x, int y) const {
        return (y == Axis() && x >= 20 && x <= Width + 60) ||
               (x == 40 && y >= 20 && y <= Axis() + 20) ||
               (x % 20 == 0 && x >= 60 && x <= Width + 40 && std::abs(y - Axis()) <= 10) ||
               (y % 20 == 0 && y >= 40 && y <= Axis() && std::abs(x - 40) <= 10);
    }
    // Level lines of dots to the end of the plot; upright ones down to 580 whatever its height.
    bool IsDot(int x, int y) const {
        return x % 10 == 0 && y % 10 == 0 && y >= 40 && x <= Width + 40 &&
               ((y <= Axis() && x >= 20) || (y <= 580 && x % 20 == 0 && x >= 60));
    }
    bool IsNearLine(int x, int y) const {
        const double endX = 40 + static_cast<double>(MaxRpm) * 0.08;
        for (const std::optional<int>& top : Top) {
            if (top && x >= 39 && x <= endX + 1 &&
                std::abs(Axis() - 2 * *top * (x - 40) / (endX - 40) - y) < 1.7) {
                return true;
            }
        }
        return false;
    }
};

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

// A slanted line's pixel is this one or one beside it.
bool ShowsLine(const QImage& plot, int x, int y, int gear) {
    return GearOf(PixelOf(plot, x, y - 1)) == gear || GearOf(PixelOf(plot, x, y)) == gear ||
           GearOf(PixelOf(plot, x, y + 1)) == gear;
}

std::int64_t WhiteImage(const Expected& chart) {
    const std::int64_t image = ImageCreate(AnyNumber, chart.Width + 80, chart.Height + 90);
    EXPECT_TRUE(VectorBegin(ImageVectorTarget(image)));
    VectorSetColour(0xFFFFFFFF);
    PathAddBox(0, 0, chart.Width + 80.0, chart.Height + 90.0);
    PathFill();
    return image;
}

// Nothing but the texts of the chart.
std::int64_t TextsOf(const Expected& chart) {
    constexpr Colour colours[] = {0xFF0000FF, 0xFF00FF00, 0xFFFF0000,
                                  0xFF0080FF, 0xFFFFFF00, 0xFFFF00FF};
    const std::int64_t image = WhiteImage(chart);
    VectorSetColour(0xFF000000);
    VectorSetFont(FontHandle(ProgramFont), 10);
    for (int x = 60; x <= chart.Width + 40; x += 20) {
        VectorRotate(x - 5, chart.Height + 85, -90);
        PathMoveTo(x - 5, chart.Height + 85);
        VectorDrawText(IntegerToText((x - 40) / 20 * 250));
        VectorRotate(x - 5, chart.Height + 85, 90);
    }
    for (int y = 40; y <= chart.Axis(); y += 20) {
        PathMoveTo(5, y - 5);
        VectorDrawText(IntegerToText((chart.Axis() - y) / 2));
    }
    VectorSetFont(FontHandle(ProgramFont), 14);
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        VectorSetColour(colours[gear]);
        PathMoveTo(70, 40.0 + 20.0 * static_cast<double>(gear));
        VectorDrawText(
            chart.Top[gear] ? IntegerToText(static_cast<std::int64_t>(gear) + 1) + u" gear" : u"");
    }
    VectorEnd();
    return image;
}

using ChartPlotTest = DrawTest;

TEST_F(ChartPlotTest, EveryPixelIsAsItShouldBe) {
    const Expected charts[] = {
        {SixSpeed(0.9355, 0.8), SpeedUnit::Kmh, 640, 460, 8100, 230, {80, 106, 133, 161, 192, 225}},
        {SixSpeed(0.9355, 0.8), SpeedUnit::Mph, 640, 300, 8100, 150, {50, 66, 83, 100, 119, 140}},
        // So high that the grid's upright lines end between the axis and the image's edge, with a
        // gear that is drawn below the axis and one that there is not.
        {SixSpeed(-2.0, 0.0), SpeedUnit::Kmh, 640, 520, 8100, 260, {80, 106, 133, 161, -90, {}}},
    };
    FontLoad(ProgramFont, u"Arial", 8);
    for (const Expected& chart : charts) {
        const QImage texts = *FromHandle(ImageHandle(TextsOf(chart)));
        const std::int64_t image = WhiteImage(chart);
        DrawPlot(chart.Inputs, chart.MaxRpm, chart.TopSpeed, chart.Unit);
        VectorEnd();
        const QImage plot = *FromHandle(ImageHandle(image));
        int wrong = 0;
        for (int pixel = 0; pixel < (chart.Width + 80) * (chart.Height + 90) && wrong < 5;
             ++pixel) {
            const int x = pixel % (chart.Width + 80);
            const int y = pixel / (chart.Width + 80);
            const QRgb shown = PixelOf(plot, x, y);
            const bool isRight = chart.IsAxisOrTick(x, y) ? shown == Black || chart.IsNearLine(x, y)
                                 : chart.IsDot(x, y)
                                     ? shown != White && shown != Black
                                     : chart.IsNearLine(x, y) || shown == PixelOf(texts, x, y);
            wrong += isRight ? 0 : 1;
            EXPECT_TRUE(isRight) << "top " << chart.TopSpeed << ": " << x << ", " << y << " is "
                                 << std::hex << shown;
        }
        for (int gear = 0; gear < 6; ++gear) {
            const int top = chart.Top[static_cast<std::size_t>(gear)].value_or(-1000);
            for (const int x : {364, 684}) {
                EXPECT_TRUE(top < 0 ||
                            ShowsLine(plot, x, chart.Axis() - top * (x - 40) / 324, gear))
                    << "top " << chart.TopSpeed << ": gear " << gear << " at " << x;
            }
        }
    }
}

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

}  // namespace
}  // namespace rotavel
