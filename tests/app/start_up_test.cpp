#include "app/start_up.h"

#include <csignal>
#include <sys/resource.h>

#include "app/default_settings.h"
#include "app_test.h"

namespace rotavel {
namespace {

using namespace tests;

const std::string LastValues =
    "[Settings]\nManufacturer = Moto\nModell = Old\nMaxRPM = 4000\nRearWheelWidth = 130\n"
    "RearWheelPercentHeight = 80 \nRearWheelDiameter = 17\nGear1Ratio = 2,3636\n"
    "Gear2Ratio = 1.6429\nGear3Ratio = 1.2778\nGear4Ratio = 1.0556\nGear5Ratio = 0.9000\n"
    "Gear6Ratio = 0.8\nPrimaryRatio = 1,3125\nFinalDriveRatio = 4.125\nSpeedType = km/h\n";

class StartUpTest : public AppTest {
  protected:
    // All that [Settings] gives, and what it makes of the percent field and the status bar.
    static std::u16string Shown() {
        return Texts({11, 1, 3, 5, 30, 31, 32, 33, 34, 35, 51, 55, 57, 60}) +
               (View(PercentHeightField)->isEnabled() ? u"" : u"off|") + StatusText(MaxRpmField);
    }
};

TEST_F(StartUpTest, FirstStartWritesTheDefaultFile) {
    EXPECT_EQ(SettingsPath(u"/opt/Ro.tavel/bin/Ro.tavel"),
              u"/opt/Ro.tavel/bin/../Resources/Ro.tavel.ini");
    ASSERT_TRUE(StartUp(program, ToUtf16(file)));
    Run();
    EXPECT_TRUE(View(TyreWidthField)->hasFocus());
    EXPECT_EQ(ReadFile(file), DefaultSettingsText);
    EXPECT_EQ(HashOf(DefaultSettingsText), 0xbb082e841f833008);
    EXPECT_EQ(Shown(), u"km/h||||||||||||0|0| - ");
    EXPECT_EQ(StatusField(MaxRpmField)->width(), 445);
    EXPECT_EQ(StatusField(MaxRpmField)->alignment(), Qt::AlignCenter);
}

TEST_F(StartUpTest, WithoutAPlaceForItsSettingsItSaysSo) {
    const std::u16string told = u"Error|No ini file found";
    const auto start = [this](const std::string& path) {
        return MessageDuring([&] { EXPECT_FALSE(StartUp(program, ToUtf16(path))) << path; });
    };
    EXPECT_EQ(start(folder.File("missing/Rotavel.ini")), told);

    // On a full disk no empty file stays behind for the next start to read.
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit full = {.rlim_cur = 1000, .rlim_max = limit.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &full);
    EXPECT_EQ(start(file), told);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(View(TyreWidthField), nullptr);
}

TEST_F(StartUpTest, ValuesLastFromRunToRun) {
    const std::string rest = "\n[A - one]\nMaxRPM = 1\n";
    Start(LastValues + rest);
    EXPECT_EQ(Shown(),
              u"km/h|130|80 |17|2,3636|1.6429|1.2778|1.0556|0.9000|0.8|1,3125|4.125|4000|"
              u"4000|Moto - Old");
    SettingsSelectGroup(u"A - one");
    ShutDown(path);
    EXPECT_EQ(ReadFile(file), "\xEF\xBB\xBF\n" + LastValues + rest);

    Start("[Settings]\nSpeedType = MPH\nRearWheelWidth = 3.25\nRearWheelPercentHeight = 80\n");
    EXPECT_EQ(Shown(), u"mph|3.25|||||||||||8750|8750|off| - ");
    SetGadgetText(GearRatioField + 1, u"\u00BD x");
    SetGadgetText(MaxRpmField, u"");
    ShutDown(path);
    EXPECT_EQ(ReadFile(file),
              "\xEF\xBB\xBF\n[Settings]\nSpeedType = mph\nRearWheelWidth = 3.25\n"
              "RearWheelPercentHeight = \nManufacturer = \nModell = \nMaxRPM = 0\n"
              "RearWheelDiameter = \nGear1Ratio = \nGear2Ratio = \u00BD x\nGear3Ratio = \n"
              "Gear4Ratio = \nGear5Ratio = \nGear6Ratio = \nPrimaryRatio = \nFinalDriveRatio = \n");
}

}  // namespace
}  // namespace rotavel
