#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QScreen>
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

TEST_F(WindowTest, HasTheNumberPlaceAndSizeItWasGiven) {
    WindowCreate(3, 30, 40, 200, 100);
    EXPECT_EQ(Frame(3).topLeft(), QPoint(30, 40));
    MenuCreate(0, WindowNativeHandle(3));
    EXPECT_EQ(Content(3), QSize(200, 100)) << "the menu bar takes nothing from the content";
    EXPECT_EQ(WindowGetY(3, InnerContent), Native(3)->ContentView()->mapToGlobal(QPoint()).y());
    WindowSetBounds(3, IgnoreValue, 50, 210, IgnoreValue);
    EXPECT_EQ(QRect(Frame(3).topLeft(), Content(3)), QRect(30, 50, 210, 100));
    WindowCreate(3, IgnoreValue, 5, 50, 60);
    EXPECT_TRUE(IsCentred(3, Room()));
}

TEST_F(WindowTest, ReportsItsGeometry) {
    for (const std::int64_t window : {0, 1}) {
        WindowCreate(window, 50, 50, 200, 100, u"", WindowResizable);
        ForgetEvents();
        WindowSetBounds(window, 70, IgnoreValue, 220, IgnoreValue);
        WindowSetBounds(window, IgnoreValue, IgnoreValue, IgnoreValue, 120);
        // Of window 0's resize events only the newest is kept.
        EXPECT_EQ(TakenGeometry(),
                  window == 0 ? "Moved 0, Resized 0" : "Resized 1, Moved 1, Resized 1");
    }
    // A zoom may come as a new state first and a new size later.
    Native(1)->showMaximized();
    Native(1)->showNormal();
    EXPECT_EQ(TakenGeometry().find("Maximized 1, Resized 1, Restored 1, Resized 1"), 0U);
    EXPECT_EQ(Content(1), QSize(220, 120));
}

TEST_F(WindowTest, ClosesWithAllThatBelongsToIt) {
    for (const std::int64_t window : {0, 1}) {
        WindowCreate(window, 0, 0, 200, 100);
        TextGadgetCreate(10 + window, 0, 0, 50, 20);
        PostProgramEvent(MenuChosen, window, window);
    }
    BindEvent([] { ADD_FAILURE(); }, CloseRequested, 1);
    WindowDestroy(1);
    QueueEvent(CloseRequested, 1, 1, 0);
    EXPECT_EQ(Taken(), "Menu 0, Close 1");
    EXPECT_TRUE(GadgetExists(10) && !GadgetExists(11));
    EXPECT_EQ(TextGadgetCreate(11, 0, 0, 50, 20), 0) << "no window is current any more";
}

TEST_F(WindowTest, HandsTheKeyboardBack) {
    const std::pair<void (*)(), std::int64_t> cases[] = {
        {[] {}, 1},
        {[] { WindowShow(1, Hidden); }, 0},  // the first visible one
        {[] { WindowDestroy(1); }, 0},
        {[] { WindowActivate(0); }, 0},  // which 2 had taken it from
    };
    for (const auto& [meanwhile, key] : cases) {
        WindowDestroy(AnyNumber);
        for (const std::int64_t window : {3, 0, 1, 2}) {
            WindowCreate(window, 0, 0, 200, 100);
            ForgetEvents();
        }
        meanwhile();
        ForgetEvents();
        WindowDestroy(2);
        EXPECT_EQ(Key(), key);
    }
}

TEST_F(WindowTest, TakesNoInputWhileDisabled) {
    WindowCreate(0, 100, 100, 200, 100);
    StringGadgetCreate(1, 0, 0, 50, 20);
    ActivateGadget(1);
    WindowDisable(0, true);
    ButtonGadgetCreate(2, 0, 30, 50, 20, u"late");
    WindowCreate(1, 0, 0, 50, 50, u"", WindowOwnerCentred, WindowNativeHandle(0));
    ForgetEvents();
    EXPECT_TRUE(IsCentred(1, Frame(0)));
    Native(0)->activateWindow();  // as the window manager may
    EXPECT_EQ(Key(), 1) << "the window above it gets the keyboard";
    ActivateGadget(1);
    Click(2);
    AskToClose(0);
    AskToClose(1);  // which has no close box
    EXPECT_EQ(Taken(), "");
    WindowDisable(0, false);
    AskToClose(0);
    EXPECT_EQ(Taken(), "Focus 1, Close 0");
}

using RealWindowTest = GuiTest;

TEST_F(RealWindowTest, StaysAboveItsParent) {
    if (QGuiApplication::platformName() == "offscreen") {
        GTEST_SKIP() << "there is no stack, and what is shown is active";
    }
    WindowCreate(0, 100, 100, 300, 200);
    ForgetEvents();
    WindowCreate(1, 120, 120, 100, 50, u"", WindowNotActivated, WindowNativeHandle(0));
    EXPECT_EQ(Key(), 0);
    WindowActivate(1);
    EXPECT_EQ(Key(), 1);
    WindowActivate(0);
    EXPECT_EQ(Key(), 0);
    EXPECT_EQ(QApplication::topLevelAt(Frame(1).center()), Native(1));
}

TEST_F(WindowTest, PopupKeepsItsPlaceWhereThereIsRoom) {
    WindowCreate(0, 100, 100, 200, 100);
    WindowCreate(2, 0, 0, 100, 80, u"", WindowBorderless, WindowNativeHandle(0));
    const QRect room = Room();
    const auto show = [](QPoint pointer) {
        QCursor::setPos(pointer);
        WindowShow(2, Shown);
        ForgetEvents();
        return Frame(2);
    };
    WindowSetBounds(2, Frame(0).right() + 1, Frame(0).top(), IgnoreValue, IgnoreValue);
    EXPECT_EQ(show({0, 0}).topLeft(), Frame(0).topRight() + QPoint(1, 0));
    WindowSetBounds(2, room.right() - 60, room.bottom() - 30, IgnoreValue, IgnoreValue);
    const QRect inCorner(room.right() - 99, room.bottom() - 79, 100, 80);
    EXPECT_EQ(show(room.topLeft()), inCorner);
    for (int turn = 0; turn < 2; ++turn) {
        const QPoint pointer = Frame(2).center();  // it gives way when it is shown again
        EXPECT_TRUE(room.contains(show(pointer)));
        EXPECT_FALSE(Frame(2).contains(pointer));
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
    WindowCreate(1, 10, 10, 300, 2024 + bar);
    CanvasGadgetCreate(canvas, 10, 10, 280, 2014);
    StatusBarCreate(7, WindowNativeHandle(1));
    StatusBarAddField(100);
    ForgetEvents();
    EXPECT_EQ(Content(1), QSize(300, 2024 + bar));
    EXPECT_EQ(Frame(1).top(), Room().top());
    EXPECT_EQ(Frame(1).height(), Room().height());
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
    ActivateGadget(canvas);
    Press("Down");
    EXPECT_EQ(row(), 2013 / 2);
    EXPECT_TRUE(Room().contains(20, int(GadgetY(canvas, OnScreen) + 2013 / 2)));
    Press("Home");
    EXPECT_EQ(pointedRow(200), 190);
    QWheelEvent wheel({100, 200}, {100, 200}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Native(1), &wheel);
    const std::int64_t scrolled = row();
    EXPECT_EQ(scrolled, 190 + 3 * 20) << "where the pointer is, though it did not move";
    EXPECT_EQ(pointedRow(210), scrolled + 10);
    EXPECT_EQ(GadgetY(canvas, OnScreen), WindowGetY(1, InnerContent) + 10 + 190 - scrolled);
    const QWidget& footer = *Native(1)->ContentView()->findChild<QLabel*>()->parentWidget();
    EXPECT_EQ(footer.mapTo(Native(1), QPoint(0, bar)), QPoint(0, Native(1)->height()));
    // The pointer near the edge brings the end into view, and no more than that.
    pointedRow(15);
    EXPECT_TRUE(QTest::qWaitFor([&row] { return row() == 15; }));
    Press("End");
    Press("Up");
    pointedRow(Native(1)->height() - bar - 5);
    EXPECT_TRUE(QTest::qWaitFor([&row] { return row() == 2024 - 10 - 5; }));
    // So does the focus, as little as it can, and the resting pointer does not undo it.
    Press("Home");
    StringGadgetCreate(1, 10, 1000, 150, 20);
    ActivateGadget(1);
    pointedRow(Native(1)->height() - bar - 5);
    QTest::qWait(50);  // the pointer on a whole gadget does not scroll it away
    EXPECT_EQ(View(1)->mapTo(Native(1), QPoint(0, 20)), QPoint(10, Native(1)->height() - bar));
    WindowSetBounds(1, IgnoreValue, IgnoreValue, IgnoreValue, 100);
    EXPECT_EQ(Native(1)->size(), QSize(300, 100)) << "all as if it had never been larger";
    EXPECT_EQ(Native(1)->ContentView()->geometry(), QRect(0, 0, 300, 100));
}

TEST_F(WindowTest, StatusBarLaysOutItsFields) {
    WindowCreate(0, 0, 0, 300, 100, u"", WindowResizable);
    MenuCreate(0, WindowNativeHandle(0));
    StatusBarCreate(7, WindowNativeHandle(0));
    StatusBarAddField(50);
    StatusBarAddField(IgnoreValue);
    StatusBarAddField(80);
    WindowSetBounds(0, IgnoreValue, IgnoreValue, 360, 120);
    ForgetEvents();
    std::vector<QRect> places;
    for (const QLabel* const field : Native(0)->ContentView()->findChildren<QLabel*>()) {
        places.push_back(field->geometry().translated(field->parentWidget()->pos()));
    }
    EXPECT_EQ(places, (std::vector<QRect>{{0, 98, 50, 20}, {50, 98, 230, 20}, {280, 98, 80, 20}}));
    StatusBarSetText(7, 2, u"A text longer than its field is wide");
    ForgetEvents();
    const QLabel& last = *Native(0)->ContentView()->findChildren<QLabel*>().last();
    EXPECT_EQ(last.geometry().right(), 359);
    EXPECT_GT(last.width(), 150) << "room is taken from those before it";
    WindowDestroy(0);
    EXPECT_EQ(StatusBarHeight(7), 0);
}

}  // namespace
}  // namespace rotavel
