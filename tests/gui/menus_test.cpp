#include <csignal>
#include <functional>
#include <string>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <QTimer>
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
    // Builds a bar with the items 1, 2, ... by a text as MenuOutline gives it.
    static void Build(const QString& outline) {
        MenuCreate(0, WindowNativeHandle(3));
        std::int64_t number = 0;
        int depth = 0;
        static const QRegularExpression entry("([^(),]*)([(),])");
        for (const auto& match : entry.globalMatch(outline)) {
            const std::u16string text = match.captured(1).toStdU16String();
            if (match.captured(2) == "(") {
                const auto open = depth++ == 0 ? MenuTitle : MenuOpenSubmenu;
                open(text);
            } else if (match.captured(2) == ")") {
                MenuCloseSubmenu();
                --depth;
            } else if (text == u"-") {
                MenuSeparator();
            } else if (!text.empty()) {
                MenuItem(++number, text);
            }
        }
    }
    static void BuildMotorcycles() {
        Build("File(Makers(Moto Guzzi(a1,b2,),),MV,),Help(a,),Fork(Oil,Five\tCTRL+5,),Direct,");
    }
    static void CreateField() {  // with the keyboard
        StringGadgetCreate(1, 0, 0, 100, 20);
        ActivateGadget(1);
        ForgetEvents();
    }
    // What is selected in the bar and in every open menu, from the bar on.
    static std::string Selected() {
        QStringList selected;
        for (const QAction* action = Bar().activeAction(); action != nullptr;) {
            selected += action->text();
            const QMenu* const menu = action->menu();
            action = menu != nullptr && menu->isVisible() ? menu->activeAction() : nullptr;
        }
        return selected.join(" > ").toStdString();
    }
    // For each of several keys the events that come of it, else what is selected then, else "-".
    static std::string After(const char* keys) {
        std::string told;
        for (const QString& key : QString(keys).split(' ')) {
            Press(key.toUtf8());
            const std::string taken = Taken();
            const std::string result = taken.empty() ? Selected() : taken;
            told.append(told.empty() ? "" : "; ").append(result.empty() ? "-" : result);
        }
        return told;
    }
};

TEST_F(MenuTest, IsBuiltFromFrontToBack) {
    // An item with keys is made at once, the one before it when it is seen.
    Build("dropped,&File(&Makers(A(a&1,),m,n\tCTRL+M,),-,),bar,Help(),");
    EXPECT_EQ(MenuOutline(3),
              "gui_tests(About gui_tests,-,Preferences\u2026,-,Services,-,"
              "Hide gui_tests,Hide Others,Show All,-,Quit gui_tests,),"
              "File(Makers(A(a1,),m,n,),-,),bar,Help(),");
}

TEST_F(MenuTest, ItemsHaveKeysAndFixedNumbers) {
    Build("File(A\tCTRL+SHIFT+S,B\tcmd+alt+o,C\tF1+ALT+X+Y,D\tCTRL+SHIFT+S,F5,Quit\tCMD+Q,");
    MenuItem(9, u"G\tCMD+,");
    // Of items with the same keys the first is chosen; Preferences cannot be chosen yet.
    EXPECT_EQ(After("Ctrl+Shift+S Ctrl+Alt+O Alt+Y F5 Ctrl+Q Ctrl+, Alt+G S"),
              "Menu 1@3; Menu 2@3; Menu 3@3; -; Menu -4@3; Menu 9@3; "
              "gui_tests > Hide gui_tests; -");
    MenuItem(PreferencesItem, u"");
    MenuItem(AboutItem, u"");
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::Quit));  // the session ends
    EXPECT_EQ(After("Ctrl+, Alt+G Return"),
              "Menu -4@-1, Menu -2@3; gui_tests > About gui_tests; Menu -3@3");
}

TEST_F(MenuTest, KeysGoThroughMenusAndBack) {
    BuildMotorcycles();
    const QImage unselected = Bar().grab().toImage();
    // With Alt the next title that begins with the letter, also when a menu is open.
    EXPECT_EQ(After("Alt+F Alt+F Esc F X"),
              "File > Makers; Fork > Oil; Fork; File > Makers; File > Makers");
    // Of several items a letter selects the next; the only one it chooses. The field has kept the
    // window's focus then.
    EXPECT_EQ(After("M M Right M Shift+B F"),
              "File > MV; File > Makers; File > Makers > Moto Guzzi; "
              "File > Makers > Moto Guzzi > a1; Menu 2@3; Change 1@3");
    EXPECT_EQ(After("F10 X Right F10 Alt+D Alt"),
              "gui_tests; gui_tests; File; -; Menu 7@3; gui_tests");
    EXPECT_NE(Bar().grab().toImage(), unselected) << "where the keys go is to be seen";
    EXPECT_EQ(After("Alt B"), "-; Change 1@3");
    // Alt may be let go first: it was for the letter.
    QTest::keyPress(Native(3)->windowHandle(), Qt::Key_D, Qt::AltModifier);
    QTest::keyRelease(Native(3)->windowHandle(), Qt::Key_Alt);
    EXPECT_EQ(After("Shift Shift"), "Menu 7@3; -");
}

TEST_F(MenuTest, DisabledWindowHasNoMenusAndTheOneAboveItTheApplicationsKeys) {
    BuildMotorcycles();
    EXPECT_EQ(After("Esc Ctrl+W"), "-; -") << "a window of its own";
    Press("Alt+F");
    std::raise(SIGTERM);
    EXPECT_EQ(Taken(), "Close 0") << "waits go on while a menu is open";
    WindowDisable(3, true);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    ForgetEvents();
    EXPECT_EQ(After("Alt Alt+F F10 Ctrl+Q X"), "-; -; -; -; -");
    EXPECT_FALSE(Bar().isEnabled());
    WindowDisable(3, false);
    ForgetEvents();
    EXPECT_EQ(After("X Alt+F"), "Change 1@3; File > Makers");
    WindowDisable(3, true);
    WindowCreate(4, 0, 0, 200, 50, {}, WindowCloseBox, WindowNativeHandle(3));
    CreateField();
    EXPECT_EQ(After("Esc Ctrl+W Ctrl+5 Ctrl+, Ctrl+Q"), "Close 4; Close 4; -; -; Menu -4@3");
    FreeMenu(0);
    MenuTitle(u"Lost");
    EXPECT_EQ(Bar().actions().size(), 1) << "the plain bar is back";
    EXPECT_EQ(After("Ctrl+Q"), "Menu -4@3");
    WindowDisable(4, true);
    ForgetEvents();
    EXPECT_EQ(After("Ctrl+Q"), "-");
}

using RequesterTest = GuiTest;

// Shows a message and uses the box as soon as it is up.
std::int64_t Answer(std::uint32_t flags, const std::function<void(QDialog&)>& use) {
    QTimer::singleShot(0, [&use] {
        auto& box = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        // To the toolkit a box is active as soon as the window under it is.
        EXPECT_TRUE(QTest::qWaitFor(
            [&box] { return QGuiApplication::focusWindow() == box.windowHandle(); }));
        use(box);
    });
    return MessageRequester(u"Title", u"<b>Text</b>\n& &amp;", flags);
}

TEST_F(RequesterTest, ShowsWhatItIsToldAndAnswers) {
    constexpr auto information = QStyle::SP_MessageBoxInformation;
    const struct {
        std::uint32_t Flags;
        QStyle::StandardPixmap Icon;
        const char *Buttons, *Keys;
        std::int64_t Answer;
    } cases[] = {
        {0, information, "OK", "Space", 0},
        {MessageError, QStyle::SP_MessageBoxCritical, "OK", "Esc", 0},
        {MessageWarning | MessageInformation, QStyle::SP_MessageBoxWarning, "OK", "Return", 0},
        {MessageYesNo, information, "Yes|No", "Return", 6},
        {MessageYesNo, information, "Yes|No", "Esc Tab Space", 7},  // it has to be answered
        {MessageYesNoCancel, information, "Yes|No|Cancel", "Esc", 2},
    };
    for (const auto& each : cases) {
        const auto use = [&each](QDialog& box) {
            const QList<QLabel*> labels = box.findChildren<QLabel*>();
            QStringList buttons;
            for (const auto* const button : box.findChildren<QAbstractButton*>()) {
                buttons += button->text();
                EXPECT_GT(button->y(), labels[1]->mapTo(&box, QPoint()).y());
            }
            EXPECT_EQ(buttons.join('|'), each.Buttons);
            EXPECT_EQ(box.windowTitle() + labels[0]->text(), "TitleTitle");
            EXPECT_EQ(labels[1]->text(), "<b>Text</b>\n& &amp;");
            EXPECT_EQ(labels[1]->textFormat(), Qt::PlainText);
            EXPECT_LT(labels[0]->mapTo(&box, QPoint(0, labels[0]->height())).y(),
                      labels[1]->mapTo(&box, QPoint(0, 1)).y());
            EXPECT_TRUE(labels[0]->font().bold());
            EXPECT_EQ(box.findChild<QScrollBar*>()->maximum(), 0) << "it is seen whole";
            const QIcon icon = box.style()->standardIcon(each.Icon, nullptr, &box);
            const QImage picture = labels[2]->pixmap().toImage();
            EXPECT_EQ(picture, icon.pixmap(picture.size()).toImage());
            Press(each.Keys);
        };
        EXPECT_EQ(Answer(each.Flags, use), each.Answer);
    }
}

TEST_F(RequesterTest, ProgramGoesOnUnderIt) {
    WindowCreate(2, 0, 0, 200, 100);
    ForgetEvents();
    const auto ask = [](QDialog& outer) {
        // The answer to the one above leaves this one as it is. Both go when the program ends.
        EXPECT_EQ(Answer(0, [](QDialog& inner) { inner.close(); }), 0);
        EXPECT_FALSE(outer.close()) << "it has to be answered";
        EXPECT_EQ(outer.windowHandle()->transientParent(), Native(2)->windowHandle());
        const auto end = [&outer](QDialog& inner) {
            EXPECT_EQ(inner.windowHandle()->transientParent(), outer.windowHandle());
            // The window under them may go, with a wait that cleans up, and another may come.
            WindowDestroy(2);
            WaitForEvent(0);
            WindowCreate(0, 0, 0, 200, 100);
            PostProgramEvent(MenuChosen, 0, 1);
            std::raise(SIGTERM);
        };
        EXPECT_EQ(Answer(MessageYesNoCancel, end), 0);
    };
    EXPECT_EQ(Answer(MessageYesNo, ask), 0);
    EXPECT_EQ(Taken(), "Menu 1, Close 0") << "events wait for the answer";
    EXPECT_EQ(WindowNumberOf(QzWindow::ChosenKeyWindow()), 0) << "not the window that has gone";
}

}  // namespace
}  // namespace rotavel
