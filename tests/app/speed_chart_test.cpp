#include "app/speed_chart.h"

#include <malloc.h>
#include <tuple>

#include <QScreen>

#include "app_test.h"
#include "gui/canvas_gadget.h"
#include "gui/window.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr std::int64_t chart = 1;
constexpr std::int64_t magnifier = 2;
constexpr std::int64_t magnifierImage = 64;

class SpeedChartTest : public AppTest {
  protected:
    // A 180/55 R17 that reaches 187 km/h at 9000 rpm in fifth, its top gear.
    void SetUp() override {
        Start(
            "[Settings]\nManufacturer = Maker\nModell = Model 5\nMaxRPM = 9000\n"
            "RearWheelWidth = 180\nRearWheelPercentHeight = 55\nRearWheelDiameter = 17\n"
            "PrimaryRatio = 2.33\nFinalDriveRatio = 2.6\nGear2Ratio = 3\nGear5Ratio = 0.94\n");
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
    QWidget& window = *View(ChartCanvas)->window();
    window.move(window.pos() + QPoint(-30, 30));  // as the rider does
    EXPECT_TRUE(QTest::qWaitFor([this] {
        Serve();
        return WindowGetX(magnifier) == WindowGetX(chart) + WindowGetWidth(chart, OuterFrame) &&
               WindowGetY(magnifier) == WindowGetY(chart);
    })) << "it goes where the chart goes";
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
