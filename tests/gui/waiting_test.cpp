#include <cstdlib>
#include <functional>
#include <utility>
#include <vector>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QTest>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

// What comes in while the program is busy: the next wait finds it all at once.
std::vector<std::function<void()>> ahead;

constexpr std::int64_t AskItem = 70;

void TypeAhead(const char* keys) {
    for (const QString& name : QString(keys).split(' ')) {
        const QKeyCombination key = QKeySequence(name)[0];
        const QString text = key.key() < 0x80 ? QString(QChar(key.key()).toLower()) : QString();
        ahead.emplace_back([=] {
            qt_handleKeyEvent(Native(0)->windowHandle(), QEvent::KeyPress, key.key(),
                              key.keyboardModifiers(), text);
        });
    }
}

void MouseAhead(QPoint place, QEvent::Type type, Qt::MouseButton button, int time) {
    ahead.emplace_back([=] {
        const Qt::MouseButtons down = type == QEvent::MouseButtonPress ? button : Qt::NoButton;
        qt_handleMouseEvent(Native(0)->windowHandle(), place, Native(0)->mapToGlobal(place), down,
                            button, type, {}, time);
    });
}

void ClickAhead(GadgetNumber gadget, Qt::MouseButton button, int time) {
    const QPoint place = View(gadget)->geometry().center() + Native(0)->ContentView()->pos();
    MouseAhead(place, QEvent::MouseButtonPress, button, time);
    MouseAhead(place, QEvent::MouseButtonRelease, button, time + 10);
}

// A program that goes on to the second field once the first has changed, and asks when it is told
// to: waits until nothing more comes. Returns the numbers and types of what was used.
std::string Drain() {
    std::string taken;
    while (WaitForEvent(0) != 0 || WaitForEvent(0) != 0) {
        const std::int64_t object = CurrentEventObject();
        if (CurrentEventKind() == GadgetActivity || CurrentEventKind() == MenuChosen) {
            taken += std::to_string(object) + " " + std::to_string(CurrentEventType()) + ";";
            if (object == 1 && CurrentEventType() == Change) {
                ActivateGadget(2);
            } else if (object == AskItem) {
                MessageRequester(u"Question", u"Well?");
            }
        }
    }
    return taken;
}

class WaitingTest : public GuiTest {
  protected:
    void SetUp() override {
        WindowCreate(0, 0, 0, 300, 200);
        WindowAddShortcut(0, u"F5", 50);
        MenuCreate(0, WindowNativeHandle(0));
        MenuTitle(u"File");
        MenuItem(AskItem, u"Ask");
        MenuItem(60, u"Six\tF6");
        StringGadgetCreate(1, 10, 10, 80, 20);
        StringGadgetCreate(2, 10, 40, 80, 20);
        ButtonGadgetCreate(3, 10, 70, 80, 20, u"Push");
        ImageGadgetCreate(4, 10, 100, 40, 40);
        ActivateGadget(1);
        ForgetEvents();
        const auto comeIn = [] {
            for (const auto& input : std::exchange(ahead, {})) {
                input();
            }
        };
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         Native(0), comeIn);
    }
};

TEST_F(WaitingTest, KeysAndClicksGoOneByOneToWhereTheProgramHasGone) {
    TypeAhead("A Space B");
    Drain();
    EXPECT_EQ(GetGadgetText(1), u"a");
    for (int round = 0; round < 10; ++round) {
        // From the menu to the bar and to the field, then to the box and its answer.
        TypeAhead("Alt+F Esc Esc A Alt+F Return Return B");
        Drain();
        ForgetEvents();
    }
    EXPECT_EQ(GetGadgetText(2), u" babababababababababab");

    for (int press = 0; press < 2; ++press) {
        TypeAhead("F5 F6 F6");
        ClickAhead(3, Qt::LeftButton, 10'000 + 2'000 * press);
        ClickAhead(4, Qt::RightButton, 11'000 + 2'000 * press);
        ClickAhead(4, Qt::RightButton, 11'050 + 2'000 * press);  // a double click
    }
    EXPECT_EQ(Drain(), "50 0;60 0;60 0;2 512;3 0;4 1;4 3;50 0;60 0;60 0;3 0;4 1;4 3;");
}

TEST_F(WaitingTest, KeysThatAClosedRealWindowWasSentGoToTheNext) {
    if (QGuiApplication::platformName() != "xcb") {
        GTEST_SKIP() << "only X sends keys to a window that has closed";
    }
    WindowCreate(1, 0, 0, 100, 100);
    ForgetEvents();
    ASSERT_EQ(std::system("xdotool key b"), 0);
    WindowDestroy(1);
    ForgetEvents();
    Press("Alt+F");
    ForgetEvents();
    ASSERT_EQ(std::system("xdotool key c"), 0);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QApplication::activePopupWidget()->close();
    ForgetEvents();
    EXPECT_EQ(GetGadgetText(1), u"bc");
}

TEST_F(WaitingTest, PointersClickScrollAndAreFolded) {
    static QPointingDevice* const screen = QTest::createTouchDevice();
    const QPoint place = View(3)->mapTo(Native(0), View(3)->rect().center());
    ahead = {[=] { QTest::touchEvent(Native(0), screen, false).press(1, place).commit(false); },
             [=] { QTest::touchEvent(Native(0), screen, false).release(1, place).commit(false); }};
    EXPECT_EQ(Drain(), "1 512;3 0;") << "the toolkit makes a click of it";

    CanvasGadgetCreate(5, 100, 100, 100, 2800);
    TypeAhead("Tab");
    for (int x = 120; x < 150; ++x) {
        MouseAhead({x, 150}, QEvent::MouseMove, Qt::NoButton, 30'000 + x);
    }
    EXPECT_EQ(Drain(), "5 65537;5 65539;") << "of the pointer's moves the last is left";

    // An input that had to wait counts as any other where the pointer near the edge scrolls.
    WindowSetBounds(0, IgnoreValue, IgnoreValue, IgnoreValue, 3000);
    ForgetEvents();
    const std::int64_t before = GadgetY(3, OnScreen);
    ClickAhead(3, Qt::LeftButton, 40'000);
    MouseAhead({100, Native(0)->height() - 5}, QEvent::MouseMove, Qt::NoButton, 41'000);
    EXPECT_TRUE(QTest::qWaitFor([=] { return Drain().empty() && GadgetY(3, OnScreen) < before; }));
}

}  // namespace
}  // namespace rotavel
