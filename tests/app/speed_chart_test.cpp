#include "app/speed_chart.h"

#include <QApplication>
#include <QTest>
#include <QWindow>

#include "app_test.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr std::int64_t chart = 1;
constexpr std::int64_t magnifier = 2;
constexpr std::int64_t canvas = 63;
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

    void Open() const { Push(GraphicButton); }
    void Close() const {
        AskToClose(chart);
        Run();
    }
    void PointAt(int x, int y) const {
        const QPoint place = View(canvas)->mapTo(Native(chart), QPoint(x, y));
        QTest::mouseMove(Native(chart)->windowHandle(), place);
        Run();
    }
};

TEST_F(SpeedChartTest, OpensOverTheMainWindowAndGivesItBack) {
    Open();
    ASSERT_TRUE(WindowExists(chart));
    EXPECT_EQ(Native(chart)->windowTitle(), "Rotavel V1.55 Graphic");
    EXPECT_EQ(WindowGetWidth(chart), 820);
    EXPECT_EQ(WindowGetHeight(chart), 490 + 24);
    EXPECT_EQ(View(canvas)->geometry(), QRect(10, 10, 800, 470));
    EXPECT_EQ(StatusText(chart), u"Maker- Model 5");
    EXPECT_TRUE(WindowIsDisabled(MainWindow));
    EXPECT_FALSE(Native(magnifier)->isVisible());
    EXPECT_EQ(PixelOf(View(canvas)->grab().toImage(), 400, 420), Black) << "the rpm axis";
    Close();
    EXPECT_FALSE(WindowExists(chart));
    EXPECT_FALSE(WindowExists(magnifier));
    EXPECT_FALSE(WindowIsDisabled(MainWindow));
    EXPECT_EQ(KeyWindowNumber(), MainWindow);
}

TEST_F(SpeedChartTest, ReadsOutWhatIsUnderThePointer) {
    const struct {
        int X, Y;
        const char16_t* Text;
    } cases[] = {{380, 228, u"4250 rpm  -  96 mph"},
                 {760, 40, u"9000 rpm  -  190 mph"},
                 {40, 421, u"0 rpm  -  0 mph"},
                 {39, 420, u""},
                 {40, 422, u""},
                 {761, 40, u""},
                 {760, 38, u""},
                 {-5, 200, u""}};
    SetGadgetText(FinalRatioField, u"1.6156");
    SetGadgetState(SpeedUnitBox, 1);
    Open();
    for (const auto& [x, y, text] : cases) {
        PointAt(200, 200);
        EXPECT_TRUE(Native(magnifier)->isVisible());
        PointAt(x, y);
        EXPECT_EQ(StatusText(chart, 1), text) << x << ", " << y;
        EXPECT_EQ(Native(magnifier)->isVisible(), *text != 0) << x << ", " << y;
    }
    PointAt(200, 200);
    WindowCreate(3, 0, 0, 50, 50);
    WindowGetX(3);  // which brings it to the screen
    Run();
    EXPECT_FALSE(Native(magnifier)->isVisible()) << "another window has the keyboard";
}

TEST_F(SpeedChartTest, MagnifierShowsThePlotFiveTimesEnlarged) {
    Open();
    PointAt(200, 415);
    const QImage plot = View(canvas)->grab().toImage();
    const QImage shown = View(magnifierImage)->grab().toImage();
    ASSERT_EQ(shown.deviceIndependentSize(), QSizeF(100, 100));
    for (int pixel = 0; pixel < 100 * 100; ++pixel) {
        const int x = pixel % 100 / 5 - 10;
        const int y = pixel / 500 - 10;
        const bool onCross = x == 0 || y == 0;
        ASSERT_EQ(PixelOf(shown, pixel % 100, pixel / 100),
                  onCross ? Black : PixelOf(plot, 200 + x, 415 + y))
            << x << ", " << y;
    }
}

TEST_F(SpeedChartTest, OddValuesLeaveNothingDisabled) {
    const struct {
        const char16_t *MaxRpm, *FinalDrive, *SixthGear;
        bool Opens;
    } cases[] = {
        {u"-900", u"2.6", u"0.94", true},  // a sliver of a chart
        {u"9223372036854775807", u"2.6", u"0.94", false},
        {u"9000", u"0.0000000000000005", u"0.94", false},  // 10^18 km/h
        {u"250", u"0.001", u"0.94", true},  // as high as a window can be, and hardly wide
        {u"9000", u"2.6", u"", true},  // the remembered top gear has no ratio any more
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(&each - cases);
        SetGadgetText(MaxRpmField, each.MaxRpm);
        SetGadgetText(FinalRatioField, each.FinalDrive);
        SetGadgetText(GearRatioField + 5, each.SixthGear);
        ShowSpeedChart();
        ASSERT_EQ(WindowExists(chart), each.Opens);
        EXPECT_EQ(WindowIsDisabled(MainWindow), each.Opens);
        if (each.Opens) {
            Close();
        }
        EXPECT_FALSE(WindowIsDisabled(MainWindow));
    }
}

TEST_F(SpeedChartTest, OpeningManyTimesLeavesNothingBehind) {
    const auto openAndClose = [this](int times) {
        for (int i = 0; i < times; ++i) {
            Open();
            PointAt(300, 300);
            Close();
        }
    };
    openAndClose(1);
    const auto widgets = QApplication::allWidgets().size();
    openAndClose(100);
    EXPECT_EQ(QApplication::allWidgets().size(), widgets);
}

}  // namespace
}  // namespace rotavel
