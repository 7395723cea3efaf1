#include "gui/window.h"

#include <QApplication>
#include <QCursor>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "gui/application.h"
#include "gui/canvas_gadget.h"
#include "gui/event_loop.h"
#include "gui/gadget.h"
#include "gui/menu.h"
#include "gui/menus/message_box.h"
#include "gui/requester.h"
#include "gui/status_bar.h"
#include "gui/string_gadget.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_record.h"
#include "runtime/numbered_objects.h"
#include "tests/support/gui_test.h"

namespace rotavel {
namespace {

using namespace tests;

using WindowTest = GuiTest;
using Pair = std::pair<std::int64_t, std::int64_t>;

Pair Corner(std::int64_t window) {
    return {WindowGetX(window), WindowGetY(window)};
}

Pair Content(std::int64_t window) {
    return {WindowGetWidth(window), WindowGetHeight(window)};
}

QRect Frame(std::int64_t window) {
    const auto [x, y] = Corner(window);
    return QRect(int(x), int(y), int(WindowGetWidth(window, OuterFrame)),
                 int(WindowGetHeight(window, OuterFrame)));
}

QRect Room() {
    return QGuiApplication::primaryScreen()->availableGeometry();
}

bool IsCentred(std::int64_t window, const QRect& over) {
    return (Frame(window).center() - over.center()).manhattanLength() <= 2;
}

// The window that is to be seen at a place of another one's content.
std::int64_t TopmostAt(std::int64_t window, QPoint place) {
    return WindowNumberOf(
        QApplication::topLevelAt(Native(window)->ContentView()->mapToGlobal(place)));
}

TEST_F(WindowTest, HasTheNumberPlaceAndSizeItWasGiven) {
    const std::int64_t handle = WindowCreate(3, 30, 40, 200, 100, u"a[*]b");
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(WindowNativeHandle(3)));
    EXPECT_EQ(Corner(3), Pair(30, 40));
    EXPECT_EQ(Native(3)->windowHandle()->title(), "a[*]b");
    MenuCreate(0, WindowNativeHandle(3));
    EXPECT_EQ(Content(3), Pair(200, 100)) << "the menu bar takes nothing from the content";
    WindowSetBounds(3, IgnoreValue, 50, 210, IgnoreValue);
    EXPECT_EQ(Corner(3), Pair(30, 50));
    EXPECT_EQ(Content(3), Pair(210, 100));

    StringGadgetCreate(1, 0, 0, 10, 10);
    WindowCreate(3, IgnoreValue, 5, 50, 60);
    ForgetEvents();
    EXPECT_FALSE(GadgetExists(1)) << "the window that held the number is gone";
    EXPECT_TRUE(IsCentred(3, Room()));
    const std::int64_t automatic = WindowCreate(AnyNumber, 0, 0, 70, 80);
    EXPECT_EQ(Content(automatic), Pair(70, 80));
    WindowDestroy(AnyNumber);
    EXPECT_FALSE(WindowExists(3) || WindowExists(automatic));
    EXPECT_EQ(Content(3), Pair(0, 0));
    EXPECT_EQ(WindowCreate(0, 0, 0, 32768, 10), 0);
    EXPECT_EQ(WindowCreate(-2, 0, 0, 10, 10), 0);
}

TEST_F(WindowTest, ReportsItsGeometry) {
    for (const std::int64_t window : {0, 1}) {
        WindowCreate(window, 50, 50, 200, 100, u"", WindowResizable);
        ForgetEvents();
        WindowSetBounds(window, 70, IgnoreValue, 220, IgnoreValue);
        WindowSetBounds(window, IgnoreValue, 80, IgnoreValue, 120);
        // Of window 0's resize events only the newest is kept.
        EXPECT_EQ(TakenOfWindows(), window == 0 ? "Moved 0, Resized 0, Moved 0"
                                                : "Resized 1, Moved 1, Resized 1, Moved 1");
    }
}

TEST_F(WindowTest, ReportsZooms) {
    WindowCreate(1, 50, 50, 200, 100, u"", WindowResizable);
    ForgetEvents();
    // A zoom may come as a new state first and a new size later.
    Native(1)->showMaximized();
    EXPECT_EQ(TakenOfWindows().find("Maximized 1, Resized 1"), 0U);
    const Pair zoomed = Content(1);
    Native(1)->showNormal();
    EXPECT_EQ(TakenOfWindows().substr(0, 21), "Restored 1, Resized 1");
    Native(1)->showMaximized();
    Native(1)->showNormal();
    EXPECT_EQ(TakenOfWindows().find("Maximized 1, Resized 1, Restored 1, Resized 1"), 0U);
    EXPECT_EQ(Content(1), Pair(200, 100));

    Native(1)->showMaximized();
    ForgetEvents();
    WindowSetBounds(1, 60, 70, IgnoreValue, IgnoreValue);
    EXPECT_EQ(TakenOfWindows(), "Moved 1") << "the program ends the zoom";
    EXPECT_EQ(Corner(1), Pair(60, 70));
    EXPECT_EQ(Content(1), zoomed);
    EXPECT_FALSE(Native(1)->isMaximized());

    WindowCreate(2, 50, 50, 200, 100, u"", WindowStartZoomed);
    EXPECT_EQ(Content(2), zoomed) << "at the first question";
    EXPECT_EQ(TakenOfWindows().find("ized 2"), std::string::npos);
}

TEST_F(WindowTest, OnlyTheProgramClosesItWithAllThatBelongsToIt) {
    for (const std::int64_t window : {0, 1}) {
        WindowCreate(window, 0, 0, 200, 100);
        StringGadgetCreate(10 + window, 0, 0, 50, 20);
    }
    ForgetEvents();
    AskToClose(1);
    EXPECT_EQ(Taken(), "Close 1");
    EXPECT_TRUE(Native(1)->isVisible());
    for (const std::int64_t window : {1, 0, 1}) {
        PostProgramEvent(MenuChosen, window, 7);
    }
    WindowDestroy(1);
    EXPECT_EQ(Taken(), "Menu 7");
    EXPECT_TRUE(GadgetExists(10));
    EXPECT_FALSE(GadgetExists(11));
    EXPECT_EQ(StringGadgetCreate(11, 0, 0, 50, 20), 0) << "no window is current any more";
}

TEST_F(WindowTest, HandsTheKeyboardBack) {
    const auto keyAfterClosing2 = [](void (*meanwhile)()) {
        WindowDestroy(AnyNumber);
        for (const std::int64_t window : {0, 1, 2}) {
            WindowCreate(window, 0, 0, 200, 100);
            ForgetEvents();
        }
        meanwhile();
        ForgetEvents();
        WindowDestroy(2);
        ForgetEvents();
        return KeyWindowNumber();
    };
    EXPECT_EQ(keyAfterClosing2([] {}), 1);
    EXPECT_EQ(keyAfterClosing2([] { WindowShow(1, Hidden); }), 0) << "else the first visible one";
    EXPECT_EQ(keyAfterClosing2([] { WindowDestroy(1); }), 0);
    EXPECT_EQ(keyAfterClosing2([] { WindowActivate(0); }), 0) << "2 did not have it";
    WindowCreate(3, 10, 20, 200, 100, u"", WindowHidden);
    WindowActivate(3);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 0);
    WindowShow(3, Shown);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 3);
    EXPECT_EQ(Corner(3), Pair(10, 20));
}

TEST_F(WindowTest, TakesNoInputWhileDisabled) {
    WindowCreate(0, 0, 0, 200, 100);
    MenuCreate(0, WindowNativeHandle(0));
    MenuTitle(u"File");
    MenuItem(6, u"Six\tCTRL+6");
    StringGadgetCreate(1, 0, 0, 50, 20);
    ActivateGadget(1);
    ForgetEvents();
    const auto attempt = [] {
        Native(0)->activateWindow();  // as the window manager may
        ForgetEvents();
        Type("x");
        ActivateGadget(1);
        ClickContent(0, {150, 50});
        Press(Qt::Key_6, Qt::ControlModifier);
        AskToClose(0);
        return Taken();
    };
    WindowDisable(0, 1);
    EXPECT_EQ(attempt(), "");
    WindowCreate(1, 0, 0, 200, 100);
    ForgetEvents();
    WindowActivate(0);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 1);
    EXPECT_EQ(attempt(), "");
    EXPECT_EQ(GetGadgetText(1), u"");
    WindowCreate(2, 0, 0, 50, 50, u"", WindowCloseBox, WindowNativeHandle(0));
    ForgetEvents();
    Native(0)->activateWindow();
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 2) << "the window above it gets the keyboard";
    WindowDisable(0, 0);
    EXPECT_EQ(Taken(), "Focus 1");
    EXPECT_EQ(attempt(), "Change 1, Click 0, Menu 6, Close 0");
}

TEST_F(WindowTest, ShowsItselfAsItsFlagsSay) {
    WindowCreate(0, 100, 100, 300, 200);
    WindowCreate(1, 0, 0, 100, 50, u"", WindowNotActivated);
    WindowCreate(2, 0, 0, 100, 50, u"", WindowOwnerCentred, WindowNativeHandle(0));
    WindowCreate(3, 70, 80, 100, 50, u"", WindowBorderless | WindowNotActivated);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 2);
    EXPECT_TRUE(Native(1)->isVisible());
    EXPECT_TRUE(IsCentred(2, Frame(0)));
    EXPECT_EQ(WindowGetWidth(3, OuterFrame), 100);
    EXPECT_EQ(Corner(3), Pair(70, 80));
    WindowActivate(2);
    ForgetEvents();
    BringToFront();
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 2);
}

TEST_F(WindowTest, StacksAndActivates) {
    if (QGuiApplication::platformName() == "offscreen") {
        GTEST_SKIP() << "there is no stack, and what is shown is active";
    }
    WindowCreate(0, 100, 100, 300, 200);
    ForgetEvents();
    // Never gets the keyboard by being shown: new, hidden before, or with a parent.
    for (NativeWindow* const parent :
         {static_cast<NativeWindow*>(nullptr), WindowNativeHandle(0)}) {
        WindowCreate(1, 120, 120, 100, 50, u"", WindowCloseBox | WindowNotActivated, parent);
        ForgetEvents();
        EXPECT_EQ(KeyWindowNumber(), 0);
        WindowShow(1, Hidden);
        ForgetEvents();
        WindowShow(1, Shown, WindowNotActivated);
        ForgetEvents();
        EXPECT_EQ(KeyWindowNumber(), 0);
        EXPECT_TRUE(Native(1)->isVisible());
    }
    WindowShow(1, Hidden);
    WindowShow(1, Shown);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 1);
    WindowActivate(0);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 0);
    EXPECT_EQ(TopmostAt(1, {50, 25}), 1) << "above its parent";
    WindowCreate(2, 90, 90, 400, 300, u"", WindowNotActivated);
    ForgetEvents();
    WindowShow(2, Shown, WindowNotActivated);
    ForgetEvents();
    EXPECT_EQ(TopmostAt(0, {250, 150}), 2);
    WindowActivate(0);
    ForgetEvents();
    EXPECT_EQ(TopmostAt(0, {250, 150}), 0) << "though it had the keyboard already";
}

TEST_F(WindowTest, OnlyACloseBoxAsksToClose) {
    for (const std::uint32_t flags : {WindowResizable, WindowBorderless,
                                      WindowBorderless | WindowCloseBox, WindowMinimizeBox}) {
        const bool closes = flags == WindowMinimizeBox;
        WindowCreate(1, 100, 100, 100, 50, u"", flags);
        ForgetEvents();
        AskToClose(1);
        EXPECT_EQ(Taken(), closes ? "Close 1" : "") << flags;
        WindowDisable(1, true);
        WindowShow(1, Hidden);
        WindowShow(1, Shown);
        ForgetEvents();
        EXPECT_TRUE(Native(1)->isVisible());
        AskToClose(1);
        EXPECT_EQ(Taken(), "");
        WindowDisable(1, false);
        AskToClose(1);
        EXPECT_EQ(Taken(), closes ? "Close 1" : "") << flags;
    }
}

TEST_F(WindowTest, PopupKeepsItsPlaceWhereThereIsRoom) {
    WindowCreate(0, 100, 100, 200, 100);
    WindowCreate(2, 0, 0, 100, 80, u"", WindowBorderless, WindowNativeHandle(0));
    StringGadgetCreate(1, 0, 0, 50, 20);
    ForgetEvents();
    ActivateGadget(1);
    EXPECT_EQ(Taken(), "") << "no key can reach it";
    WindowSetBounds(2, WindowGetX(0) + WindowGetWidth(0, OuterFrame), WindowGetY(0), IgnoreValue,
                    IgnoreValue);
    ForgetEvents();
    const QPoint corner = Native(0)->windowHandle()->frameGeometry().topRight() + QPoint(1, 0);
    EXPECT_EQ(Native(2)->windowHandle()->position(), corner);

    const QRect room = Room();
    WindowSetBounds(2, room.right() - 60, room.top() - 30, IgnoreValue, IgnoreValue);
    const QRect inCorner(room.right() - 99, room.top(), 100, 80);
    EXPECT_EQ(Frame(2), inCorner);
    WindowShow(2, Hidden);
    QCursor::setPos(inCorner.center());
    for (int turn = 0; turn < 2; ++turn) {
        WindowShow(2, Shown);
        ForgetEvents();
        EXPECT_TRUE(room.contains(Frame(2)));
        EXPECT_FALSE(Frame(2).contains(QCursor::pos()));
        QCursor::setPos(Frame(2).center());  // it gives way when it is shown again
    }
    QCursor::setPos(room.topLeft());
    WindowShow(2, Shown);
    EXPECT_EQ(Frame(2), inCorner);
    for (const std::uint32_t flags : {WindowOwnerCentred, 0U}) {
        WindowShow(2, Shown, flags);
        ForgetEvents();
        EXPECT_TRUE(IsCentred(2, Frame(0)));
    }

    // Where its owner reaches to the edge of the screen, the close box there stays free.
    WindowSetBounds(0, room.right() - 210, 100, IgnoreValue, IgnoreValue);
    WindowSetBounds(2, WindowGetX(0) + WindowGetWidth(0, OuterFrame), 100, IgnoreValue,
                    IgnoreValue);
    ForgetEvents();
    EXPECT_EQ(Frame(2).topLeft(), QPoint(inCorner.left(), int(WindowGetY(0, InnerContent))));
}

TEST_F(WindowTest, ScrollsContentThatTheScreenHasNoRoomFor) {
    constexpr std::int64_t canvas = 63;
    const QRect room = Room();
    WindowCreate(0, 0, 0, 50, 50);
    ForgetEvents();  // from here on the size of a frame is known
    const int tall = room.height() - int(WindowGetHeight(0, OuterFrame)) + 50;
    WindowCreate(1, 10, 10, 300, tall - 20, u"", WindowScreenCentred);
    CanvasGadgetCreate(canvas, 10, 10, 280, 2014);
    StatusBarCreate(7, WindowNativeHandle(1));
    StatusBarAddField(100);
    StatusBarAddField(500);
    WindowSetBounds(1, IgnoreValue, IgnoreValue, IgnoreValue, tall);
    EXPECT_EQ(WindowGetWidth(1, OuterFrame), 300 + WindowGetWidth(0, OuterFrame) - 50);
    EXPECT_EQ(Frame(1).top(), room.top()) << "grown where it was, it would reach below the screen";
    EXPECT_FALSE(Native(1)->Layout().IsScrolled());

    WindowSetBounds(1, IgnoreValue, IgnoreValue, IgnoreValue, 2024 + 24);
    ForgetEvents();
    EXPECT_EQ(Content(1), Pair(300, 2048));
    EXPECT_EQ(Frame(1).top(), room.top());
    EXPECT_EQ(Frame(1).height(), room.height());
    const int barWidth = Native(1)->width() - 300;
    EXPECT_GT(barWidth, 5) << "nothing is to be scrolled across";
    const auto pointedRow = [](int y) {
        QTest::mouseMove(Native(1)->windowHandle(), {100, y - 1});
        QTest::mouseMove(Native(1)->windowHandle(), {100, y});
        ForgetEvents();
        return GetGadgetAttribute(canvas, CanvasMouseY);
    };
    const auto turnWheel = [](int by) {
        QWindow& native = *Native(1)->windowHandle();
        QWheelEvent wheel(QPointF(100, 200), native.mapToGlobal(QPointF(100, 200)), {}, {0, by}, {},
                          {}, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&wheel);
        QCoreApplication::instance()->notify(&native, &wheel);
        ForgetEvents();
        return GetGadgetAttribute(canvas, CanvasMouseY);
    };
    EXPECT_EQ(pointedRow(200), 190);
    const std::int64_t scrolled = turnWheel(-120);
    EXPECT_GT(scrolled, 190) << "where the pointer is, though it did not move";
    EXPECT_EQ(pointedRow(210), scrolled + 10);
    EXPECT_EQ(Pair(GadgetX(canvas, InWindow), GadgetY(canvas, InWindow)), Pair(10, 10));
    EXPECT_EQ(GadgetY(canvas, OnScreen), WindowGetY(1, InnerContent) + 10 + 190 - scrolled);
    const QWidget& footer = *Native(1)->ContentView()->findChild<QLabel*>()->parentWidget();
    EXPECT_EQ(footer.mapTo(Native(1), QPoint(0, 24)), QPoint(0, Native(1)->height()));
    EXPECT_EQ(footer.findChildren<QLabel*>()[1]->width(), Native(1)->width() - 100)
        << "its text is to be seen";
    WindowDisable(1, true);
    EXPECT_EQ(turnWheel(-120), scrolled + 10);
    WindowDisable(1, false);
    Press(Qt::Key_Home);
    EXPECT_EQ(pointedRow(200), 190);
    // The pointer near the edge brings the end into view, and no more than that.
    const int lowest = Native(1)->height() - 24 - 5;
    pointedRow(lowest);
    const QDeadlineTimer patience(5000);
    while (GetGadgetAttribute(canvas, CanvasMouseY) != 2024 - 10 - 5 && !patience.hasExpired()) {
        WaitForEvent(50);
    }
    EXPECT_EQ(GetGadgetAttribute(canvas, CanvasMouseY), 2024 - 10 - 5);
    // So does the focus, as little as it can, and the resting pointer does not undo it.
    Press(Qt::Key_Home);
    StringGadgetCreate(1, 10, 1000, 50, 20);
    ActivateGadget(1);
    ForgetEvents();
    EXPECT_EQ(View(1)->mapTo(Native(1), QPoint(0, 20)), QPoint(10, Native(1)->height() - 24));
    WindowSetBounds(1, IgnoreValue, IgnoreValue, IgnoreValue, 100);
    ForgetEvents();
    EXPECT_EQ(Native(1)->size(), QSize(300, 100)) << "all as if it had never been larger";
    EXPECT_EQ(Native(1)->ContentView()->geometry(), QRect(0, 0, 300, 100));
}

TEST_F(WindowTest, TimersEndWithItAndFiltersSeeEventsFirst) {
    WindowCreate(0, 0, 0, 100, 100);
    int ticks = 0;
    WindowAddTimer(
        0, 2, [](void* count) { ++*static_cast<int*>(count); }, &ticks);
    while (ticks < 3) {
        WaitForEvent(10);
    }
    WindowCreate(1, 0, 0, 50, 50, u"", WindowHidden);
    WindowAddTimer(
        0, 5, [](void*) { WindowShow(1, Shown); }, nullptr);
    while (!Native(1)->isVisible()) {
        WaitForEventBlocking();
    }
    WindowDestroy(1);
    const auto filter = [](void* event, void*) {
        return static_cast<QEvent*>(event)->type() == QEvent::MouseButtonRelease;
    };
    ForgetEvents();
    AddNativeEventFilter(filter, nullptr);
    ClickContent(0, {20, 20});
    EXPECT_EQ(Taken(), "");
    RemoveNativeEventFilter(filter, nullptr);
    ClickContent(0, {20, 20});
    EXPECT_EQ(Taken(), "Click 0");
    WindowDestroy(0);
    ticks = 0;
    WaitForEvent(20);
    EXPECT_EQ(ticks, 0);
}

TEST_F(WindowTest, AppearsWhileARequesterWaits) {
    WindowCreate(0, 0, 0, 100, 100);
    ForgetEvents();
    int ticks = 0;
    WindowAddTimer(
        0, 5,
        [](void* count) {
            if (!WindowExists(1)) {
                WindowCreate(1, 0, 0, 50, 50);
            } else if (Native(1)->isVisible() || ++*static_cast<int*>(count) > 100) {
                DismissMessageBoxes();
            }
        },
        &ticks);
    MessageRequester(u"", u"");
    EXPECT_TRUE(Native(1)->isVisible());
}

TEST_F(WindowTest, StatusBarLaysOutItsFields) {
    WindowCreate(0, 0, 0, 300, 100, u"", WindowResizable);
    EXPECT_NE(StatusBarCreate(7, WindowNativeHandle(0)), 0);
    const std::int64_t widths[] = {50, IgnoreValue, 80};
    const std::uint32_t flags[] = {0, StatusCentred, StatusRight | StatusCentred};
    for (std::int64_t i = 0; i < 3; ++i) {
        StatusBarAddField(widths[i]);
        StatusBarSetText(7, i, u"first", flags[i]);
        StatusBarSetText(7, i, u"<b>");
    }
    StatusBarSetText(7, 3, u"beyond");
    WindowSetBounds(0, IgnoreValue, IgnoreValue, 360, 120);
    ForgetEvents();
    const QList<QLabel*> labels = Native(0)->ContentView()->findChildren<QLabel*>();
    ASSERT_EQ(labels.size(), 3);
    const QRect places[] = {{0, 98, 50, 20}, {50, 98, 230, 20}, {280, 98, 80, 20}};
    const Qt::Alignment alignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(labels[i]->text(), "<b>");
        EXPECT_EQ(labels[i]->alignment() & Qt::AlignHorizontal_Mask, alignments[i]);
        EXPECT_EQ(labels[i]->geometry().translated(labels[i]->parentWidget()->pos()), places[i]);
    }
    EXPECT_EQ(StatusBarHeight(7), 24);
    StatusBarDestroy(7);
    EXPECT_EQ(StatusBarHeight(7), 0);
    // Each field starts where the widths before it add up to, whatever the window has room for.
    StatusBarCreate(7, WindowNativeHandle(0));
    for (const std::int64_t width : {450, -30, 60, 0}) {
        StatusBarAddField(width);
    }
    ForgetEvents();
    const QList<QLabel*> wide = Native(0)->ContentView()->findChildren<QLabel*>();
    EXPECT_EQ(wide[0]->width(), 450);
    EXPECT_EQ(wide[1]->width(), 0);
    EXPECT_EQ(wide[2]->geometry(), QRect(420, 2, 60, 20));
    EXPECT_EQ(wide[3]->x(), 480);
    StatusBarDestroy(7);
    StatusBarCreate(7, WindowNativeHandle(0));
    StatusBarAddField(50);
    StatusBarAddField(60);
    ForgetEvents();
    EXPECT_EQ(Native(0)->ContentView()->findChildren<QLabel*>()[1]->geometry(),
              QRect(50, 2, 60, 20))
        << "what no field wants stays free";
    StatusBarCreate(7, WindowNativeHandle(0));
    WindowDestroy(0);
    EXPECT_EQ(StatusBarHeight(7), 0);
}

}  // namespace
}  // namespace rotavel
