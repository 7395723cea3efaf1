#include "app/main_window.h"

#include "app_test.h"
#include "gui/menu.h"

namespace rotavel {
namespace {

using namespace tests;

const std::string LastValues =
    "[Settings]\nManufacturer = Moto\nModell = Old\nMaxRPM = 4000\nRearWheelWidth = 130\n"
    "RearWheelPercentHeight = 80 \nRearWheelDiameter = 17\nGear1Ratio = 2,3636\n"
    "Gear2Ratio = 1.6429\nGear3Ratio = 1.2778\nGear4Ratio = 1.0556\nGear5Ratio = 0.9000\n"
    "Gear6Ratio = \nPrimaryRatio = 1,3125\nFinalDriveRatio = 4.125\nSpeedType = km/h\n";
const std::string Motorcycles =
    "\n[A - one]\nGear1Ratio = 2.50\n\n[B - V35]\nRearWheelWidth = 3.25\n"
    "RearWheelDiameter = 18\nPrimaryRatio = 1.846\nGear1Ratio = 2.727\nGear2Ratio = 1\n"
    "FinalDriveRatio = 3.875\nMaxRPM = 8000\n\n[A - two]\n";

class MainWindowTest : public AppTest {
  protected:
    void SetUp() override { Start(LastValues + Motorcycles); }

    void TypeOver(std::int64_t field, std::string_view text) const {
        ActivateGadget(field);
        Press(Qt::Key_A, Qt::ControlModifier);
        for (const char each : text) {
            Type({&each, 1});
            Run();
        }
    }

    static std::u16string Texts(std::initializer_list<std::int64_t> gadgets) {
        std::u16string texts;
        for (const std::int64_t gadget : gadgets) {
            texts += GetGadgetText(gadget) + u"|";
        }
        return texts;
    }
    static std::u16string Speeds() { return Texts({36, 37, 38, 39, 40, 41}); }
};

TEST_F(MainWindowTest, MenuChoosesAmongTheMotorcycles) {
    EXPECT_EQ(MenuOutline(MainWindow).substr(MenuOutline(MainWindow).find(",File(")),
              ",File(Motorcycle(A(one,two,),B(V35,),),-,Quit,),Help(About,),");
    ClickMenuTitle(MainWindow, 1);
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return}) {
        Press(key);
    }
    Run();
    EXPECT_EQ(StatusText(MainWindow), u"B - V35");
    EXPECT_EQ(Texts({1, 3, 5, 51, 55, 57, 60}), u"3.25|0|18|1.846|3.875|8000|8000|");
    EXPECT_EQ(Texts({30, 31, 32, 33, 34, 35}), u"2.727|1|0|0|0|0|");
    EXPECT_TRUE(View(PercentHeightField)->isEnabled()) << "only typing a width disables it";
    for (const std::int64_t item : {11, 13}) {  // the last, and one more
        PostProgramEvent(MenuChosen, MainWindow, item);
        Run();
        EXPECT_EQ(StatusText(MainWindow), u"A - two");
    }
    PostProgramEvent(MenuChosen, -1, QuitItem);  // the session ends
    RunMainLoop(makers);
    EXPECT_EQ(PeekEvent(), 0U);
}

TEST_F(MainWindowTest, InchWidthDisablesThePercentHeight) {
    const struct {
        const char* Typed;
        bool Enabled;
        const char16_t* Percent;
    } steps[] = {{"3", true, u"80 "}, {"3.2", false, u""}, {"32", true, u""}};
    for (const auto& [typed, enabled, percent] : steps) {
        TypeOver(TyreWidthField, typed);
        EXPECT_EQ(View(PercentHeightField)->isEnabled(), enabled) << typed;
        EXPECT_EQ(GetGadgetText(PercentHeightField), percent) << typed;
    }
}

TEST_F(MainWindowTest, TeethGiveRatios) {
    const struct {
        std::int64_t Driving, Driven, Ratio;
    } pairs[] = {{49, 50, 51}, {53, 54, 55}, {18, 24, 30}, {20, 26, 32}, {23, 29, 35}};
    for (const auto& [driving, driven, ratio] : pairs) {
        TypeOver(driven, "26");
        EXPECT_EQ(GetGadgetText(ratio), u"+Infinity");
        TypeOver(driving, "11");
        EXPECT_EQ(GetGadgetText(ratio), u"2.3636");
        TypeOver(driven, "0");
        TypeOver(driving, "0");
        EXPECT_EQ(GetGadgetText(ratio), u"NaN");
    }
    TypeOver(PrimaryRatioField, "1");
    EXPECT_EQ(StatusText(MainWindow), u"Moto - Old");
    TypeOver(GearRatioField + 5, "1");
    EXPECT_EQ(StatusText(MainWindow), u"") << "it is no stored motorcycle's ratio any more";
}

TEST_F(MainWindowTest, CalculatesSpeedsAndEngineSpeeds) {
    Push(CalcSpeedButton);
    EXPECT_EQ(Speeds(), u"38|54|70|84|99|----|");
    Click(SpeedUnitBox);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    Run();
    EXPECT_EQ(Speeds(), u"23|34|43|52|62|----|");
    TypeOver(GearSpeedField + 2, "80,5");
    Push(CalcRpmButton + 2);
    EXPECT_EQ(Speeds() + GetGadgetText(RpmField), u"----|----|80,5|----|----|----|7432");

    // Nothing to calculate with leaves everything as it was.
    Push(CalcRpmButton + 1);
    SetGadgetText(PrimaryRatioField, u"0");
    for (const std::int64_t button : {CalcSpeedButton, CalcRpmButton + 2, GraphicButton}) {
        Push(button);
    }
    EXPECT_EQ(Speeds() + GetGadgetText(RpmField), u"----|----|80,5|----|----|----|7432");
    EXPECT_FALSE(WindowExists(1));

    SetGadgetText(TyreWidthField, u"3,5");
    Push(CalcSpeedButton);
    EXPECT_EQ(GetGadgetText(TyreWidthField), u"3.50");
    EXPECT_FALSE(View(PercentHeightField)->isEnabled());
}

TEST_F(MainWindowTest, KeepsItsValuesInTheSettings) {
    EXPECT_EQ(StatusText(MainWindow), u"Moto - Old");
    EXPECT_EQ(Texts({1, 3, 5, 57, 60}), u"130|80 |17|4000|4000|");
    SaveLastValues();
    SettingsClose();
    EXPECT_EQ(ReadFile(file), "\xEF\xBB\xBF\n" + LastValues + Motorcycles);

    Start("[Settings]\nSpeedType = MPH\n");
    EXPECT_EQ(Texts({SpeedUnitBox, MaxRpmField}), u"mph|8750|");
    EXPECT_EQ(StatusText(MainWindow), u" - ");
    SetGadgetText(GearRatioField + 1, u"\u00BD x");
    SetGadgetText(MaxRpmField, u"");
    SettingsSelectGroup(u"elsewhere");
    SaveLastValues();
    SettingsClose();
    EXPECT_EQ(ReadFile(file),
              "\xEF\xBB\xBF\n[Settings]\nSpeedType = mph\nManufacturer = \nModell = \nMaxRPM = 0\n"
              "RearWheelWidth = \nRearWheelPercentHeight = \nRearWheelDiameter = \n"
              "Gear1Ratio = \nGear2Ratio = \u00BD x\nGear3Ratio = \nGear4Ratio = \n"
              "Gear5Ratio = \nGear6Ratio = \nPrimaryRatio = \nFinalDriveRatio = \n");
}

}  // namespace
}  // namespace rotavel
