#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

using WindowTest = GuiTest;

QSize Content(std::int64_t window) {
    return QSize(int(WindowGetWidth(window)), int(WindowGetHeight(window)));
}

QRect Frame(std::int64_t window) {
    return QRect(int(WindowGetX(window)), int(WindowGetY(window)),
                 int(WindowGetWidth(window, OuterFrame)), int(WindowGetHeight(window, OuterFrame)));
}

QRect Room() {
    return QGuiApplication::primaryScreen()->availableGeometry();
}

bool IsCentred(std::int64_t window, const QRect& over) {
    return (Frame(window).center() - over.center()).manhattanLength() <= 2;
}

// The window that has the keyboard once everything has settled.
std::int64_t Key() {
    ForgetEvents();
    return KeyWindowNumber();
}

// The window that is to be seen at a place of another one's content.
std::int64_t TopmostAt(std::int64_t window, QPoint place) {
    ForgetEvents();
    return WindowNumberOf(
        QApplication::topLevelAt(Native(window)->ContentView()->mapToGlobal(place)));
}

TEST_F(WindowTest, HasTheNumberPlaceAndSizeItWasGiven) {
    const std::int64_t handle = WindowCreate(3, 30, 40, 200, 100, u"a[*]b");
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(WindowNativeHandle(3)));
    EXPECT_EQ(Frame(3).topLeft(), QPoint(30, 40));
    EXPECT_EQ(Native(3)->windowHandle()->title(), "a[*]b");
    MenuCreate(0, WindowNativeHandle(3));
    EXPECT_EQ(Content(3), QSize(200, 100)) << "the menu bar takes nothing from the content";
    EXPECT_EQ(WindowGetY(3, InnerContent), Native(3)->ContentView()->mapToGlobal(QPoint()).y());
    WindowSetBounds(3, IgnoreValue, 50, 210, IgnoreValue);
    EXPECT_EQ(Frame(3).topLeft(), QPoint(30, 50));
    EXPECT_EQ(Content(3), QSize(210, 100));
    WindowCreate(3, IgnoreValue, 5, 50, 60);
    EXPECT_TRUE(IsCentred(3, Room()));
    EXPECT_EQ(Content(WindowCreate(AnyNumber, 0, 0, 70, 80)), QSize(70, 80));
    WindowCreate(3, 0, 0, 200, 100, u"", WindowResizable);
    MenuCreate(0, WindowNativeHandle(3));
    Native(3)->resize(200, 0);
    EXPECT_GT(Native(3)->height(), 10) << "the menu bar can always be reached";
    EXPECT_EQ(WindowCreate(0, 0, 0, 32768, 10) + WindowCreate(-2, 0, 0, 10, 10), 0);
}

TEST_F(WindowTest, ReportsItsGeometry) {
    for (const std::int64_t window : {0, 1}) {
        WindowCreate(window, 50, 50, 200, 100, u"", WindowResizable);
        ForgetEvents();
        WindowSetBounds(window, 70, IgnoreValue, 220, IgnoreValue);
        WindowSetBounds(window, IgnoreValue, 80, IgnoreValue, 120);
        // Of window 0's resize events only the newest is kept.
        EXPECT_EQ(TakenGeometry(), window == 0 ? "Moved 0, Resized 0, Moved 0"
                                               : "Resized 1, Moved 1, Resized 1, Moved 1");
    }
    // A zoom may come as a new state first and a new size later.
    Native(1)->showMaximized();
    Native(1)->showNormal();
    EXPECT_EQ(TakenGeometry().find("Maximized 1, Resized 1, Restored 1, Resized 1"), 0U);
    EXPECT_EQ(Content(1), QSize(220, 120));
}

TEST_F(WindowTest, ClosesWithAllThatBelongsToIt) {
    static int ticks;
    for (const std::int64_t window : {0, 1}) {
        WindowCreate(window, 0, 0, 200, 100);
        TextGadgetCreate(10 + window, 0, 0, 50, 20);
    }
    WindowAddTimer(
        1, 1, [](void*) { ++ticks; }, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([] { return ticks > 0; }));
    PostProgramEvent(MenuChosen, 1, 6);
    PostProgramEvent(MenuChosen, 0, 7);
    WindowDestroy(1);
    ticks = 0;
    EXPECT_EQ(Taken(), "Menu 7");
    WaitForEvent(10);
    EXPECT_EQ(ticks, 0);
    EXPECT_TRUE(GadgetExists(10) && !GadgetExists(11));
    EXPECT_EQ(TextGadgetCreate(11, 0, 0, 50, 20), 0) << "no window is current any more";
}

TEST_F(WindowTest, HandsTheKeyboardBack) {
    const auto keyAfterClosing2 = [](auto meanwhile) {
        WindowDestroy(AnyNumber);
        for (const std::int64_t window : {0, 1, 2}) {
            WindowCreate(window, 0, 0, 200, 100);
            ForgetEvents();
        }
        meanwhile();
        ForgetEvents();
        WindowDestroy(2);
        return Key();
    };
    EXPECT_EQ(keyAfterClosing2([] {}), 1);
    EXPECT_EQ(keyAfterClosing2([] { WindowShow(1, Hidden); }), 0) << "else the first visible one";
    EXPECT_EQ(keyAfterClosing2([] { WindowDestroy(1); }), 0);
    QWindow others;
    const auto activateOthers = [&others] {
        others.show();
        others.requestActivate();
    };
    EXPECT_EQ(keyAfterClosing2(activateOthers), -1) << "another program keeps it";
    others.hide();
    EXPECT_EQ(keyAfterClosing2([] { WindowActivate(0); }), 0) << "2 did not have it";
    WindowCreate(3, 10, 20, 200, 100, u"", WindowHidden);
    WindowActivate(3);
    EXPECT_EQ(Key(), 0);
    WindowShow(3, Shown);
    EXPECT_EQ(Key(), 3);
    EXPECT_EQ(Frame(3).topLeft(), QPoint(10, 20));
}

TEST_F(WindowTest, TakesNoInputWhileDisabled) {
    WindowCreate(0, 100, 100, 200, 100);
    StringGadgetCreate(1, 0, 0, 50, 20);
    ActivateGadget(1);
    WindowDisable(0, true);
    WindowCreate(1, 0, 0, 50, 50, u"", WindowOwnerCentred, WindowNativeHandle(0));
    ForgetEvents();
    EXPECT_TRUE(IsCentred(1, Frame(0)));
    Native(0)->activateWindow();  // as the window manager may
    EXPECT_EQ(Key(), 1) << "the window above it gets the keyboard";
    ActivateGadget(1);
    Click(1);
    AskToClose(0);
    EXPECT_EQ(Taken(), "");
    WindowDisable(0, false);
    AskToClose(0);
    EXPECT_EQ(Taken(), "Focus 1, Close 0");
}

using RealWindowTest = GuiTest;

TEST_F(RealWindowTest, StacksAndActivates) {
    if (QGuiApplication::platformName() == "offscreen") {
        GTEST_SKIP() << "there is no stack, and what is shown is active";
    }
    WindowCreate(0, 100, 100, 300, 200);
    ForgetEvents();
    // Shown so it never gets the keyboard, neither new nor hidden before.
    WindowCreate(1, 120, 120, 100, 50, u"", WindowNotActivated, WindowNativeHandle(0));
    EXPECT_EQ(Key(), 0);
    WindowShow(1, Hidden);
    ForgetEvents();
    WindowShow(1, Shown, WindowNotActivated);
    EXPECT_EQ(Key(), 0);
    EXPECT_EQ(TopmostAt(1, {50, 25}), 1);
    WindowShow(1, Hidden);
    WindowShow(1, Shown);
    EXPECT_EQ(Key(), 1);
    WindowActivate(0);
    EXPECT_EQ(Key(), 0);
    EXPECT_EQ(TopmostAt(1, {50, 25}), 1) << "above its parent";
    WindowCreate(2, 90, 90, 400, 300, u"", WindowNotActivated);
    EXPECT_EQ(TopmostAt(0, {250, 150}), 2);
    WindowActivate(0);
    EXPECT_EQ(TopmostAt(0, {250, 150}), 0) << "though it had the keyboard already";
}

TEST_F(WindowTest, OnlyACloseBoxAsksToClose) {
    for (const std::uint32_t flags :
         {WindowResizable, WindowBorderless | WindowCloseBox, WindowMinimizeBox}) {
        WindowCreate(1, 100, 100, 100, 50, u"", flags);
        ForgetEvents();
        AskToClose(1);
        EXPECT_EQ(Taken(), flags == WindowMinimizeBox ? "Close 1" : "") << flags;
        EXPECT_TRUE(Native(1)->isVisible());
    }
}

TEST_F(WindowTest, PopupKeepsItsPlaceWhereThereIsRoom) {
    WindowCreate(0, 100, 100, 200, 100);
    WindowCreate(2, 0, 0, 100, 80, u"", WindowBorderless, WindowNativeHandle(0));
    StringGadgetCreate(1, 0, 0, 50, 20);
    ForgetEvents();
    ActivateGadget(1);
    EXPECT_EQ(Taken(), "") << "no key can reach it";
    const QRect room = Room();
    const auto show = [](QPoint pointer, std::uint32_t flags = 0) {
        QCursor::setPos(pointer);
        WindowShow(2, Shown, flags);
        ForgetEvents();
        return Frame(2);
    };
    WindowSetBounds(2, Frame(0).right() + 1, Frame(0).top(), IgnoreValue, IgnoreValue);
    EXPECT_EQ(show({0, 0}).topLeft(), Frame(0).topRight() + QPoint(1, 0));
    WindowSetBounds(2, room.right() - 60, room.top() - 30, IgnoreValue, IgnoreValue);
    const QRect inCorner(room.right() - 99, room.top(), 100, 80);
    EXPECT_EQ(show(room.topLeft()), inCorner);
    for (int turn = 0; turn < 2; ++turn) {
        const QPoint pointer = Frame(2).center();  // it gives way when it is shown again
        EXPECT_TRUE(room.contains(show(pointer)));
        EXPECT_FALSE(Frame(2).contains(pointer));
    }
    EXPECT_EQ(show(room.topLeft()), inCorner);
    for (const std::uint32_t flags : {WindowOwnerCentred, 0U}) {
        show(room.topLeft(), flags);
        EXPECT_TRUE(IsCentred(2, Frame(0)));
    }

    // Where its owner reaches to the edge of the screen, the close box there stays free.
    WindowSetBounds(0, room.right() - 210, 100, IgnoreValue, IgnoreValue);
    WindowSetBounds(2, Frame(0).right() + 1, 100, IgnoreValue, IgnoreValue);
    EXPECT_EQ(show(room.topLeft()).topLeft(),
              QPoint(inCorner.left(), int(WindowGetY(0, InnerContent))));
}

TEST_F(WindowTest, ScrollsContentThatTheScreenHasNoRoomFor) {
    constexpr std::int64_t canvas = 63;
    constexpr int bar = 24;  // the status bar's height
    const QRect room = Room();
    WindowCreate(0, 0, 0, 50, 50);
    ForgetEvents();  // from here on the size of a frame is known
    const QSize frame = Frame(0).size() - QSize(50, 50);
    const int tall = room.height() - frame.height();
    WindowCreate(1, 10, 10, 300, tall - 20, u"", WindowScreenCentred);
    CanvasGadgetCreate(canvas, 10, 10, 280, 2014);
    StatusBarCreate(7, WindowNativeHandle(1));
    StatusBarAddField(100);
    const auto setHeight = [](int height) {
        WindowSetBounds(1, IgnoreValue, IgnoreValue, IgnoreValue, height);
        ForgetEvents();
    };
    setHeight(tall);
    EXPECT_EQ(Frame(1), QRect(Frame(1).left(), room.top(), 300 + frame.width(), room.height()))
        << "grown where it was, it would reach below the screen";
    EXPECT_FALSE(Native(1)->Layout().IsScrolled());
    setHeight(2024 + bar);
    EXPECT_EQ(Content(1), QSize(300, 2048));
    EXPECT_EQ(Frame(1).top(), room.top());
    EXPECT_EQ(Frame(1).height(), room.height());
    EXPECT_GT(Native(1)->width(), 305) << "nothing is to be scrolled across";

    const auto row = [] {
        ForgetEvents();
        return GetGadgetAttribute(canvas, CanvasMouseY);
    };
    const auto pointedRow = [&row](int y) {
        QTest::mouseMove(Native(1)->windowHandle(), {100, y - 1});
        QTest::mouseMove(Native(1)->windowHandle(), {100, y});
        return row();
    };
    const auto turnWheel = [&row] {
        QWindow& native = *Native(1)->windowHandle();
        QWheelEvent wheel(QPointF(100, 200), native.mapToGlobal(QPointF(100, 200)), {}, {0, -120},
                          {}, {}, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        QCoreApplication::instance()->notify(&native, &wheel);
        return row();
    };
    ActivateGadget(canvas);
    Press(Qt::Key_Down);
    EXPECT_EQ(row(), 2013 / 2);
    EXPECT_TRUE(room.contains(20, int(GadgetY(canvas, OnScreen) + 2013 / 2)));
    Press(Qt::Key_Home);
    EXPECT_EQ(pointedRow(200), 190);
    const std::int64_t scrolled = turnWheel();
    EXPECT_GT(scrolled, 190) << "where the pointer is, though it did not move";
    EXPECT_EQ(pointedRow(210), scrolled + 10);
    EXPECT_EQ(GadgetY(canvas, OnScreen), WindowGetY(1, InnerContent) + 10 + 190 - scrolled);
    const QWidget& footer = *Native(1)->ContentView()->findChild<QLabel*>()->parentWidget();
    EXPECT_EQ(footer.mapTo(Native(1), QPoint(0, bar)), QPoint(0, Native(1)->height()));
    WindowDisable(1, true);
    EXPECT_EQ(turnWheel(), scrolled + 10);
    EXPECT_FALSE(Native(1)->findChild<QScrollBar*>()->isEnabled());
    WindowDisable(1, false);
    Press(Qt::Key_Home);
    EXPECT_EQ(pointedRow(200), 190);
    // The pointer near the edge brings the end into view, and no more than that.
    Press(Qt::Key_End);
    Press(Qt::Key_Up);
    pointedRow(Native(1)->height() - bar - 5);
    EXPECT_TRUE(QTest::qWaitFor([&row] { return row() == 2024 - 10 - 5; }));
    // So does the focus, as little as it can, and the resting pointer does not undo it.
    Press(Qt::Key_Home);
    StringGadgetCreate(1, 10, 1000, 50, 20);
    ActivateGadget(1);
    ForgetEvents();
    EXPECT_EQ(View(1)->mapTo(Native(1), QPoint(0, 20)), QPoint(10, Native(1)->height() - bar));
    setHeight(100);
    EXPECT_EQ(Native(1)->size(), QSize(300, 100)) << "all as if it had never been larger";
    EXPECT_EQ(Native(1)->ContentView()->geometry(), QRect(0, 0, 300, 100));
}

TEST_F(WindowTest, StatusBarLaysOutItsFields) {
    WindowCreate(0, 0, 0, 300, 100, u"", WindowResizable);
    const struct {
        std::vector<std::int64_t> Widths;
        std::vector<QRect> Places;
    } cases[] = {
        {{50, IgnoreValue, 80}, {{0, 98, 50, 20}, {50, 98, 230, 20}, {280, 98, 80, 20}}},
        // Each starts where the widths before it add up to, whatever the window has room for.
        {{450, -30, 60}, {{0, 98, 450, 20}, {450, 98, 0, 20}, {420, 98, 60, 20}}},
    };
    for (const auto& [widths, expected] : cases) {
        EXPECT_NE(StatusBarCreate(7, WindowNativeHandle(0)), 0);
        for (const std::int64_t width : widths) {
            StatusBarAddField(width);
        }
        WindowSetBounds(0, IgnoreValue, IgnoreValue, 360, 120);
        ForgetEvents();
        std::vector<QRect> places;
        for (const QLabel* const label : Native(0)->ContentView()->findChildren<QLabel*>()) {
            places.push_back(label->geometry().translated(label->parentWidget()->pos()));
        }
        EXPECT_EQ(places, expected);
    }
    StatusBarSetText(7, 0, u"<b>", StatusRight | StatusCentred);
    StatusBarSetText(7, 3, u"beyond");
    const QLabel& label = *Native(0)->ContentView()->findChild<QLabel*>();
    EXPECT_EQ(label.text(), "<b>");
    EXPECT_TRUE(label.alignment().testFlag(Qt::AlignRight));
    WindowDestroy(0);
    EXPECT_EQ(StatusBarHeight(7), 0);
}

}  // namespace
}  // namespace rotavel
