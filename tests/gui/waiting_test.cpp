#include <functional>
#include <utility>
#include <vector>

#include <QAbstractEventDispatcher>
#include <QTest>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

// What comes in while the program is busy: the next wait finds it all at once.
std::vector<std::function<void()>> ahead;

void TypeAhead(Qt::Key key, const QString& text = {}, Qt::KeyboardModifiers modifiers = {}) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        ahead.emplace_back(
            [=] { qt_handleKeyEvent(Native(0)->windowHandle(), type, key, modifiers, text); });
    }
}

void MouseAhead(QPoint place, QEvent::Type type, Qt::MouseButton button, int time) {
    ahead.emplace_back([=] {
        QWindow* const window = Native(0)->windowHandle();
        qt_handleMouseEvent(window, place, window->mapToGlobal(place),
                            type == QEvent::MouseButtonPress ? button : Qt::NoButton, button, type,
                            {}, time);
    });
}

void ClickAhead(GadgetNumber gadget, Qt::MouseButton button, int time) {
    const QPoint place = View(gadget)->mapTo(Native(0), View(gadget)->rect().center());
    MouseAhead(place, QEvent::MouseButtonPress, button, time);
    MouseAhead(place, QEvent::MouseButtonRelease, button, time + 10);
}

constexpr std::int64_t AskItem = 70;

// A program that goes on to the second field once the first has changed, and asks when it is told
// to: waits until nothing more comes.
std::string Drain() {
    std::string taken;
    for (int idle = 0; idle < 2;) {
        const std::int64_t kind = WaitForEvent(0);
        idle = kind == 0 ? idle + 1 : 0;
        if (kind == GadgetActivity || kind == MenuChosen) {
            taken += std::to_string(CurrentEventObject()) + " " +
                     std::to_string(CurrentEventType()) + ";";
            if (CurrentEventObject() == 1 && CurrentEventType() == Change) {
                ActivateGadget(2);
            } else if (kind == MenuChosen && CurrentEventObject() == AskItem) {
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
        StringGadgetCreate(1, 10, 10, 80, 20);
        StringGadgetCreate(2, 10, 40, 80, 20);
        ButtonGadgetCreate(3, 10, 70, 80, 20, u"Push");
        ImageGadgetCreate(4, 10, 100, 40, 40);
        ActivateGadget(1);
        ForgetEvents();
        QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::awake,
                         &context, [] {
                             for (const auto& input : std::exchange(ahead, {})) {
                                 input();
                             }
                         });
    }

  private:
    QObject context;
};

TEST_F(WaitingTest, EachInputFindsItsReceiverOnceTheOneBeforeIsHandled) {
    TypeAhead(Qt::Key_A, "a");
    TypeAhead(Qt::Key_Space, " ");
    TypeAhead(Qt::Key_B, "b");
    Drain();
    EXPECT_EQ(GetGadgetText(1), u"a");
    EXPECT_EQ(GetGadgetText(2), u" b");
}

TEST_F(WaitingTest, KeysGoOnWhereMenusAndBoxesOpenAndClose) {
    MenuCreate(0, WindowNativeHandle(0));
    MenuTitle(u"File");
    MenuItem(AskItem, u"Ask");
    ActivateGadget(2);
    for (int round = 0; round < 10; ++round) {
        TypeAhead(Qt::Key_F, "f", Qt::AltModifier);
        TypeAhead(Qt::Key_Escape);
        TypeAhead(Qt::Key_Escape);  // from the bar back to the field
        TypeAhead(Qt::Key_A, "a");
        TypeAhead(Qt::Key_F, "f", Qt::AltModifier);
        TypeAhead(Qt::Key_Return);
        TypeAhead(Qt::Key_Return);  // the answer
        TypeAhead(Qt::Key_B, "b");
        Drain();
        ForgetEvents();
    }
    EXPECT_EQ(GetGadgetText(2), u"abababababababababab");
}

TEST_F(WaitingTest, EqualInputsStayAsManyAsTheyWere) {
    WindowAddShortcut(0, u"F5", 50);
    MenuCreate(0, WindowNativeHandle(0));
    MenuTitle(u"File");
    MenuItem(60, u"Six\tF6");
    ForgetEvents();
    for (int press = 0; press < 2; ++press) {
        TypeAhead(Qt::Key_F5);
        TypeAhead(Qt::Key_F6);
        TypeAhead(Qt::Key_F6);
        ClickAhead(3, Qt::LeftButton, 10'000 + 2'000 * press);
        ClickAhead(4, Qt::RightButton, 11'000 + 2'000 * press);
    }
    EXPECT_EQ(Drain(), "50 0;60 0;60 0;1 512;3 0;4 1;50 0;60 0;60 0;3 0;4 1;");
}

// A macro keyboard types faster than the clock ticks.
TEST_F(WaitingTest, KeysOfOneMomentStayApart) {
    MenuCreate(0, WindowNativeHandle(0));
    MenuTitle(u"File");
    MenuItem(60, u"Six\tCTRL+F6");
    ForgetEvents();
    for (int press = 0; press < 5; ++press) {
        for (const Qt::Key key : {Qt::Key_Control, Qt::Key_F6}) {
            TypeAhead(key, {}, Qt::ControlModifier);
        }
        std::swap(ahead[1], ahead[2]);  // the release of the first and the press of the second
        EXPECT_EQ(Drain(), "60 0;");
    }
}

// The toolkit makes a click of it.
TEST_F(WaitingTest, ATapThatComesInAtOnceIsAClick) {
    static QPointingDevice* const screen = QTest::createTouchDevice();
    const QPoint place = View(3)->mapTo(Native(0), View(3)->rect().center());
    ahead = {[=] { QTest::touchEvent(Native(0), screen, false).press(1, place).commit(false); },
             [=] { QTest::touchEvent(Native(0), screen, false).release(1, place).commit(false); }};
    EXPECT_EQ(Drain(), "1 512;3 0;");
}

// An input that had to wait counts as any other where the pointer near the edge scrolls.
TEST_F(WaitingTest, APointerThatComesToTheEdgeAfterAClickScrolls) {
    WindowCreate(0, 0, 0, 300, 3000);
    ButtonGadgetCreate(3, 10, 10, 80, 20, u"Push");
    ForgetEvents();
    const std::int64_t before = GadgetY(3, OnScreen);
    ClickAhead(3, Qt::LeftButton, 40'000);
    MouseAhead({100, Native(0)->height() - 5}, QEvent::MouseMove, Qt::NoButton, 41'000);
    EXPECT_TRUE(QTest::qWaitFor([=] { return !Drain().empty() || GadgetY(3, OnScreen) < before; }));
    EXPECT_TRUE(QTest::qWaitFor([=] { return Drain().empty() && GadgetY(3, OnScreen) < before; }));
}

TEST_F(WaitingTest, ADoubleClickStaysOneAndAPointerOnItsWayIsFolded) {
    ClickAhead(4, Qt::RightButton, 20'000);
    ClickAhead(4, Qt::RightButton, 20'050);
    ClickAhead(4, Qt::RightButton, 20'100);
    EXPECT_EQ(Drain(), "4 1;4 3;") << "a third click is none of them";

    CanvasGadgetCreate(5, 100, 100, 100, 80);
    static int moves;
    moves = 0;
    BindEvent([] { ++moves; }, GadgetActivity, 0, 5, CanvasMouseMove);
    TypeAhead(Qt::Key_A, "a");
    for (int x = 120; x < 150; ++x) {
        MouseAhead({x, 150}, QEvent::MouseMove, Qt::NoButton, 30'000 + x);
    }
    Drain();
    EXPECT_EQ(moves, 1);
    EXPECT_EQ(GetGadgetText(1), u"a");
}

}  // namespace
}  // namespace rotavel
