#include "app/speed_chart.h"

#include <malloc.h>
#include <optional>
#include <tuple>

#include <QPainter>
#include <QScreen>

#include "app/chart_plot.h"
#include "app/chart_top_speed.h"
#include "app_test.h"
#include "draw/vector_drawing.h"
#include "gui/canvas_gadget.h"
#include "gui/font.h"
#include "gui/window.h"

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
    const std::tuple<std::array<double, GearCount>, std::int64_t, SpeedUnit, std::int64_t> cases[] =
        {{{4}, 3000, SpeedUnit::Mph, 60},      // the final drive in the place of first gear alone
         {{8, 1}, 3175, SpeedUnit::Kmh, 200},  // 190.5 counts as 190, which is not above
         {{4, 2, 1, -1}, 3000, SpeedUnit::Kmh, -170}};
    for (const auto& [ratios, maxRpm, unit, top] : cases) {
        std::int64_t topGearIndex = 0;
        inputs.GearRatio = ratios;
        EXPECT_EQ(TopSpeedForChart(inputs, 1, maxRpm, unit, topGearIndex), top) << maxRpm;
    }
    inputs.GearRatio = {3};
    EXPECT_EQ(GearTopSpeed(inputs, 0, 9325, SpeedUnit::Kmh), 186) << "186.5";
}

constexpr std::int64_t chart = 1;
constexpr std::int64_t magnifier = 2;
constexpr std::int64_t magnifierImage = 64;

class SpeedChartTest : public AppTest {
  protected:
    // A 180/55 R17 that reaches 187 km/h at 9000 rpm in sixth.
    void SetUp() override {
        Start(
            "[Settings]\nManufacturer = Maker\nModell = Model 5\nMaxRPM = 9000\n"
            "RearWheelWidth = 180\nRearWheelPercentHeight = 55\nRearWheelDiameter = 17\n"
            "PrimaryRatio = 2.33\nFinalDriveRatio = 2.6\nGear1Ratio = 3\nGear6Ratio = 0.94\n");
    }
    void Close() {
        AskToClose(chart);
        Run();
    }
    static bool MagnifierIsVisible() { return View(magnifierImage)->window()->isVisible(); }
};

TEST_F(SpeedChartTest, OpensOverTheMainWindowAndGivesItBack) {
    Push(GraphicButton);
    const QWidget& window = *View(ChartCanvas)->window();
    EXPECT_EQ(window.windowTitle(), "Rotavel V1.55 Graphic");
    EXPECT_EQ(View(ChartCanvas)->parentWidget()->size(), QSize(820, 490 + 24));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(View(ChartCanvas)->geometry(), QRect(10, 10, 800, 470));
    EXPECT_EQ(View(ChartCanvas)->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(StatusField(ChartCanvas).alignment(), Qt::AlignCenter);
    EXPECT_EQ(StatusField(ChartCanvas).width(), 450);
    EXPECT_TRUE(WindowIsDisabled(MainWindow));
    EXPECT_FALSE(MagnifierIsVisible());
    const std::int64_t plot = program.Chart.ChartImage;
    Close();
    EXPECT_FALSE(ImageExists(plot));
    EXPECT_FALSE(WindowExists(chart) || WindowExists(magnifier) || WindowIsDisabled(MainWindow));
    EXPECT_EQ(KeyWindowNumber(), MainWindow);
    EXPECT_EQ(StatusText(TyreWidthField), u"Maker - Model 5") << "the chart's heading is another";
}

TEST_F(SpeedChartTest, ReadsOutAndMagnifiesWhatIsUnderThePointer) {
    SetGadgetText(FinalRatioField, u"1.6156");
    SetGadgetText(MaxRpmField, u"8750");
    SetGadgetState(SpeedUnitBox, 1);
    Push(GraphicButton);
    Press("Right");  // the cross-hair comes in, in the middle
    Run();
    EXPECT_EQ(StatusText(ChartCanvas, 1), u"4362 rpm  -  93 mph");
    const std::tuple<int, int, const char16_t*> cases[] = {{740, 40, u"8750 rpm  -  190 mph"},
                                                           {40, 421, u"0 rpm  -  0 mph"},
                                                           {39, 420, u""},
                                                           {40, 422, u""},
                                                           {741, 40, u""},
                                                           {740, 38, u""}};
    for (const auto& [x, y, text] : cases) {
        PointAt(200, 200);
        EXPECT_TRUE(MagnifierIsVisible());
        PointAt(x, y);
        EXPECT_EQ(StatusText(ChartCanvas, 1), text) << x << ", " << y;
        EXPECT_EQ(MagnifierIsVisible(), *text != 0) << x << ", " << y;
    }
    EXPECT_EQ(StatusField(ChartCanvas, 1).alignment(), Qt::AlignCenter);
    EXPECT_EQ(StatusField(ChartCanvas, 1).geometry().right(), 794);

    PointAt(200, 200);
    PointAt(45, 415);  // where nothing is like what lies across
    const QImage plot = View(ChartCanvas)->grab().toImage();
    const QWidget& glass = *View(magnifierImage)->window();
    const QImage shown = glass.screen()->grabWindow(glass.winId()).toImage();
    ASSERT_EQ(shown.deviceIndependentSize(), QSizeF(100, 100));
    for (int pixel = 0; pixel < 100 * 100; ++pixel) {
        const int x = pixel % 100 / 5 - 10;
        const int y = pixel / 500 - 10;
        ASSERT_EQ(PixelOf(shown, pixel % 100, pixel / 100),
                  x == 0 || y == 0 ? Black : PixelOf(plot, 45 + x, 415 + y))
            << x << ", " << y;
    }
    WindowSetBounds(chart, WindowGetX(chart) - 30, WindowGetY(chart) + 30, IgnoreValue,
                    IgnoreValue);
    Run();
    EXPECT_EQ(WindowGetX(magnifier), WindowGetX(chart) + WindowGetWidth(chart, OuterFrame));
    EXPECT_EQ(WindowGetY(magnifier), WindowGetY(chart)) << "it goes where the chart goes";
    EXPECT_EQ(KeyWindowNumber(), chart);
    WindowCreate(3, 0, 0, 50, 50);
    WindowGetX(3);  // which brings it to the screen
    Run();
    EXPECT_FALSE(MagnifierIsVisible()) << "another window has the keyboard";
}

TEST_F(SpeedChartTest, OddValuesLeaveNothingDisabled) {
    const std::tuple<const char16_t*, const char16_t*, bool> cases[] = {
        {u"-900", u"2.6", true},  // a sliver of a chart
        {u"9223372036854775807", u"2.6", false},
        {u"9000", u"0.0000000000000005", false},  // 10^18 km/h
        {u"250", u"0.001", true}};                // as high as a window can be, and hardly wide
    for (const auto& [maxRpm, finalDrive, opens] : cases) {
        SetGadgetText(MaxRpmField, maxRpm);
        SetGadgetText(FinalRatioField, finalDrive);
        ShowSpeedChart(program.Chart);
        ASSERT_EQ(WindowExists(chart), opens) << ToUtf8(maxRpm);
        EXPECT_EQ(WindowIsDisabled(MainWindow), opens) << ToUtf8(maxRpm);
        if (opens) {
            Close();
        }
    }
}

TEST_F(SpeedChartTest, OpeningManyTimesLeavesNothingBehind) {
    const auto openAndClose = [this](int times) {
        for (int i = 0; i < times; ++i) {
            Push(GraphicButton);
            PointAt(300, 300);
            PointAt(310, 300);
            Close();
        }
        return mallinfo2().uordblks + mallinfo2().hblkhd;
    };
    const std::size_t memory = openAndClose(2);
    // A plot takes 1.5 million bytes, a magnified piece of it 40 thousand.
    EXPECT_LT(openAndClose(20), memory + 500'000);
}

}  // namespace
}  // namespace rotavel
