#include "gui/menu.h"

#include <csignal>
#include <string>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

#include "gui/event_loop.h"
#include "gui/gadget.h"
#include "gui/requester.h"
#include "gui/string_gadget.h"
#include "gui/window.h"
#include "gui/windows/qz_window.h"
#include "runtime/numbered_objects.h"
#include "tests/support/gui_test.h"

namespace rotavel {
namespace {

using namespace tests;

class MenuTest : public GuiTest {
  protected:
    MenuTest() {
        WindowCreate(3, 0, 0, 200, 100);
        ForgetEvents();
    }

    static QMenuBar& Bar() { return *Native(3)->Layout().MenuBar(); }
    // File (Makers (Moto Guzzi (a1, b2), Ducati), MV, Leave), Help (About), Fork (Oil).
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
    }
    // The texts of what is selected in the bar and in every open menu, from the bar on.
    static std::string Selected() {
        Taken();
        std::string selected;
        for (const QAction* action = Bar().activeAction(); action != nullptr;) {
            selected.append(selected.empty() ? "" : " > ").append(action->text().toStdString());
            const QMenu* const menu = action->menu();
            action = menu != nullptr && menu->isVisible() ? menu->activeAction() : nullptr;
        }
        return selected;
    }
    static bool IsMenuOpen() { return QApplication::activePopupWidget() != nullptr; }

    // The offscreen platform gives every menu the keyboard and, sometimes, nobody when it closes.
    static void GiveKeyboardBack() {
        Native(3)->activateWindow();
        ForgetEvents();
    }

    // The item at a place of a menu of the window's bar.
    static QAction& Item(int title, int item) {
        QMenu& menu = *Bar().actions().at(title)->menu();
        emit menu.aboutToShow();
        return *menu.actions().at(item);
    }
};

TEST_F(MenuTest, IsBuiltFromFrontToBack) {
    EXPECT_EQ(MenuCreate(0, nullptr), 0);
    const std::int64_t handle = MenuCreate(0, WindowNativeHandle(3));
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(&Bar()));
    const std::string name = Bar().actions().front()->text().toStdString();
    MenuItem(1, u"dropped");
    MenuSeparator();
    MenuOpenSubmenu(u"dropped");
    MenuTitle(u"&File");
    MenuOpenSubmenu(u"&Makers");
    MenuOpenSubmenu(u"A");
    MenuItem(10, u"a&1");
    MenuCloseSubmenu();
    MenuOpenSubmenu(u"");
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
    EXPECT_EQ(MenuOutline(3), name + "(About " + name + ",-,Preferences\u2026,-,Services,-,Hide " +
                                  name + ",Hide Others,Show All,-,Quit " + name +
                                  ",),File(Makers(A(a1,),(),m,),-,),bar,Help(RD,),");
}

TEST_F(MenuTest, FirstBarOfAWindowIsOnShowBeforeItHasTheKeyboard) {
    WindowCreate(4, 0, 0, 200, 100, {}, WindowHidden);
    MenuCreate(1, WindowNativeHandle(4));
    const QMenuBar* const first = Native(4)->Layout().MenuBar();
    ASSERT_NE(first, nullptr);
    MenuCreate(2, WindowNativeHandle(4));
    EXPECT_EQ(Native(4)->Layout().MenuBar(), first);
    EXPECT_EQ(WindowGetHeight(4), 100);
}

TEST_F(MenuTest, ApplicationMenuPostsItsFixedNumbers) {
    MenuCreate(0, WindowNativeHandle(3));
    QAction& about = Item(0, 0);
    EXPECT_FALSE(about.isEnabled() || Item(0, 2).isEnabled());
    Press(Qt::Key_Comma, Qt::ControlModifier);
    MenuItem(AboutItem, u"");
    MenuItem(PreferencesItem, u"");
    about.trigger();
    Press(Qt::Key_Comma, Qt::ControlModifier);
    Press(Qt::Key_Q, Qt::ControlModifier);
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));  // the session ends
    EXPECT_EQ(Taken(), "Menu -3@3, Menu -2@3, Menu -4@3, Menu -4@-1");
}

TEST_F(MenuTest, ShortcutsAreReadFromTheText) {
    const struct {
        const char16_t* Text;
        const char* Title;
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
    } cases[] = {
        {u"&Save\tCTRL+SHIFT+S", "Save", Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier},
        {u"Open\tcmd+alt+o", "Open", Qt::Key_O, Qt::ControlModifier | Qt::AltModifier},
        {u"Twelve\tF12", "Twelve", Qt::Key_F12, {}},
        {u"Last\tF1+ALT+X+Y", "Last", Qt::Key_Y, Qt::AltModifier},
        {u"Quit\tCMD+Q", "Quit", Qt::Key_Q, Qt::ControlModifier},
    };
    for (const auto& [text, title, key, modifiers] : cases) {
        MenuCreate(0, WindowNativeHandle(3));
        MenuTitle(u"File");
        MenuItem(5, text);
        MenuItem(6, text);
        EXPECT_EQ(Item(1, 0).text(), title);
        EXPECT_EQ(Item(1, 0).shortcut(), QKeySequence(QKeyCombination(modifiers, key)));
        Press(key, modifiers);
        // Of items with the same keys the first is chosen, and the application menu comes first.
        EXPECT_EQ(Taken(), key == Qt::Key_Q ? "Menu -4@3" : "Menu 5@3") << title;
    }
    // What cannot be chosen leaves its keys to the program: until it can.
    MenuCreate(0, WindowNativeHandle(3));
    MenuTitle(u"File");
    MenuItem(7, u"Comma\tCMD+,");
    MenuItem(8, u"Others\tCMD+ALT+H");
    Press(Qt::Key_Comma, Qt::ControlModifier);
    Press(Qt::Key_H, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Taken(), "Menu 7@3, Menu 8@3");
    MenuItem(PreferencesItem, u"");
    Press(Qt::Key_Comma, Qt::ControlModifier);
    Press(Qt::Key_H, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_EQ(Taken(), "Menu -2@3, Menu 8@3");
}

TEST_F(MenuTest, LettersOpenMenusAndChoose) {
    BuildMotorcycles();
    StringGadgetCreate(1, 0, 0, 100, 20, u"text");
    ActivateGadget(1);
    ForgetEvents();
    const std::string name = Bar().actions().front()->text().toStdString();
    // With Alt the next title that begins with the letter, also when a menu is open.
    const char* const titles[] = {"File > Makers", "Fork > Oil", "File > Makers"};
    for (const char* const title : titles) {
        Press(Qt::Key_F, Qt::AltModifier);
        EXPECT_EQ(Selected(), title);
    }
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(Selected(), "Help > About");
    Press(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(Selected(), "Help > About") << "it is open already";
    Press(Qt::Key_Escape);
    EXPECT_EQ(Selected(), "Help") << "back on the bar";
    Press(Qt::Key_F);
    Press(Qt::Key_X);
    EXPECT_EQ(Selected(), "Fork > Oil") << "an item with that letter there is not";
    Press(Qt::Key_F, Qt::AltModifier);
    // Of several items a letter selects the next; the only one it chooses.
    const char* const makers[] = {"File > MV", "File > Makers", "File > MV", "File > Makers"};
    for (const char* const maker : makers) {
        Press(Qt::Key_M);
        EXPECT_EQ(Selected(), maker);
    }
    Press(Qt::Key_Right);
    Press(Qt::Key_M);
    EXPECT_EQ(Selected(), "File > Makers > Moto Guzzi > a1") << "it opens what it chooses";
    Press(Qt::Key_B, Qt::ShiftModifier);
    EXPECT_EQ(Taken(), "Menu 11@3") << "and no Focus or Change of the field";
    EXPECT_FALSE(IsMenuOpen());
    EXPECT_EQ(View(1), QApplication::focusWidget());
    EXPECT_EQ(GetGadgetText(1), u"text");
    // The application menu's own: what cannot be chosen has no letter.
    Press(Qt::Key(Qt::Key(QChar(name.front()).toUpper().unicode())), Qt::AltModifier);
    Press(Qt::Key_A);
    EXPECT_TRUE(IsMenuOpen());
    Press(Qt::Key_S);
    EXPECT_FALSE(IsMenuOpen()) << "of two with the letter only one can be chosen";
    // On the bar itself.
    MenuCloseSubmenu();
    MenuItem(21, u"Direct");
    ForgetEvents();
    QTest::keyPress(Native(3)->windowHandle(), Qt::Key_D, Qt::AltModifier);
    QTest::keyRelease(Native(3)->windowHandle(), Qt::Key_Alt);  // the first of the two to be let go
    EXPECT_EQ(Selected(), "");
    EXPECT_TRUE(View(1)->hasFocus());
}

TEST_F(MenuTest, KeysGoToTheBarAndBack) {
    BuildMotorcycles();
    StringGadgetCreate(1, 0, 0, 100, 20, u"");
    ActivateGadget(1);
    ForgetEvents();
    const auto pictureOfTitle = [] {
        return Bar().grab(Bar().actionGeometry(Bar().actions().at(0))).toImage();
    };
    const QImage unselected = pictureOfTitle();
    Press(Qt::Key_F10);
    EXPECT_EQ(Selected(), Bar().actions().front()->text().toStdString());
    EXPECT_NE(pictureOfTitle(), unselected) << "to be seen";
    Press(Qt::Key_Right);
    EXPECT_EQ(Selected(), "File");
    EXPECT_EQ(pictureOfTitle(), unselected);
    Press(Qt::Key_F10);
    EXPECT_EQ(Selected(), "");
    Type("x");
    EXPECT_EQ(Taken(), "Change 1@3") << "the field kept the window's focus all the time";

    QWindow* const handle = Native(3)->windowHandle();
    const auto tapAlt = [handle] {
        QTest::keyPress(handle, Qt::Key_Alt);
        QTest::keyRelease(handle, Qt::Key_Alt);
    };
    tapAlt();
    EXPECT_NE(Selected(), "");
    tapAlt();
    EXPECT_EQ(Selected(), "");
    QTest::keyPress(handle, Qt::Key_Alt);
    Press(Qt::Key_H, Qt::AltModifier);
    QTest::keyRelease(handle, Qt::Key_Alt);
    EXPECT_EQ(Selected(), "Help > About") << "Alt was for the letter";
    Press(Qt::Key_Return);
    EXPECT_EQ(Taken(), "Menu 2@3");
}

TEST_F(MenuTest, DisabledWindowHasNoMenus) {
    StringGadgetCreate(1, 0, 0, 100, 20, u"");
    ActivateGadget(1);
    WindowDisable(3, true);
    BuildMotorcycles();
    ForgetEvents();
    const auto expectDeaf = [] {
        QWindow* const handle = Native(3)->windowHandle();
        QTest::keyPress(handle, Qt::Key_Alt);
        QTest::keyRelease(handle, Qt::Key_Alt);
        Press(Qt::Key_F, Qt::AltModifier);
        Press(Qt::Key_F10);
        Press(Qt::Key_Q, Qt::ControlModifier);
        Type("x");
        ClickMenuTitle(3, 1);
        EXPECT_EQ(Taken(), "");
        EXPECT_FALSE(IsMenuOpen());
        EXPECT_EQ(Selected(), "");
    };
    expectDeaf();
    WindowDisable(3, false);
    Press(Qt::Key_F, Qt::AltModifier);
    Press(Qt::Key_M);
    Press(Qt::Key_M);
    Press(Qt::Key_Right);
    EXPECT_EQ(Selected(), "File > Makers > Moto Guzzi");
    WindowDisable(3, true);
    ForgetEvents();
    expectDeaf();
    WindowDisable(3, false);
    Press(Qt::Key_F10);
    WindowDisable(3, true);
    ForgetEvents();
    expectDeaf();
    FreeMenu(0);
    EXPECT_FALSE(Bar().isEnabled());
    WindowDisable(3, false);
    EXPECT_TRUE(Bar().isEnabled());
    EXPECT_EQ(Selected(), "");
    Type("x");
    EXPECT_EQ(Taken(), "Change 1@3");
}

TEST_F(MenuTest, WindowsWithoutBarHaveTheProgramsApplicationMenu) {
    BuildMotorcycles();
    MenuTitle(u"Keys");
    MenuItem(5, u"Five\tCTRL+5");
    WindowCreate(4, 0, 0, 100, 50, {}, WindowCloseBox, WindowNativeHandle(3));
    StringGadgetCreate(1, 0, 0, 100, 20, u"");
    ActivateGadget(1);
    WindowDisable(3, true);
    ForgetEvents();
    ASSERT_EQ(KeyWindowNumber(), 4);
    Press(Qt::Key_5, Qt::ControlModifier);
    Press(Qt::Key_Comma, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "") << "items belong to their window";
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "Menu -4@3");
    FreeMenu(0);
    ForgetEvents();
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "Menu -4@3") << "the plain bar has it too";
    WindowDisable(4, true);
    ForgetEvents();
    Press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "");
}

TEST_F(MenuTest, EscapeAndTheKeyForClosingAskAWindowAboveAnotherToClose) {
    BuildMotorcycles();
    const auto press = [] {
        Press(Qt::Key_Escape);
        Press(Qt::Key_A);
        Press(Qt::Key_W, Qt::ControlModifier);
        return Taken();
    };
    EXPECT_EQ(press(), "") << "a window of its own";
    const auto open = [](std::uint32_t flags) {
        WindowCreate(4, 0, 0, 200, 50, {}, flags, WindowNativeHandle(3));
        StringGadgetCreate(1, 0, 0, 100, 20, u"");
        ActivateGadget(1);
        ForgetEvents();
    };
    open(0);
    EXPECT_EQ(press(), "Change 1@4") << "no close box";
    open(WindowCloseBox);
    EXPECT_EQ(press(), "Close 4, Change 1@4, Close 4");
    MenuCreate(1, WindowNativeHandle(4));
    MenuTitle(u"Zoom");
    MenuItem(1, u"One");
    Press(Qt::Key_Z, Qt::AltModifier);
    ASSERT_TRUE(IsMenuOpen());
    Press(Qt::Key_Escape);
    Press(Qt::Key_Escape);
    EXPECT_EQ(Taken(), "") << "the menu, then the bar, are left";
    Press(Qt::Key_Escape);
    EXPECT_EQ(Taken(), "Close 4");
    WindowDisable(4, true);
    ForgetEvents();
    EXPECT_EQ(press(), "");
}

TEST_F(MenuTest, BarTooLongForItsWindowOpensItsRest) {
    BuildMotorcycles();
    for (const char16_t* const title : {u"Gearbox and clutch", u"Zebra"}) {
        MenuTitle(title);
        MenuItem(20, u"Last");
    }
    auto& button = *Bar().findChild<QToolButton*>();
    ASSERT_TRUE(button.isVisible());
    const auto press = [&button] {
        Taken();
        QTest::mouseClick(Native(3)->windowHandle(), Qt::LeftButton, {},
                          button.mapTo(Native(3), button.rect().center()));
    };
    press();
    EXPECT_TRUE(IsMenuOpen());
    std::raise(SIGTERM);
    EXPECT_EQ(Taken(), "Close 0") << "waits go on meanwhile";
    Press(Qt::Key_Z);
    Press(Qt::Key_L);
    EXPECT_EQ(Taken(), "Menu 20@3");
    EXPECT_FALSE(button.isDown());
    GiveKeyboardBack();
    Press(Qt::Key_Z, Qt::AltModifier);
    Press(Qt::Key_L);
    EXPECT_EQ(Taken(), "Menu 20@3");
    press();
    WindowDisable(3, true);
    EXPECT_FALSE(IsMenuOpen());
}

TEST_F(MenuTest, ThousandsOfItemsCostLittleUntilTheyAreSeen) {
    constexpr int count = 6000;
    const auto fill = [] {
        MenuCreate(0, WindowNativeHandle(3));
        MenuTitle(u"File");
        for (int i = 1; i <= count; ++i) {
            MenuItem(i, i == count ? u"Zebra" : u"Model");
        }
    };
    fill();
    EXPECT_EQ(Bar().findChildren<QAction*>().size(), Bar().actions().size() * 2 + 10);
    MenuItem(count + 1, u"With keys\tCTRL+5");
    MenuSeparator();
    MenuItem(count + 2, u"Behind");
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "Menu 6001@3");
    Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(Bar().actions().at(1)->menu()->actions().size(), count + 3);
    EXPECT_EQ(Item(1, count).text(), "With keys");
    Press(Qt::Key_End);
    EXPECT_EQ(Selected(), "File > Behind");
    QMenu& menu = *Bar().actions().at(1)->menu();
    EXPECT_TRUE(menu.rect().contains(menu.actionGeometry(menu.activeAction())));
    Press(Qt::Key_Z);
    EXPECT_EQ(Taken(), "Menu 6000@3");
}

TEST_F(MenuTest, FreeingPutsThePlainBarBack) {
    const auto build = [] {
        MenuCreate(0, WindowNativeHandle(3));
        MenuTitle(u"File");
        MenuItem(5, u"Five\tCTRL+5");
    };
    build();
    FreeMenu(0);
    FreeMenu(0);
    MenuTitle(u"Lost");
    EXPECT_EQ(Bar().actions().size(), 1);
    EXPECT_EQ(WindowGetHeight(3), 100);
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "");
    build();
    const EventCallback destroy = [] { WindowDestroy(3); };
    BindEvent(destroy, MenuChosen);
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "") << "event and menu went with the window";
    UnbindEvent(destroy, MenuChosen);
    WindowCreate(3, 0, 0, 200, 100);
    EXPECT_EQ(Native(3)->Layout().MenuBar(), nullptr);
    build();
    ForgetEvents();
    Press(Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(IsMenuOpen());
    FreeMenu(0);
    EXPECT_FALSE(IsMenuOpen()) << "an open menu goes at once";
    GiveKeyboardBack();
    Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_FALSE(IsMenuOpen());
}

// What an item's event makes the program do, while the toolkit is still at the item.
TEST_F(MenuTest, BindingsOfItemsMayDoAnything) {
    const EventCallback deeds[] = {
        [] { FreeMenu(0); },
        [] { WindowDestroy(3); },
        [] { WindowDisable(3, true); },
        [] {
            FreeMenu(AnyNumber);
            WaitForEvent(0);
        },
        [] {
            WindowDestroy(AnyNumber);
            WaitForEvent(0);
        },
        [] { MenuCreate(0, WindowNativeHandle(3)); },
        [] {
            QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
            FreeMenu(0);
            EXPECT_EQ(MessageRequester(u"", u""), 0);
        },
    };
    for (const EventCallback deed : deeds) {
        for (const bool byKeys : {false, true}) {
            WindowCreate(3, 0, 0, 200, 100);
            BuildMotorcycles();
            MenuItem(4, u"Deed\tCTRL+D");
            ForgetEvents();
            BindEvent(deed, MenuChosen);
            if (byKeys) {
                Press(Qt::Key_D, Qt::ControlModifier);
            } else {
                Press(Qt::Key_F, Qt::AltModifier);
                Press(Qt::Key_F, Qt::AltModifier);
                Press(Qt::Key_D);
            }
            UnbindEvent(deed, MenuChosen);
            ForgetEvents();
            EXPECT_FALSE(IsMenuOpen());
        }
    }
}

}  // namespace
}  // namespace rotavel
