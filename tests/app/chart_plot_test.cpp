#include "app/chart_plot.h"

#include <optional>
#include <tuple>

#include <QPainter>

#include "app/chart_top_speed.h"
#include "app/main_window.h"
#include "draw/vector_drawing.h"
#include "gui/font.h"
#include "tests/support/pixels.h"

namespace rotavel {
namespace {

using namespace tests;

// A chart of the default file's first motorcycle up to 8100 rpm, with the speeds at which the lines
// of the gears end.
struct Plot {
    double FifthGear, SixthGear;
    int TopSpeed;
    std::array<std::optional<int>, GearCount> Tops;

    static constexpr int Right = 680;  // the plot's edge; the lines end at 688
    int Axis() const { return 2 * TopSpeed + 40; }
    bool IsNearLine(int x, int y) const {
        return x >= 39 && x <= 689 && std::ranges::any_of(Tops, [&](std::optional<int> top) {
                   return top && std::abs(Axis() - *top * (x - 40) / 324.0 - y) < 2;
               });
    }
};

// A chart as it should be, without the gears' lines.
QImage Expected(const Plot& plot) {
    QImage image(Plot::Right + 40, plot.Axis() + 50, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    const auto text = [&](int size, int degrees, int x, int y, const QString& shown) {
        QFont font("Arial");
        font.setPixelSize(size);
        painter.setFont(font);
        painter.setTransform(QTransform::fromTranslate(x, y).rotate(degrees));
        painter.drawText(QPointF(0, QFontMetricsF(font, &image).ascent()), shown);
        painter.resetTransform();
    };
    painter.fillRect(20, plot.Axis(), Plot::Right + 1, 1, Qt::black);
    painter.fillRect(40, 20, 1, plot.Axis() + 1, Qt::black);
    for (int x = 60; x <= Plot::Right; x += 20) {
        text(10, -90, x - 5, plot.Axis() + 45, QString::number((x - 40) / 20 * 250));
        painter.fillRect(x, plot.Axis() - 10, 1, 21, Qt::black);
    }
    for (int y = 40; y <= plot.Axis(); y += 20) {
        text(10, 0, 5, y - 5, QString::number((plot.Axis() - y) / 2));
        painter.fillRect(30, y, 21, 1, Qt::black);
    }
    // Level lines of dots to the end of the plot; upright ones down to 580 whatever its height.
    for (int x = 20; x <= Plot::Right; x += 10) {
        const int bottom = x % 20 == 0 && x >= 60 ? std::max(plot.Axis(), 580) : plot.Axis();
        for (int y = 40; y <= bottom; y += 10) {
            painter.fillRect(x, y, 1, 1, QColor(0, 0, 0, 200));  // a dot's part of its pixel
        }
    }
    const QColor colours[] = {0xFF0000, 0x00FF00, 0x0000FF, 0xFF8000, 0x00FFFF, 0xFF00FF};
    for (int gear = 0; gear < 6 && plot.Tops.at(static_cast<std::size_t>(gear)); ++gear) {
        painter.setPen(colours[gear]);
        text(14, 0, 70, 40 + 20 * gear, QString::number(gear + 1) + " gear");
    }
    return image;
}

using ChartPlotTest = DrawTest;

TEST_F(ChartPlotTest, EveryPixelIsAsItShouldBe) {
    const Plot plots[] = {
        {0.9355, 0.8, 230, {80, 106, 133, 161, 192, 225}},
        // So high that the grid's upright lines end between the axis and the image's edge, with a
        // gear that is drawn below the axis and one that there is not.
        {-2.0, 0.0, 260, {80, 106, 133, 161, -90, std::nullopt}},
    };
    FontLoad(ProgramFont, u"Arial", 8);
    for (const Plot& plot : plots) {
        const QImage expected = Expected(plot);
        const std::int64_t image = ImageCreate(AnyNumber, expected.width(), expected.height());
        EXPECT_TRUE(VectorBegin(ImageVectorTarget(image)));
        DrawPlot({197.85750532308518,
                  1.4583,
                  3.6667,
                  {2.2353, 1.7, 1.3478, 1.1154, plot.FifthGear, plot.SixthGear}},
                 8100, plot.TopSpeed, SpeedUnit::Kmh);
        VectorEnd();
        for (int pixel = 0; pixel < expected.width() * expected.height(); ++pixel) {
            const int x = pixel % expected.width();
            const int y = pixel / expected.width();
            const QColor shown(PixelOf(image, x, y));
            const QColor right(expected.pixel(x, y));
            ASSERT_TRUE(plot.IsNearLine(x, y) || (std::abs(shown.red() - right.red()) < 20 &&
                                                  std::abs(shown.green() - right.green()) < 20 &&
                                                  std::abs(shown.blue() - right.blue()) < 20))
                << x << ", " << y << " is " << shown.name().toStdString();
        }
    }
}

TEST_F(ChartPlotTest, ReachesToTheNextTenAboveTheTopGearsSpeed) {
    // 0.06 km/h per rpm in a gear of ratio 1, without rounding errors.
    GearInputs inputs = {.Circumference = 100, .PrimaryRatio = 0.5, .FinalDriveRatio = 2};
    const std::tuple<std::array<double, GearCount>, std::int64_t, SpeedUnit, std::int64_t,
                     std::int64_t>
        cases[] = {
            {{4}, 3000, SpeedUnit::Mph, 0, 60},  // the final drive in the place of first gear alone
            {{4}, 3000, SpeedUnit::Kmh, 5, 50},  // the chart before had a sixth gear
            {{8, 1}, 3175, SpeedUnit::Kmh, 0, 200},  // 190.5 counts as 190, which is not above
            {{4, 2, 1, -1}, 3000, SpeedUnit::Kmh, 0, -170}};
    for (const auto& [ratios, maxRpm, unit, before, top] : cases) {
        std::int64_t topGearIndex = before;
        inputs.GearRatio = ratios;
        EXPECT_EQ(TopSpeedForChart(inputs, maxRpm, unit, topGearIndex), top) << maxRpm;
    }
    inputs.GearRatio = {3};
    EXPECT_EQ(GearTopSpeed(inputs, 0, 9325, SpeedUnit::Kmh), 186) << "186.5";
    inputs.GearRatio = {1e-300};
    EXPECT_EQ(GearTopSpeed(inputs, 0, 1, SpeedUnit::Kmh), INT64_MAX);
    EXPECT_EQ(GearTopSpeed({}, 0, 1, SpeedUnit::Kmh), 0) << "not a number";
}

}  // namespace
}  // namespace rotavel
