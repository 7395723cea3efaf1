#include <csignal>
#include <string>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include "gui/menus/application_menu.h"
#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr Qt::KeyboardModifiers Control = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers Alt = Qt::AltModifier;

class MenuTest : public GuiTest {
  protected:
    MenuTest() {
        WindowCreate(3, 0, 0, 200, 100);
        ForgetEvents();
    }

    static QMenuBar& Bar() { return *Native(3)->Layout().MenuBar(); }
    static std::string Name() { return Bar().actions().front()->text().toStdString(); }
    static bool IsMenuOpen() { return QApplication::activePopupWidget() != nullptr; }
    // File (Makers (Moto Guzzi (a1, b2), Ducati), MV, Leave), Help (About), Fork (Oil, Five).
    static void BuildMotorcycles() {
        MenuCreate(0, WindowNativeHandle(3));
        MenuTitle(u"File");
        MenuOpenSubmenu(u"Makers");
        MenuOpenSubmenu(u"Moto Guzzi");
        MenuItem(10, u"a1");
        MenuItem(11, u"b2");
        MenuCloseSubmenu();
        MenuItem(12, u"Ducati");
        MenuCloseSubmenu();
        MenuItem(13, u"MV");
        MenuItem(14, u"Leave");
        MenuTitle(u"Help");
        MenuItem(2, u"About");
        MenuTitle(u"Fork");
        MenuItem(3, u"Oil");
        MenuItem(5, u"Five\tCTRL+5");
    }
    // A field with the keyboard.
    static void CreateField() {
        StringGadgetCreate(1, 0, 0, 100, 20);
        ActivateGadget(1);
        ForgetEvents();
    }
    // The events that came, else what is selected in the bar and in every open menu, from the bar
    // on.
    static std::string Result() {
        const std::string taken = Taken();
        std::string selected;
        for (const QAction* action = Bar().activeAction(); action != nullptr;) {
            selected.append(selected.empty() ? "" : " > ").append(action->text().toStdString());
            const QMenu* const menu = action->menu();
            action = menu != nullptr && menu->isVisible() ? menu->activeAction() : nullptr;
        }
        return taken.empty() ? selected : taken;
    }
    static std::string After(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        Press(key, modifiers);
        return Result();
    }
};

TEST_F(MenuTest, IsBuiltFromFrontToBack) {
    const std::int64_t handle = MenuCreate(0, WindowNativeHandle(3));
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(&Bar()));
    MenuItem(1, u"dropped");
    MenuOpenSubmenu(u"dropped");
    MenuTitle(u"&File");
    MenuOpenSubmenu(u"&Makers");
    MenuOpenSubmenu(u"A");
    MenuItem(10, u"a&1");
    MenuCloseSubmenu();
    MenuItem(11, u"m");
    MenuCloseSubmenu();
    MenuSeparator();
    MenuCloseSubmenu();
    MenuItem(12, u"bar");
    MenuCloseSubmenu();
    MenuItem(13, u"dropped");
    MenuTitle(u"Help");
    MenuItem(3, u"R&&D");
    EXPECT_EQ(MenuOutline(3), Name() + "(About " + Name() +
                                  ",-,Preferences\u2026,-,Services,-,Hide " + Name() +
                                  ",Hide Others,Show All,-,Quit " + Name() +
                                  ",),File(Makers(A(a1,),m,),-,),bar,Help(RD,),");
    EXPECT_EQ(WindowGetHeight(3), 100);
}

TEST_F(MenuTest, ApplicationMenuPostsItsFixedNumbers) {
    QzMenuDelegate().Terminate();
    EXPECT_EQ(Taken(), "Menu -4@-1") << "before any window had a bar";
    MenuCreate(0, WindowNativeHandle(3));
    QAction& about = *Bar().actions().front()->menu()->actions().front();
    EXPECT_FALSE(about.isEnabled());
    MenuItem(AboutItem, u"");
    about.trigger();
    Press(Qt::Key_Q, Control);
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));  // the session ends
    EXPECT_EQ(Taken(), "Menu -3@3, Menu -4@3, Menu -4@-1");
}

TEST_F(MenuTest, ShortcutsAreReadFromTheText) {
    const struct {
        const char16_t* Text;
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        const char* Result = "Menu 5@3";  // of two items with the keys the first is chosen
    } cases[] = {
        {u"&Item\tCTRL+SHIFT+S", Qt::Key_S, Control | Qt::ShiftModifier},
        {u"Item\tcmd+alt+o", Qt::Key_O, Control | Alt},
        {u"Item\tF1+ALT+X+Y", Qt::Key_Y, Alt},
        {u"Item\tCMD+,", Qt::Key_Comma, Control},           // Preferences cannot be chosen yet
        {u"Item\tCMD+Q", Qt::Key_Q, Control, "Menu -4@3"},  // the application menu comes first
    };
    for (const auto& [text, key, modifiers, result] : cases) {
        MenuCreate(0, WindowNativeHandle(3));
        MenuTitle(u"File");
        MenuItem(5, text);
        MenuItem(6, text);
        const QAction& item = *Bar().actions()[1]->menu()->actions().front();
        EXPECT_EQ(item.text(), "Item");
        EXPECT_EQ(item.shortcut(), QKeySequence(QKeyCombination(modifiers, key)));
        EXPECT_EQ(After(key, modifiers), result);
    }
    MenuItem(PreferencesItem, u"");
    EXPECT_EQ(After(Qt::Key_Comma, Control), "Menu -2@3");
    MenuItem(9, u"F5");
    EXPECT_EQ(After(Qt::Key_F5), "") << "a title";
}

TEST_F(MenuTest, KeysGoThroughMenusAndBack) {
    BuildMotorcycles();
    MenuCloseSubmenu();
    MenuItem(21, u"Direct");
    CreateField();
    const std::string name = Name();
    const struct {
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        std::string Result;
    } steps[] = {
        // With Alt the next title that begins with the letter, also when a menu is open.
        {Qt::Key_F, Alt, "File > Makers"},
        {Qt::Key_F, Alt, "Fork > Oil"},
        {Qt::Key_H, Alt, "Help > About"},
        {Qt::Key_Escape, {}, "Help"},
        {Qt::Key_F, {}, "Fork > Oil"},
        {Qt::Key_X, {}, "Fork > Oil"},
        {Qt::Key_F, Alt, "File > Makers"},
        // Of several items a letter selects the next; the only one it chooses.
        {Qt::Key_M, {}, "File > MV"},
        {Qt::Key_M, {}, "File > Makers"},
        {Qt::Key_Right, {}, "File > Makers > Moto Guzzi"},
        {Qt::Key_M, {}, "File > Makers > Moto Guzzi > a1"},
        {Qt::Key_B, Qt::ShiftModifier, "Menu 11@3"},
        {Qt::Key_F, {}, "Change 1@3"},  // the field has kept the window's focus
        // The application menu's own: what cannot be chosen has no letter.
        {Qt::Key(QChar(name.front()).toUpper().unicode()), Alt, name + " > Hide " + name},
        {Qt::Key_A, {}, name + " > Hide " + name},
        {Qt::Key_S, {}, ""},
        {Qt::Key_D, Alt, "Menu 21@3"},
        {Qt::Key_F10, {}, name},
        {Qt::Key_Right, {}, "File"},
        {Qt::Key_F10, {}, ""},
        {Qt::Key_Alt, {}, name},
        {Qt::Key_Alt, {}, ""},
        {Qt::Key_B, {}, "Change 1@3"},
    };
    for (const auto& step : steps) {
        EXPECT_EQ(After(step.Key, step.Modifiers), step.Result) << "step " << &step - steps;
    }
    EXPECT_EQ(GetGadgetText(1), u"fb");
    // Alt may be let go last or first: it was for the letter.
    QWindow* const handle = Native(3)->windowHandle();
    QTest::keyPress(handle, Qt::Key_Alt);
    Press(Qt::Key_H, Alt);
    QTest::keyRelease(handle, Qt::Key_Alt);
    EXPECT_EQ(Result(), "Help > About");
    EXPECT_EQ(After(Qt::Key_Return), "Menu 2@3");
    QTest::keyPress(handle, Qt::Key_D, Alt);
    QTest::keyRelease(handle, Qt::Key_Alt);
    EXPECT_EQ(Result() + Result(), "Menu 21@3");

    const auto pictureOfTitle = [] {
        return Bar().grab(Bar().actionGeometry(Bar().actions().front())).toImage();
    };
    const QImage unselected = pictureOfTitle();
    Press(Qt::Key_F10);
    EXPECT_NE(pictureOfTitle(), unselected) << "where the keys go is to be seen";
}

TEST_F(MenuTest, DisabledWindowHasNoMenus) {
    CreateField();
    BuildMotorcycles();
    static constexpr auto disable = [] { WindowDisable(3, true); };
    const std::pair<void (*)(), void (*)()> cases[] = {
        {[] { Press(Qt::Key_F, Alt); }, disable},
        {[] { Press(Qt::Key_F10); }, disable},
        {disable, BuildMotorcycles},
        {disable, [] { FreeMenu(0); }},
    };
    for (const auto& [first, then] : cases) {
        first();
        then();
        EXPECT_FALSE(IsMenuOpen());
        ForgetEvents();
        Press(Qt::Key_Alt);
        Press(Qt::Key_F, Alt);
        Press(Qt::Key_F10);
        Press(Qt::Key_Q, Control);
        Type("x");
        ClickMenuTitle(3, 0);
        EXPECT_EQ(Result(), "");
        EXPECT_FALSE(IsMenuOpen() || Bar().isEnabled());
        WindowDisable(3, false);
        ForgetEvents();
        EXPECT_EQ(After(Qt::Key_X), "Change 1@3");
    }
}

TEST_F(MenuTest, WindowsWithoutBarHaveTheProgramsApplicationMenu) {
    BuildMotorcycles();
    WindowCreate(4, 0, 0, 100, 50, {}, WindowCloseBox, WindowNativeHandle(3));
    CreateField();
    WindowDisable(3, true);
    ForgetEvents();
    ASSERT_EQ(KeyWindowNumber(), 4);
    Press(Qt::Key_5, Control);
    EXPECT_EQ(After(Qt::Key_Comma, Control), "") << "items belong to their window";
    EXPECT_EQ(After(Qt::Key_Q, Control), "Menu -4@3");
    FreeMenu(0);
    EXPECT_EQ(After(Qt::Key_Q, Control), "Menu -4@3") << "the plain bar has it too";
    WindowDisable(4, true);
    ForgetEvents();
    EXPECT_EQ(After(Qt::Key_Q, Control), "");
    WindowCreate(5, 0, 0, 100, 50);
    WindowDestroy(3);
    ForgetEvents();
    Press(Qt::Key_Q, Control);
    EXPECT_EQ(Taken(), "Menu -4@3") << "with the bar's window gone";
}

TEST_F(MenuTest, EscapeAndTheKeyForClosingAskAWindowAboveAnotherToClose) {
    BuildMotorcycles();
    EXPECT_EQ(After(Qt::Key_Escape) + After(Qt::Key_W, Control), "") << "a window of its own";
    for (const std::uint32_t flags : {0U, WindowCloseBox}) {
        WindowCreate(4, 0, 0, 200, 50, {}, flags, WindowNativeHandle(3));
        CreateField();
        const std::string result = flags == 0 ? "" : "Close 4";
        EXPECT_EQ(After(Qt::Key_Escape), result);
        EXPECT_EQ(After(Qt::Key_W, Control), result);
    }
    MenuCreate(1, WindowNativeHandle(4));
    MenuTitle(u"Zoom");
    MenuItem(1, u"One");
    Press(Qt::Key_Z, Alt);
    EXPECT_TRUE(IsMenuOpen());
    Press(Qt::Key_Escape);
    EXPECT_EQ(After(Qt::Key_Escape), "") << "the menu, then the bar, are left";
    EXPECT_EQ(After(Qt::Key_Escape), "Close 4");
}

TEST_F(MenuTest, OfSeveralBarsOfAWindowTheFirstIsSeen) {
    WindowCreate(5, 0, 0, 200, 100, {}, WindowHidden);
    for (const int number : {1, 2}) {
        MenuCreate(number, WindowNativeHandle(5));
        MenuTitle(number == 1 ? u"First" : u"Second");
    }
    WindowShow(5, Shown);
    ForgetEvents();
    for (const QMenuBar* const bar : Native(5)->findChildren<QMenuBar*>()) {
        EXPECT_EQ(bar->isVisible(), bar->actions().back()->text() == "First");
    }
}

TEST_F(MenuTest, ItemsAreMadeWhenTheyAreSeen) {
    BuildMotorcycles();
    const qsizetype before = Bar().findChildren<QAction*>().size();
    MenuItem(20, u"Zebra");
    EXPECT_EQ(Bar().findChildren<QAction*>().size(), before) << "thousands cost little";
    MenuItem(21, u"With keys\tCTRL+6");
    EXPECT_EQ(After(Qt::Key_6, Control), "Menu 21@3");
    Press(Qt::Key_H, Alt);
    Press(Qt::Key_Right);
    EXPECT_EQ(After(Qt::Key_Z), "Menu 20@3");
}

TEST_F(MenuTest, FreeingPutsThePlainBarBack) {
    BuildMotorcycles();
    Press(Qt::Key_F, Alt);
    std::raise(SIGTERM);
    EXPECT_EQ(Taken(), "Close 0") << "waits go on while a menu is open";
    FreeMenu(0);
    EXPECT_FALSE(IsMenuOpen()) << "an open menu goes at once";
    // The offscreen platform gives a menu the keyboard and, sometimes, nobody when it closes.
    Native(3)->activateWindow();
    ForgetEvents();
    FreeMenu(0);
    MenuTitle(u"Lost");
    EXPECT_EQ(Bar().actions().size(), 1);
    EXPECT_EQ(After(Qt::Key_5, Control) + After(Qt::Key_F, Alt), "");
    WindowCreate(3, 0, 0, 200, 100);
    EXPECT_EQ(Native(3)->Layout().MenuBar(), nullptr);
}

}  // namespace
}  // namespace rotavel
