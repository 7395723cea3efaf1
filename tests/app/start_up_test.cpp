#include "app/start_up.h"

#include "app/default_settings.h"
#include "app_test.h"

namespace rotavel {
namespace {

using namespace tests;

using StartUpTest = AppTest;

TEST_F(StartUpTest, FirstStartWritesTheDefaultFile) {
    EXPECT_EQ(SettingsPath(u"/opt/Ro.tavel/bin/Ro.tavel"),
              u"/opt/Ro.tavel/bin/../Resources/Ro.tavel.ini");
    ASSERT_TRUE(StartUp(program, ToUtf16(file)));
    Run();
    EXPECT_TRUE(View(TyreWidthField)->hasFocus());
    EXPECT_EQ(ReadFile(file), DefaultSettingsText);
    EXPECT_EQ(HashOf(DefaultSettingsText), 0xbb082e841f833008);
    EXPECT_EQ(Motorcycle() + GetGadgetText(SpeedUnitBox), u" - ||||||||||||0|0|km/h");
    EXPECT_EQ(StatusField(MaxRpmField).width(), 445);
    EXPECT_EQ(StatusField(MaxRpmField).alignment(), Qt::AlignCenter);
}

TEST_F(StartUpTest, WithoutAPlaceForItsSettingsItSaysSo) {
    const std::u16string path = ToUtf16(folder.File("missing/Rotavel.ini"));
    EXPECT_EQ(MessageDuring([&] { EXPECT_FALSE(StartUp(program, path)); }),
              u"Error|No ini file found");
    EXPECT_EQ(View(TyreWidthField), nullptr);
}

TEST_F(StartUpTest, ValuesLastFromRunToRun) {
    const std::string rest = "\n[A - one]\nMaxRPM = 1\n";
    Start(FiveSpeed + rest);
    EXPECT_EQ(Motorcycle(),
              u"Moto - Old|130|80 |17|2,3636|1.6429|1.2778|1.0556|0.9000||1,3125|"
              u"4.125|4000|4000|");
    EXPECT_EQ(GetGadgetState(SpeedUnitBox), 0);
    SettingsSelectGroup(u"A - one");
    ShutDown(program);
    EXPECT_EQ(ReadFile(file), "\xEF\xBB\xBF\n" + FiveSpeed + rest);

    Start("[Settings]\nSpeedType = MPH\nRearWheelWidth = 3.25\nRearWheelPercentHeight = 80\n");
    EXPECT_EQ(Motorcycle() + TyreSize(), u" - |3.25|||||||||||8750|8750|3.25||off");
    SetGadgetText(GearRatioField + 1, u"\u00BD x");
    SetGadgetText(MaxRpmField, u"");
    ShutDown(program);
    EXPECT_EQ(ReadFile(file),
              "\xEF\xBB\xBF\n[Settings]\nSpeedType = mph\nRearWheelWidth = 3.25\n"
              "RearWheelPercentHeight = \nManufacturer = \nModell = \nMaxRPM = 0\n"
              "RearWheelDiameter = \nGear1Ratio = \nGear2Ratio = \u00BD x\nGear3Ratio = \n"
              "Gear4Ratio = \nGear5Ratio = \nGear6Ratio = \nPrimaryRatio = \nFinalDriveRatio = \n");
}

}  // namespace
}  // namespace rotavel
