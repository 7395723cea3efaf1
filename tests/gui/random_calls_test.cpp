#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include "gui/application.h"
#include "gui/button_gadget.h"
#include "gui/canvas_gadget.h"
#include "gui/combo_box_gadget.h"
#include "gui/drag_and_drop.h"
#include "gui/event_loop.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/image_gadget.h"
#include "gui/menu.h"
#include "gui/requester.h"
#include "gui/status_bar.h"
#include "gui/string_gadget.h"
#include "gui/text_gadget.h"
#include "gui/window.h"
#include "gui/windows/qz_window.h"
#include "runtime/numbers.h"
#include "tests/support/gui_test.h"

// Random calls, also from callbacks in whose middle they are made. The seed and the number of calls
// are ROTAVEL_RANDOM_SEED and ROTAVEL_RANDOM_CALLS; a run can be repeated.

namespace rotavel {
namespace {

using namespace tests;

constexpr int MaximumDepth = 4;  // of callbacks that make calls themselves
constexpr int CallsBetweenChecks = 250;
constexpr std::int64_t Windows = 4;  // numbers 0 to 3
constexpr GadgetNumber Gadgets = 10;

std::mt19937 randomBits;
int callsLeft = 0;
int depth = 0;
int nestedCalls = 0;

std::int64_t Below(std::int64_t limit) {
    return static_cast<std::int64_t>(randomBits() % static_cast<std::uint32_t>(limit));
}

// A number of the program's own, now and then the one that stands for all or a new one.
std::int64_t AnyOf(std::int64_t limit) {
    return Below(24) == 0 ? AnyNumber : Below(limit);
}

bool Flip() {
    return Below(2) == 0;
}

std::u16string SomeText() {
    return std::u16string(static_cast<std::size_t>(Below(4)),
                          static_cast<char16_t>('a' + Below(26)));
}

std::int64_t Coordinate() {
    return Below(12) == 0 ? IgnoreValue : Below(300);
}

void CallSomething();

void Callback() {
    if (depth >= MaximumDepth) {
        return;
    }
    ++depth;
    for (std::int64_t calls = Below(4); calls > 0 && callsLeft > 0; --calls) {
        ++nestedCalls;
        CallSomething();
    }
    --depth;
}

constexpr std::uint32_t kinds[] = {
    MenuChosen,      CloseRequested,    GadgetActivity,    Repaint,      WindowMoved,
    WindowResized,   WindowActivated,   WindowDeactivated, DropOnWindow, DropOnGadget,
    WindowMinimized, WindowMaximized,   WindowRestored,    RightClick,   LeftClick,
    LeftDoubleClick, FirstUnmergedKind,
};
constexpr std::int64_t types[] = {-1, Focus, LostFocus, Change, ButtonPressed, CanvasMouseLeave};

template <typename Value, std::size_t Size>
Value OneOf(const Value (&values)[Size]) {
    return values[Below(Size)];
}

using Call = void (*)();

// What is created under a number is there, unless a callback has come in between.
template <typename Exists>
void Created(std::int64_t number, std::int64_t result, int nestedBefore, Exists exists) {
    if (result != 0 && nestedBefore == nestedCalls) {
        EXPECT_TRUE(exists(number == AnyNumber ? result : number));
    }
}

void Window() {
    constexpr std::uint32_t flags[] = {WindowCloseBox,
                                       WindowHidden,
                                       WindowResizable | WindowMinimizeBox,
                                       WindowScreenCentred,
                                       WindowBorderless,
                                       WindowOwnerCentred,
                                       WindowStartZoomed,
                                       WindowStartMiniaturized,
                                       WindowOutsideGadgetList,
                                       WindowNotActivated};
    const WindowNumber number = AnyOf(Windows);
    NativeWindow* const parent = Flip() ? nullptr : WindowNativeHandle(Below(Windows));
    // A parent that the creation destroys first is none.
    const bool isOwnParent = parent != nullptr && parent == WindowNativeHandle(number);
    const int nestedBefore = nestedCalls;
    const std::int64_t result =
        WindowCreate(number, Coordinate(), Coordinate(), 1 + Below(300), 1 + Below(200), SomeText(),
                     OneOf(flags), isOwnParent ? nullptr : parent);
    Created(number, result, nestedBefore, WindowExists);
}

void Gadget() {
    const GadgetNumber number = AnyOf(Gadgets);
    const std::int64_t x = Below(200);
    const std::int64_t y = Below(150);
    const auto flags = static_cast<std::uint32_t>(Below(64));
    const int nestedBefore = nestedCalls;
    std::int64_t result = 0;
    switch (Below(6)) {
        case 0:
            result = ButtonGadgetCreate(number, x, y, 60, 20, SomeText());
            break;
        case 1:
            result = TextGadgetCreate(number, x, y, 60, 20, SomeText(), flags);
            break;
        case 2:
            result = ComboBoxGadgetCreate(number, x, y, 60, 20, flags & 15);
            break;
        case 3:
            result = ImageGadgetCreate(number, x, y, 60, 20);
            break;
        case 4:
            result = CanvasGadgetCreate(number, x, y, 60, 40);
            break;
        default:
            result = StringGadgetCreate(number, x, y, 60, 20, SomeText(), flags);
            break;
    }
    Created(number, result, nestedBefore, GadgetExists);
}

void Menu() {
    MenuCreate(AnyOf(3), WindowNativeHandle(Below(Windows)));
    MenuTitle(SomeText());
    MenuItem(Below(5), u"Item\tF" + std::u16string(1, static_cast<char16_t>('1' + Below(9))));
    if (Flip()) {
        MenuOpenSubmenu(SomeText());
        MenuItem(Below(5), SomeText());
    }
    MenuSeparator();
    MenuCloseSubmenu();
}

// Shows a message that is dismissed as soon as it is up.
void Requester() {
    QTimer dismissal;
    QObject::connect(&dismissal, &QTimer::timeout, [] {
        if (auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            box->done(0);
        }
    });
    dismissal.start(1);
    MessageRequester(SomeText(), SomeText(), static_cast<std::uint32_t>(Below(2)));
}

void Input() {
    if (QGuiApplication::focusWindow() == nullptr) {
        return;
    }
    constexpr Qt::Key keys[] = {Qt::Key_A,      Qt::Key_Tab,  Qt::Key_Space,
                                Qt::Key_Return, Qt::Key_Down, Qt::Key_F1,
                                Qt::Key_F5,     Qt::Key_Alt,  Qt::Key_Escape};
    Press(OneOf(keys));
}

void Pointer() {
    const WindowNumber window = Below(Windows);
    if (WindowExists(window) && Native(window)->isVisible()) {
        constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::RightButton};
        QTest::mouseClick(Native(window)->windowHandle(), OneOf(buttons), {},
                          QPoint(int(Below(200)), int(Below(150))));
    }
}

const Call calls[] = {
    Window,
    Window,
    Gadget,
    Gadget,
    Gadget,
    Menu,
    Input,
    Pointer,
    [] { WindowDestroy(AnyOf(Windows)); },
    [] { FreeGadget(AnyOf(Gadgets)); },
    [] { FreeMenu(AnyOf(3)); },
    [] { WindowShow(AnyOf(Windows), Flip() ? Hidden : Shown); },
    [] { WindowShow(AnyOf(Windows), Shown, WindowOwnerCentred | WindowNotActivated); },
    [] { WindowActivate(AnyOf(Windows)); },
    [] { WindowDisable(AnyOf(Windows), Flip()); },
    [] { WindowGetX(AnyOf(Windows), InnerContent); },
    [] { WindowSetBounds(AnyOf(Windows), Coordinate(), Coordinate(), Coordinate(), Coordinate()); },
    [] { WindowSetContentLimits(AnyOf(Windows), Below(50), Below(50), 400, IgnoreValue); },
    [] { WindowAddShortcut(AnyOf(Windows), u"F5", Below(5)); },
    [] {
        WindowAddTimer(
            AnyOf(Windows), 1, [](void*) { Callback(); }, nullptr);
    },
    [] { EnableWindowDrop(AnyOf(Windows), Flip()); },
    BringToFront,
    [] { ActivateGadget(AnyOf(Gadgets)); },
    [] { ActivateGadget(AnyOf(Gadgets)); },
    [] { DisableGadget(AnyOf(Gadgets), Flip()); },
    [] { HideGadget(AnyOf(Gadgets), Flip()); },
    [] { ResizeGadget(AnyOf(Gadgets), Coordinate(), Coordinate(), Below(90), Coordinate()); },
    [] { SetGadgetText(AnyOf(Gadgets), SomeText()); },
    [] { SetGadgetState(AnyOf(Gadgets), 0); },  // to an image gadget a handle
    [] { GetGadgetText(AnyOf(Gadgets)); },
    [] { GadgetX(AnyOf(Gadgets), OnScreen); },
    [] { AddGadgetItem(AnyOf(Gadgets), Below(3), SomeText()); },
    [] { RemoveGadgetItem(AnyOf(Gadgets), Below(2)); },
    [] { ClearGadgetItems(AnyOf(Gadgets)); },
    [] { SetGadgetColor(AnyOf(Gadgets), GadgetBackColor, Below(2) - 1); },
    [] { EnableGadgetDrop(AnyOf(Gadgets), Flip()); },
    [] { OpenGadgetList(AnyOf(Gadgets)); },
    CloseGadgetList,
    [] { SetGadgetFont(AnyOf(Gadgets), AnyOf(2)); },
    [] { FontLoad(Below(2), u"Arial", 8); },
    [] { FreeFont(AnyOf(2)); },
    [] {
        StatusBarCreate(AnyOf(3), WindowNativeHandle(Below(Windows)));
        StatusBarAddField(Coordinate());
        StatusBarSetText(Below(3), 0, SomeText());
    },
    [] { StatusBarDestroy(AnyOf(3)); },
    [] { PostProgramEvent(OneOf(kinds), AnyOf(Windows), AnyOf(Gadgets), OneOf(types)); },
    [] { BindEvent(Callback, OneOf(kinds), AnyOf(Windows), AnyOf(Gadgets), OneOf(types)); },
    [] { BindEvent(Callback, GadgetActivity, -1, Below(Gadgets), OneOf(types)); },
    [] { BindEvent(Callback, OneOf(kinds)); },
    [] { UnbindEvent(Callback, OneOf(kinds)); },
    [] { WaitForEvent(0); },
    [] { WaitForEvent(0); },
    [] { WaitForEvent(0); },
    [] { WaitForEvent(0); },
    [] { WaitForEvent(Below(2)); },
    [] {
        if (Below(20) == 0) {
            Requester();
        }
    },
};

void CallSomething() {
    if (callsLeft > 0) {
        --callsLeft;
        OneOf(calls)();
    }
}

void UnbindAll() {
    for (const std::uint32_t kind : kinds) {
        UnbindEvent(Callback, kind);
        for (GadgetNumber gadget = 0; gadget < Gadgets; ++gadget) {
            for (const std::int64_t type : types) {
                UnbindEvent(Callback, kind, -1, gadget, type);
            }
        }
    }
}

// Closes everything, after which nothing may be left, and opens a window that has to work.
bool IsAtWork() {
    UnbindAll();
    depth = MaximumDepth;  // timers call nothing any more
    WindowDestroy(AnyNumber);
    ForgetEvents();
    depth = 0;
    for (GadgetNumber gadget = 0; gadget < Gadgets; ++gadget) {
        EXPECT_FALSE(GadgetExists(gadget)) << "a gadget has outlived its window";
    }
    for (const std::int64_t bar : {0, 1, 2}) {
        EXPECT_EQ(StatusBarHeight(bar), 0) << "a status bar has outlived its window";
    }
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0) << "a window has outlived its number";
    WindowCreate(0, 0, 0, 200, 100);
    ButtonGadgetCreate(1, 10, 10, 60, 20, u"Push");
    ActivateGadget(1);
    ForgetEvents();
    Press(Qt::Key_Space);
    EXPECT_EQ(Taken(), "Press 1");
    return !testing::Test::HasFailure();
}

std::uint32_t FromEnvironment(const char* name, std::uint32_t otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise
                           : static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10));
}

using RandomCallsTest = GuiTest;

TEST_F(RandomCallsTest, LeaveTheLayerWhole) {
    if (QGuiApplication::platformName() != "offscreen") {
        GTEST_SKIP() << "a window manager would take its time for each of thousands of windows";
    }
    const std::uint32_t seed = FromEnvironment("ROTAVEL_RANDOM_SEED", 1);
    const std::uint32_t total = FromEnvironment("ROTAVEL_RANDOM_CALLS", 20'000);
    randomBits.seed(seed);
    nestedCalls = 0;
    for (std::uint32_t made = 0; made < total; made += CallsBetweenChecks) {
        callsLeft = CallsBetweenChecks;
        for (const std::uint32_t kind : kinds) {
            BindEvent(Callback, kind);
        }
        while (callsLeft > 0) {
            CallSomething();
        }
        ASSERT_TRUE(IsAtWork()) << "with seed " << seed << " after " << made << " calls";
    }
    EXPECT_GT(nestedCalls, int(total / 20)) << "callbacks make calls";
    std::printf("%u random calls, %d of them from callbacks\n", total, nestedCalls);
}

}  // namespace
}  // namespace rotavel
