#include "app/main_window.h"

#include <tuple>

#include <QComboBox>
#include <QLineEdit>
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
std::string DescriptionOf(std::int64_t number) {
    const QWidget& view = *View(number);
    const auto* const label = qobject_cast<const QLabel*>(&view);
    const auto* const entry = qobject_cast<const QLineEdit*>(&view);
    std::string kind = qobject_cast<const QComboBox*>(&view) != nullptr ? "C" : "B";
    if (label != nullptr) {
        const bool centred = label->alignment().testFlag(Qt::AlignHCenter);
        kind = label->alignment().testFlag(Qt::AlignRight) ? "L>" : centred ? "L|" : "L<";
    } else if (entry != nullptr) {
        QString text = "3.";
        int cursor = 0;
        kind = entry->validator()->validate(text, cursor) == QValidator::Invalid ? "D" : "E";
    }
    EXPECT_EQ(view.height(), 20) << number;
    return std::to_string(number) + " " + kind + " " + std::to_string(view.x()) + "," +
           std::to_string(view.y()) + " " + std::to_string(view.width()) + " " +
           ToUtf8(GetGadgetText(number)) + "\n";
}

// In the order in which they were made.
std::string GadgetsOfWindow() {
    std::string gadgets;
    for (const QObject* const child : View(TyreWidthField)->parentWidget()->children()) {
        for (std::int64_t number = 0; number < 100; ++number) {
            gadgets += View(number) == child ? DescriptionOf(number) : "";
        }
    }
    return gadgets;
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
    static std::string Menus() {
        const std::string menus = MenuOutline(MainWindow);
        return menus.substr(menus.find(",File("));  // after the application menu
    }
    void Choose(std::int64_t menuItem) {
        PostProgramEvent(MenuChosen, MainWindow, menuItem);
        Run();
    }
};

TEST_F(MainWindowTest, GadgetsAndMenusAreInTheirPlaces) {
    Start("");
    const std::string gadgets = GadgetsOfWindow();
    EXPECT_EQ(HashOf(gadgets), 0x62e9b09cafec164d) << gadgets;
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
}

TEST_F(MainWindowTest, EveryMotorcycleIsInTheMenuAndChosenWhole) {
    Start(DefaultSettingsText);
    EXPECT_EQ(HashOf(Menus()), 0x535348dc530ad01e) << Menus();
    SetGadgetText(GearSpeedField + 5, u"100");
    DisableGadget(PercentHeightField, 1);
    std::string chosen;
    for (std::int64_t item = 10; item < 69; ++item) {
        Choose(item);
        chosen += ToUtf8(Motorcycle() + Speeds()) + "\n";
    }
    EXPECT_EQ(HashOf(chosen), 0x55c45531e9f7febe) << chosen;
    EXPECT_FALSE(View(PercentHeightField)->isEnabled()) << "only typing a width changes that";
}

TEST_F(MainWindowTest, MakersStandInOrderOfFirstAppearance) {
    Start(
        "Key = 1\r\n[B - one]\r\nMaxRPM = x\r\n[Settings]\r\n[a-b-c]\r\n[settings]\r\n"
        "[ B-two ]\r\n[lone ]\r\n[b - three]\r\n[B - one]\r\nMaxRPM = 7\r\n");
    EXPECT_EQ(Menus(),
              ",File(Motorcycle(B(one,two,one,),a(b-c,),(settings,lone,),b(three,),),-,"
              "Quit,),Help(About,),");
    for (const std::int64_t item : {10, 9, 18}) {
        Choose(item);
        EXPECT_EQ(Motorcycle(), u"B - one|0|0|0|0|0|0|0|0|0|0|0|0|0|") << item;
    }
    Choose(12);
    EXPECT_EQ(GetGadgetText(MaxRpmField), u"7");
}

TEST_F(MainWindowTest, AboutAndQuit) {
    Start("");
    EXPECT_EQ(MessageDuring([this] { Choose(AboutMenuItem); }),
              u"About|Rotavel V1.55\n\n\u00A9 2026 The Rotavel authors\n\n"
              u"Because some Guzzis don't have a revolution counter :(\n");
    const std::pair<std::int64_t, std::int64_t> ends[] = {
        {MainWindow, QuitMenuItem}, {MainWindow, QuitItem}, {-1, QuitItem}};
    for (const auto& [window, item] : ends) {  // the last one as the session ends
        PostProgramEvent(MenuChosen, window, item);
        RunMainLoop(program);
        EXPECT_EQ(PeekEvent(), 0U) << item;
    }
}

TEST_F(MainWindowTest, InchWidthDisablesThePercentHeight) {
    Start(FiveSpeed);
    const std::pair<const char*, const char16_t*> steps[] = {
        {"3", u"3|80 |"}, {"3.2", u"3.2||off"}, {"32", u"32||"}};
    for (const auto& [typed, size] : steps) {
        TypeOver(TyreWidthField, typed);
        EXPECT_EQ(TyreSize(), size) << typed;
    }
    SetGadgetText(PercentHeightField, u"80");
    for (const auto& [width, size] : {std::pair(u"", u"|80|"), {u"3,5", u"3.50|80|off"}}) {
        SetGadgetText(TyreWidthField, width);
        Push(CalcSpeedButton);
        EXPECT_EQ(TyreSize(), size);
    }
}

TEST_F(MainWindowTest, TeethGiveRatios) {
    Start(FiveSpeed);
    const std::tuple<std::int64_t, std::int64_t, std::int64_t> pairs[] = {
        {49, 50, 51}, {53, 54, 55}, {18, 24, 30}, {19, 25, 31},
        {20, 26, 32}, {21, 27, 33}, {22, 28, 34}, {23, 29, 35}};
    for (const auto& [driving, driven, ratio] : pairs) {
        TypeOver(driven, "26");
        EXPECT_EQ(GetGadgetText(ratio), u"+Infinity");
        TypeOver(driving, "11");
        EXPECT_EQ(GetGadgetText(ratio), u"2.3636");
    }
    TypeOver(PrimaryRatioField, "1");
    Push(GearRatioField);  // the keyboard alone changes nothing
    EXPECT_EQ(StatusText(TyreWidthField), u"Moto - Old");
    for (const std::int64_t ratio : {GearRatioField, GearRatioField + 5}) {
        SetCurrentMotorcycle(u"Moto", u"Old");
        TypeOver(ratio, "1");
        EXPECT_EQ(StatusText(TyreWidthField), u"") << "it is no stored motorcycle's any more";
        EXPECT_EQ(CurrentManufacturer() + CurrentModel(), u"");
    }
}

TEST_F(MainWindowTest, CalculatesSpeedsAndEngineSpeeds) {
    Start(FiveSpeed);
    SetGadgetText(MaxRpmField, u"9000");
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
