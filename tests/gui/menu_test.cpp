#include "gui/menu.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

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

    // The item at a place of a menu of the window's bar.
    static QAction& Item(int title, int item) {
        return *Native(3)->Layout().MenuBar()->actions().at(title)->menu()->actions().at(item);
    }
};

TEST_F(MenuTest, IsBuiltFromFrontToBack) {
    EXPECT_EQ(MenuCreate(0, nullptr), 0);
    const std::int64_t handle = MenuCreate(0, WindowNativeHandle(3));
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(Native(3)->Layout().MenuBar()));
    const std::string name = Native(3)->Layout().MenuBar()->actions().front()->text().toStdString();
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
    EXPECT_EQ(Native(3)->Layout().MenuBar()->actions().size(), 1);
    EXPECT_EQ(WindowGetHeight(3), 100);
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "");
    build();
    BindEvent([] { WindowDestroy(3); }, MenuChosen);
    Press(Qt::Key_5, Qt::ControlModifier);
    EXPECT_EQ(Taken(), "") << "event and menu went with the window";
    WindowCreate(3, 0, 0, 200, 100);
    EXPECT_EQ(Native(3)->Layout().MenuBar(), nullptr);
}

}  // namespace
}  // namespace rotavel
