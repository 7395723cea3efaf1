#include <csignal>
#include <string>

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

class MenuTest : public GuiTest {
  protected:
    MenuTest() {
        WindowCreate(3, 0, 0, 200, 100);
        CreateField();
    }

    static QMenuBar& Bar() { return *Native(3)->Layout().MenuBar(); }
    static bool IsMenuOpen() { return QApplication::activePopupWidget() != nullptr; }
    // Builds a bar with the items 1, 2, ... by a text as MenuOutline gives it.
    static void Build(std::u16string_view outline) {
        MenuCreate(0, WindowNativeHandle(3));
        std::u16string text;
        std::int64_t number = 0;
        int depth = 0;
        for (const char16_t each : outline) {
            if (each == '(') {
                depth++ == 0 ? MenuTitle(text) : MenuOpenSubmenu(text);
            } else if (each == ')') {
                MenuCloseSubmenu();
                --depth;
            } else if (each != ',') {
                text += each;
                continue;
            } else if (text == u"-") {
                MenuSeparator();
            } else if (!text.empty()) {
                MenuItem(++number, text);
            }
            text.clear();
        }
    }
    static void BuildMotorcycles() {
        Build(
            u"File(Makers(Moto Guzzi(a1,b2,),Ducati,),MV,Leave,),Help(About,),"
            u"Fork(Oil,Five\tCTRL+5,),Direct,");
    }
    // In the newest window, with the keyboard.
    static void CreateField() {
        StringGadgetCreate(1, 0, 0, 100, 20);
        ActivateGadget(1);
        ForgetEvents();
    }
    // The events that come of keys, else what is selected then in the bar and in every open menu,
    // from the bar on.
    static std::string After(const char* keys) {
        Press(keys);
        const std::string taken = Taken();
        std::string selected;
        for (const QAction* action = Bar().activeAction(); action != nullptr;) {
            selected.append(selected.empty() ? "" : " > ").append(action->text().toStdString());
            const QMenu* const menu = action->menu();
            action = menu != nullptr && menu->isVisible() ? menu->activeAction() : nullptr;
        }
        return taken.empty() ? selected : taken;
    }
    using Steps = std::vector<std::pair<const char*, std::string>>;
    static void Take(const Steps& steps) {
        for (const auto& [keys, expected] : steps) {
            EXPECT_EQ(After(keys), expected) << "after " << keys;
        }
    }
};

TEST_F(MenuTest, IsBuiltFromFrontToBack) {
    // An item with keys is made at once, the one before it when it is seen.
    Build(u"dropped,&File(&Makers(A(a&1,),m,n\tCTRL+M,),-,),bar,Help(),");
    EXPECT_EQ(MenuOutline(3),
              "gui_tests(About gui_tests,-,Preferences\u2026,-,Services,-,"
              "Hide gui_tests,Hide Others,Show All,-,Quit gui_tests,),"
              "File(Makers(A(a1,),m,n,),-,),bar,Help(),");
    EXPECT_EQ(WindowGetHeight(3), 100);
}

TEST_F(MenuTest, ItemsHaveKeysAndFixedNumbers) {
    Build(u"File(A\tCTRL+SHIFT+S,B\tcmd+alt+o,C\tF1+ALT+X+Y,D\tCTRL+SHIFT+S,F5,Quit\tCMD+Q,");
    MenuItem(9, u"G\tCMD+,");
    Take({
        {"Ctrl+Shift+S", "Menu 1@3"},  // the first of two
        {"Ctrl+Alt+O", "Menu 2@3"},
        {"Alt+Y", "Menu 3@3"},
        {"F5", ""},  // a title
        {"Ctrl+Q", "Menu -4@3"},
        {"Ctrl+,", "Menu 9@3"},                   // Preferences cannot be chosen yet
        {"Alt+G", "gui_tests > Hide gui_tests"},  // the first that can be chosen
        {"S", ""},                                // Show All
    });
    MenuItem(PreferencesItem, u"");
    MenuItem(AboutItem, u"");
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));  // the session ends
    Take({{"Ctrl+,", "Menu -4@-1, Menu -2@3"}, {"Alt+G Return", "Menu -3@3"}});
}

TEST_F(MenuTest, KeysGoThroughMenusAndBack) {
    BuildMotorcycles();
    const auto pictureOfTitle = [] {
        return Bar().grab(Bar().actionGeometry(Bar().actions().front())).toImage();
    };
    const QImage unselected = pictureOfTitle();
    Take({
        // With Alt the next title that begins with the letter, also when a menu is open.
        {"Alt+F", "File > Makers"},
        {"Alt+F", "Fork > Oil"},
        {"Esc", "Fork"},
        {"F", "File > Makers"},
        {"X", "File > Makers"},
        // Of several items a letter selects the next; the only one it chooses.
        {"M", "File > MV"},
        {"M", "File > Makers"},
        {"Right M", "File > Makers > Moto Guzzi > a1"},
        {"Shift+B", "Menu 2@3"},
        {"F", "Change 1@3"},  // the field has kept the window's focus
        {"F10 R", "gui_tests"},
        {"Right", "File"},
        {"F10", ""},
        {"Alt+D", "Menu 9@3"},
        {"Alt", "gui_tests"},
    });
    EXPECT_NE(pictureOfTitle(), unselected) << "where the keys go is to be seen";
    Take({{"Alt", ""}, {"B", "Change 1@3"}});
    EXPECT_EQ(GetGadgetText(1), u"fb");
    // Alt may be let go last or first: it was for the letter.
    QWindow* const handle = Native(3)->windowHandle();
    QTest::keyPress(handle, Qt::Key_Alt);
    Press(Qt::Key_H, Qt::AltModifier);
    QTest::keyRelease(handle, Qt::Key_Alt);
    Take({{"Return", "Menu 6@3"}});
    QTest::keyPress(handle, Qt::Key_D, Qt::AltModifier);
    QTest::keyRelease(handle, Qt::Key_Alt);
    Take({{"Shift", "Menu 9@3"}, {"Shift", ""}});
}

TEST_F(MenuTest, DisabledWindowHasNoMenus) {
    BuildMotorcycles();
    Press("Alt+F");
    WindowDisable(3, true);
    for (const auto change : {+[] {}, &BuildMotorcycles, +[] { FreeMenu(0); }}) {
        change();
        ForgetEvents();
        EXPECT_EQ(After("Alt Alt+F F10 Ctrl+Q X"), "");
        EXPECT_FALSE(IsMenuOpen() || Bar().isEnabled());
    }
    WindowDisable(3, false);
    ForgetEvents();
    EXPECT_EQ(After("X"), "Change 1@3");
}

TEST_F(MenuTest, WindowAboveAnotherHasTheApplicationsKeysAndThoseForClosing) {
    BuildMotorcycles();
    EXPECT_EQ(After("Esc Ctrl+W"), "") << "a window of its own";
    for (const std::uint32_t flags : {0U, WindowCloseBox}) {
        WindowCreate(4, 0, 0, 200, 50, {}, flags, WindowNativeHandle(3));
        CreateField();
        const std::string result = flags == 0 ? "" : "Close 4";
        Take({{"Esc", result}, {"Ctrl+W", result}});
    }
    WindowDisable(3, true);
    Take({{"Ctrl+5", ""}, {"Ctrl+,", ""}, {"Ctrl+Q", "Menu -4@3"}});
    FreeMenu(0);
    EXPECT_EQ(After("Ctrl+Q"), "Menu -4@3") << "the plain bar has it too";
    MenuCreate(1, WindowNativeHandle(4));
    MenuTitle(u"Zoom");
    MenuItem(1, u"One");
    // The menu is left, then the bar, then the window.
    EXPECT_EQ(After("Alt+Z Esc"), "");
    Take({{"Esc", ""}, {"Esc", "Close 4"}});
    WindowDisable(4, true);
    ForgetEvents();
    EXPECT_EQ(After("Ctrl+Q"), "");
}

TEST_F(MenuTest, FreeingPutsThePlainBarBack) {
    BuildMotorcycles();
    Press("Alt+F");
    std::raise(SIGTERM);
    EXPECT_EQ(Taken(), "Close 0") << "waits go on while a menu is open";
    MenuCreate(1, WindowNativeHandle(3));
    EXPECT_FALSE(IsMenuOpen()) << "an open menu goes at once";
    FreeMenu(0);
    FreeMenu(1);
    // The offscreen platform gives a menu the keyboard and, sometimes, nobody when it closes.
    Native(3)->activateWindow();
    ForgetEvents();
    FreeMenu(0);
    MenuTitle(u"Lost");
    EXPECT_EQ(Bar().actions().size(), 1);
    EXPECT_EQ(After("Ctrl+5 Alt+F"), "");
    WindowCreate(3, 0, 0, 200, 100);
    EXPECT_EQ(Native(3)->Layout().MenuBar(), nullptr);
}

}  // namespace
}  // namespace rotavel
