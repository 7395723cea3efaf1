#include "app/main_window.h"

#include <algorithm>
#include <map>

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QValidator>

#include "app/current_motorcycle.h"
#include "app/default_settings.h"
#include "app_test.h"
#include "gui/menu.h"
#include "gui/window.h"

namespace rotavel {
namespace {

using namespace tests;

// A gadget's number, kind, place, width and text. Kinds: a label with its text to the right (L>),
// centred (L|) or to the left (L<), an entry (E) or one for digits (D), a choice (C), a button (B).
std::string DescriptionOf(std::int64_t number, const QWidget& view) {
    std::string kind = "?";
    if (const auto* label = qobject_cast<const QLabel*>(&view)) {
        const Qt::Alignment alignment = label->alignment();
        kind = alignment.testFlag(Qt::AlignRight)     ? "L>"
               : alignment.testFlag(Qt::AlignHCenter) ? "L|"
                                                      : "L<";
    } else if (const auto* edit = qobject_cast<const QLineEdit*>(&view)) {
        QString point = "3.";
        int cursor = 0;
        kind = edit->validator()->validate(point, cursor) == QValidator::Invalid ? "D" : "E";
    } else if (qobject_cast<const QComboBox*>(&view) != nullptr) {
        kind = "C";
    } else if (qobject_cast<const QPushButton*>(&view) != nullptr) {
        kind = "B";
    }
    std::string text = std::to_string(number) + " " + kind + " " + std::to_string(view.x()) + "," +
                       std::to_string(view.y()) + " " + std::to_string(view.width());
    text += view.height() == 20 ? "" : "!";
    return (text + " " + ToUtf8(kind == "C" ? u"" : GetGadgetText(number)));
}

// In the order in which they were made.
std::string GadgetsOfWindow() {
    std::map<const QObject*, std::int64_t> numbers;
    for (std::int64_t number = 0; number < 100; ++number) {
        numbers[View(number)] = number;
    }
    std::string gadgets;
    for (const QObject* const child : View(TyreWidthField)->parentWidget()->children()) {
        if (const auto found = numbers.find(child); found != numbers.end()) {
            gadgets += DescriptionOf(found->second, *View(found->second)) + ";";
        }
    }
    return gadgets;
}

// What makes a difference easy to find.
std::string OnLines(std::string list) {
    std::ranges::replace(list, ';', '\n');
    return list;
}

class MainWindowTest : public AppTest {
  protected:
    void TypeOver(std::int64_t field, std::string_view text) {
        ActivateGadget(field);
        Press(Qt::Key_A, Qt::ControlModifier);
        for (const char each : text) {
            Type({&each, 1});
            Run();
        }
    }
    void Choose(std::int64_t menuItem) {
        PostProgramEvent(MenuChosen, MainWindow, menuItem);
        Run();
    }
    static std::u16string Speeds() { return Texts({36, 37, 38, 39, 40, 41}); }
};

TEST_F(MainWindowTest, GadgetsAndMenusAreInTheirPlaces) {
    const std::string gadgets =
        "0 L> 10,10 80 Rear wheel;1 E 100,10 50 ;2 L< 160,10 10 /;3 D 180,10 30 ;"
        "4 L< 220,10 10 -;5 D 230,10 30 ;48 L> 10,50 80 Primary;49 D 100,50 40 ;"
        "50 D 150,50 40 ;51 E 200,50 50 ;6 L> 10,80 80 gear;8 L| 100,80 40 gw 1;"
        "9 L| 150,80 40 gw 2;10 L| 200,80 50 ratio;11 C 260,75 50 ;12 L> 10,100 80 1st;"
        "18 D 100,100 40 ;24 D 150,100 40 ;30 E 200,100 50 ;36 E 260,100 50 ----;"
        "42 B 320,100 70 Calc rpm;13 L> 10,130 80 2nd;19 D 100,130 40 ;25 D 150,130 40 ;"
        "31 E 200,130 50 ;37 E 260,130 50 ----;43 B 320,130 70 Calc rpm;14 L> 10,160 80 3rd;"
        "20 D 100,160 40 ;26 D 150,160 40 ;32 E 200,160 50 ;38 E 260,160 50 ----;"
        "44 B 320,160 70 Calc rpm;15 L> 10,190 80 4th;21 D 100,190 40 ;27 D 150,190 40 ;"
        "33 E 200,190 50 ;39 E 260,190 50 ----;45 B 320,190 70 Calc rpm;16 L> 10,220 80 5th;"
        "22 D 100,220 40 ;28 D 150,220 40 ;34 E 200,220 50 ;40 E 260,220 50 ----;"
        "46 B 320,220 70 Calc rpm;17 L> 10,250 80 6th;23 D 100,250 40 ;29 D 150,250 40 ;"
        "35 E 200,250 50 ;41 E 260,250 50 ----;47 B 320,250 70 Calc rpm;"
        "52 L> 10,290 80 Final drive;53 D 100,290 40 ;54 D 150,290 40 ;55 E 200,290 50 ;"
        "56 L> 10,330 80 Max RPM;57 D 100,330 50 8750;58 L| 100,370 50 rpm;59 L> 10,390 80 @;"
        "60 D 100,390 50 8750;61 B 160,390 80 Calc speed;62 B 100,420 140 Graphic;";
    Start("");
    EXPECT_EQ(OnLines(GadgetsOfWindow()), OnLines(gadgets));
    const QWidget& window = *View(TyreWidthField)->window();
    EXPECT_EQ(window.windowTitle().toStdU16String(),
              u"Rotavel V1.55 \u00A9 2026 The Rotavel authors");
    EXPECT_EQ(View(TyreWidthField)->parentWidget()->size(), QSize(450, 500));
    const QPoint middle = window.screen()->availableGeometry().center();
    EXPECT_LT((window.geometry().center() - middle).manhattanLength(), 10);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(View(GraphicButton)->font().family(), "Arial");
    EXPECT_EQ(View(GraphicButton)->font().pointSize(), 8);
    EXPECT_EQ(GetGadgetItemText(SpeedUnitBox, 0) + GetGadgetItemText(SpeedUnitBox, 1), u"km/hmph");
    EXPECT_EQ(MenuOutline(MainWindow).substr(MenuOutline(MainWindow).find(",File(")),
              ",File(Motorcycle(),-,Quit,),Help(About,),");
}

TEST_F(MainWindowTest, EveryMotorcycleIsInTheMenuAndChosenWhole) {
    Start(DefaultSettingsText);
    const std::string menus = MenuOutline(MainWindow);
    EXPECT_EQ(HashOf(menus.substr(menus.find(",File("))), 0x535348dc530ad01e) << menus;
    SetGadgetText(GearSpeedField + 5, u"100");
    DisableGadget(PercentHeightField, 1);
    std::string chosen;
    for (std::int64_t item = FirstMotorcycleMenuItem; item < 70;
         ++item) {  // one more than there are
        Choose(item);
        chosen += item == 69 ? ""
                             : ToUtf8(StatusText(TyreWidthField) + u"|" +
                                      Texts({1, 3, 5, 30, 31, 32, 33, 34, 35, 51, 55, 57, 60, 36,
                                             37, 38, 39, 40, 41}) +
                                      u"\n");
    }
    EXPECT_EQ(HashOf(chosen), 0x55c45531e9f7febe) << chosen;
    EXPECT_EQ(StatusText(TyreWidthField), u"MV Agusta - F3 675 / 800");
    EXPECT_FALSE(View(PercentHeightField)->isEnabled()) << "only typing a width changes that";
}

TEST_F(MainWindowTest, MenusReachTheCommands) {
    Start("[Settings]\nModell = Old\n[A - one]\n[B - two]\n[A - three]\n");
    ClickMenuTitle(MainWindow, 1);
    for (const Qt::Key key :
         {Qt::Key_Down, Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Return}) {
        Press(key);
    }
    Run();
    EXPECT_EQ(StatusText(TyreWidthField), u"A - three");
    EXPECT_EQ(MessageDuring([this] { Choose(AboutMenuItem); }),
              u"About|Rotavel V1.55\n\n\u00A9 2026 The Rotavel authors\n\n"
              u"Because some Guzzis don't have a revolution counter :(\n");
    EXPECT_EQ(MessageDuring([this] { Choose(AboutItem); }), u"");
    Choose(9);
    for (const auto& [window, item] :
         {std::pair(MainWindow, QuitMenuItem),
          {MainWindow, QuitItem},
          {std::int64_t{-1}, QuitItem}}) {  // the last: the session ends
        PostProgramEvent(MenuChosen, window, item);
        RunMainLoop(program);
        EXPECT_EQ(PeekEvent(), 0U) << item;
    }
}

TEST_F(MainWindowTest, InchWidthDisablesThePercentHeight) {
    Start(
        "[Settings]\nRearWheelPercentHeight = 80 \nRearWheelDiameter = 18\nPrimaryRatio = 1\n"
        "FinalDriveRatio = 1\nGear1Ratio = 1\n");
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
    SetGadgetText(PercentHeightField, u"80");
    for (const auto& [typed, shown] : {std::pair(u"", u""), {u"3,5", u"3.50"}}) {
        SetGadgetText(TyreWidthField, typed);
        Push(CalcSpeedButton);
        EXPECT_EQ(GetGadgetText(TyreWidthField), shown);
        EXPECT_EQ(View(PercentHeightField)->isEnabled(), *typed == 0);
        EXPECT_EQ(GetGadgetText(PercentHeightField), u"80") << "is only disabled";
    }
}

TEST_F(MainWindowTest, TeethGiveRatios) {
    Start("[Settings]\nManufacturer = Moto\nModell = Old\n");
    const struct {
        std::int64_t Driving, Driven, Ratio;
    } pairs[] = {{49, 50, 51}, {53, 54, 55}, {18, 24, 30}, {19, 25, 31},
                 {20, 26, 32}, {21, 27, 33}, {22, 28, 34}, {23, 29, 35}};
    for (const auto& [driving, driven, ratio] : pairs) {
        TypeOver(driven, "26");
        EXPECT_EQ(GetGadgetText(ratio), u"+Infinity");
        TypeOver(driving, "11");
        EXPECT_EQ(GetGadgetText(ratio), u"2.3636");
    }
    TypeOver(PrimaryRatioField, "1");
    EXPECT_EQ(StatusText(TyreWidthField), u"Moto - Old");
    for (const std::int64_t ratio : {GearRatioField, GearRatioField + 5}) {
        SetCurrentMotorcycle(u"Moto", u"Old");
        TypeOver(ratio, "1");
        EXPECT_EQ(StatusText(TyreWidthField), u"") << "it is no stored motorcycle's any more";
        EXPECT_EQ(CurrentManufacturer() + CurrentModel(), u"");
    }
}

TEST_F(MainWindowTest, CalculatesSpeedsAndEngineSpeeds) {
    Start(
        "[Settings]\nMaxRPM = 4000\nRearWheelWidth = 130\nRearWheelPercentHeight = 80\n"
        "RearWheelDiameter = 17\nGear1Ratio = 2,3636\nGear2Ratio = 1.6429\nGear3Ratio = 1.2778\n"
        "Gear4Ratio = 1.0556\nGear5Ratio = 0.9\nPrimaryRatio = 1,3125\nFinalDriveRatio = 4.125\n");
    Push(CalcSpeedButton);
    EXPECT_EQ(Speeds(), u"38|54|70|84|99|----|");
    Click(SpeedUnitBox);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    Run();
    EXPECT_EQ(Speeds(), u"23|34|43|52|62|----|");
    TypeOver(GearSpeedField + 2, "80,5");
    Push(CalcRpmButton + 2);
    const std::u16string calculated = u"----|----|80,5|----|----|----|7432";
    EXPECT_EQ(Speeds() + GetGadgetText(RpmField), calculated);

    // Nothing to calculate with leaves everything as it was.
    Push(CalcRpmButton + 1);
    Push(CalcRpmButton + 5);
    SetGadgetText(PrimaryRatioField, u"0");
    for (const std::int64_t button : {CalcSpeedButton, CalcRpmButton + 2, GraphicButton}) {
        Push(button);
    }
    EXPECT_EQ(Speeds() + GetGadgetText(RpmField), calculated);
    EXPECT_FALSE(WindowExists(1));
}

}  // namespace
}  // namespace rotavel
