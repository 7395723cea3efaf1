#include "app/main_window.h"

#include <QAccessible>
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

// A gadget's number, kind, place, width and text, and what a screen reader is told: its role and
// name. Kinds: a label with its text to the right (L>), centred (L|) or to the left (L<), an entry
// (E) or one for digits (D), a choice (C), a button (B).
std::string DescriptionOf(std::int64_t number) {
    QWidget& view = *View(number);
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
    const auto* const read = QAccessible::queryAccessibleInterface(&view);
    const std::string name = read->text(QAccessible::Name).toStdString();
    if (label == nullptr) {
        EXPECT_EQ(view.toolTip().toStdString(), "<qt>" + name + "</qt>");
        EXPECT_EQ(read->text(QAccessible::Description).toStdString(), name);
    }
    return std::to_string(number) + " " + kind + " " + std::to_string(view.x()) + "," +
           std::to_string(view.y()) + " " + std::to_string(view.width()) + " " +
           ToUtf8(GetGadgetText(number)) + " " + std::to_string(read->role()) + " " + name + "\n";
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
    EXPECT_EQ(HashOf(gadgets), 0xb11db8a1782c26a1) << gadgets;
    const QWidget& window = *View(TyreWidthField)->window();
    EXPECT_EQ(window.windowTitle().toStdU16String(),
              u"Rotavel V1.55 \u00A9 2026 The Rotavel authors");
    EXPECT_EQ(View(TyreWidthField)->parentWidget()->size(), QSize(450, 500));
    const QPoint middle = window.screen()->availableGeometry().center();
    EXPECT_LT((window.geometry().center() - middle).manhattanLength(), 10);
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(StatusField(MaxRpmField).parent())->role(),
              QAccessible::StatusBar);
    EXPECT_EQ(View(GraphicButton)->font().family(), "Arial");
    EXPECT_EQ(View(GraphicButton)->font().pointSize(), 8);
    EXPECT_EQ(GetGadgetItemText(SpeedUnitBox, 0) + GetGadgetItemText(SpeedUnitBox, 1), u"km/hmph");
}

TEST_F(MainWindowTest, EveryMotorcycleIsInTheMenu) {
    Start(DefaultSettingsText);
    EXPECT_EQ(HashOf(Menus()), 0x535348dc530ad01e) << Menus();
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

TEST_F(MainWindowTest, TypingChangesWhatHangsOnIt) {
    Start(FiveSpeed);
    const std::pair<const char*, const char16_t*> steps[] = {
        {"3", u"3|80 |"}, {"3.2", u"3.2||off"}, {"32", u"32||"}};
    for (const auto& [typed, size] : steps) {
        TypeOver(TyreWidthField, typed);
        EXPECT_EQ(TyreSize(), size) << typed;
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
    Click(SpeedUnitBox);
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    Run();
    EXPECT_EQ(Speeds(), u"49|30|38|46|54|49|");
}

}  // namespace
}  // namespace rotavel
