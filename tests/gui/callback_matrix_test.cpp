#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <string>
#include <utility>

#include <QDeadlineTimer>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "gui/button_gadget.h"
#include "gui/canvas_gadget.h"
#include "gui/combo_box_gadget.h"
#include "gui/drag_and_drop.h"
#include "gui/event_loop.h"
#include "gui/events/event_posting.h"
#include "gui/gadget.h"
#include "gui/image_gadget.h"
#include "gui/menu.h"
#include "gui/requester.h"
#include "gui/status_bar.h"
#include "gui/string_gadget.h"
#include "gui/window.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "runtime/numbers.h"
#include "tests/support/gui_test.h"

// Everything in whose middle a callback can run, by everything that a callback can do to what is
// around it: each pair is tried, and the layer must be at work afterwards.

namespace rotavel {
namespace {

using namespace tests;

// The gadgets of window 0; window 1 is hidden until it is wanted.
enum : GadgetNumber { Button = 1, Field, List, EditList, Canvas, Image, OtherField };

constexpr std::uint32_t Posted = FirstUnmergedKind;
constexpr std::uint32_t WithData = FirstUnmergedKind + 1;
constexpr const char16_t* Again = u"again";

GadgetNumber subject = Button;  // what the deed is done to
void (*deed)() = nullptr;
NativeWindow* stage = nullptr;  // window 0 before the deed
bool isDone = false;            // the deed
bool isPressed = false;         // the stage's button
bool hasArrived = false;        // what the deed posted

void Do() {
    if (!std::exchange(isDone, true)) {
        deed();
    }
}

template <typename Condition>
bool Await(Condition holds) {
    for (const QDeadlineTimer patience(2000); !holds() && !patience.hasExpired();) {
        WaitForEvent(10);
    }
    return holds();
}

void Drain() {
    while (WaitForEvent(0) != 0) {
    }
}

void DismissAndDestroy(void*) {
    WindowDestroy(0);
    std::raise(SIGTERM);
}

struct Deed {
    const char* Name;
    void (*Do)();
    bool (*Holds)();  // once everything has settled
    bool Creates = false;
};

const Deed deeds[] = {
    {"frees the gadget", [] { FreeGadget(subject); }, [] { return !GadgetExists(subject); }},
    {"frees all gadgets", [] { FreeGadget(AnyNumber); }, [] { return !GadgetExists(OtherField); }},
    {"creates the gadget anew", [] { ButtonGadgetCreate(subject, 10, 10, 60, 20, Again); },
     [] {
         return WindowNativeHandle(0) == stage ? GetGadgetText(subject) == Again
                                               : !GadgetExists(subject);
     },
     true},
    {"hides the gadget", [] { HideGadget(subject, true); }, [] { return true; }},
    {"activates another gadget", [] { ActivateGadget(OtherField); }, [] { return true; }},
    {"destroys the window", [] { WindowDestroy(0); }, [] { return !WindowExists(0); }},
    {"opens the window anew",
     [] {
         WindowCreate(0, 0, 0, 200, 100);
         ButtonGadgetCreate(Button, 10, 10, 60, 20, Again);
     },
     [] { return Native(0)->isVisible() && GetGadgetText(Button) == Again; }, true},
    {"hides the window", [] { WindowShow(0, Hidden); },
     [] { return !WindowExists(0) || !Native(0)->isVisible(); }},
    {"disables the window", [] { WindowDisable(0, true); },
     [] { return !WindowExists(0) || WindowIsDisabled(0); }},
    {"frees menu and status bar",
     [] {
         FreeMenu(0);
         StatusBarDestroy(0);
     },
     [] { return StatusBarHeight(0) == 0; }},
    {"waits",
     [] {
         WaitForEvent(0);
         WaitForEvent(2);
     },
     [] { return true; }},
    {"destroys the window under a requester",
     [] {
         WindowAddTimer(1, 1, DismissAndDestroy, nullptr);
         MessageRequester(u"Title", u"Text");
         WindowDestroy(1);
     },
     [] { return !WindowExists(0); }},
    {"posts", [] { PostProgramEvent(Posted, -1); }, [] { return hasArrived; }},
};

void MovePointer(QPoint place) {
    const QPoint inWindow = Native(0)->ContentView()->mapTo(Native(0), place);
    qt_handleMouseEvent(Native(0)->windowHandle(), inWindow, inWindow, Qt::NoButton, Qt::NoButton,
                        QEvent::MouseMove, {}, 0);
    Drain();
}

void DoubleClick(QPoint place, Qt::MouseButton button) {
    const QPoint inWindow = Native(0)->ContentView()->mapTo(Native(0), place);
    QTest::mouseDClick(Native(0)->windowHandle(), button, {}, inWindow);
}

void Drop(QPoint place) {
    QMimeData data;
    data.setText("dropped");
    QObject* const window = Native(0)->windowHandle();
    const QPoint inWindow = Native(0)->ContentView()->mapTo(Native(0), place);
    QDragEnterEvent enter(inWindow, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent drop(inWindow, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(window, &drop);
}

void ActivateField() {
    ActivateGadget(Field);
    Drain();
}

void ShowOther() {
    WindowShow(1, Shown);
    Await([] { return isDone || KeyWindowNumber() == 1; });
}

constexpr QPoint InCanvas(20, 120);
constexpr QPoint InImage(120, 120);
constexpr QPoint OnGround(300, 150);

// From elsewhere: a pointer that stays is no event.
void EnterCanvas() {
    MovePointer(OnGround);
    MovePointer(InCanvas);
}

// As the window manager does it.
void SetState(Qt::WindowState state) {
    Native(0)->setWindowState(state);
}

struct Trigger {
    const char* Name;
    std::uint32_t Kind;  // of the events that the deed is bound to; 0 when it is no event
    GadgetNumber Subject;
    std::int64_t Type;
    void (*Happen)();
    bool Replaces = false;  // goes on to create what the deed may be done to
};

const Trigger triggers[] = {
    {"a menu item clicked", MenuChosen, Button, -1,
     [] {
         ClickMenuTitle(0, 1);
         Press(Qt::Key_Down);
         Press(Qt::Key_Return);
     }},
    {"a menu item's keys", MenuChosen, Button, -1, [] { Press(Qt::Key_F6); }},
    {"a shortcut", MenuChosen, Button, -1,
     [] {
         WindowAddShortcut(0, u"F5", 5);
         Press(Qt::Key_F5);
     }},
    {"a close request", CloseRequested, Button, -1, [] { AskToClose(0); }},
    {"a button pressed", GadgetActivity, Button, ButtonPressed, [] { Click(Button); }},
    {"a button pressed by a key", GadgetActivity, Button, ButtonPressed,
     [] { Press(Qt::Key_Return); }},
    {"a field edited", GadgetActivity, Field, Change,
     [] {
         ActivateField();
         Type("x");
     }},
    {"a field clicked", GadgetActivity, Field, Focus, [] { Click(Field); }},
    {"a field left by a click", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         Click(OtherField);
     }},
    {"a field left by a key", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         Press(Qt::Key_Tab);
     }},
    {"an item chosen from the list", GadgetActivity, List, Change,
     [] {
         Click(List);
         Press(Qt::Key_Down);
         Press(Qt::Key_Return);
     }},
    {"an item chosen by a key", GadgetActivity, List, Change,
     [] {
         ActivateGadget(List);
         Press(Qt::Key_Down);
     }},
    {"an item chosen for a field", GadgetActivity, EditList, Change,
     [] {
         ActivateGadget(EditList);
         Press(Qt::Key_Down);
     }},
    {"a combo box's field edited", GadgetActivity, EditList, Change,
     [] {
         ActivateGadget(EditList);
         Type("x");
     }},
    {"a combo box left", GadgetActivity, EditList, LostFocus,
     [] {
         ActivateGadget(EditList);
         Click(Field);
     }},
    {"a canvas entered", GadgetActivity, Canvas, CanvasMouseEnter, [] { EnterCanvas(); }},
    {"a pointer moved", GadgetActivity, Canvas, CanvasMouseMove, [] { EnterCanvas(); }},
    {"a canvas left", GadgetActivity, Canvas, CanvasMouseLeave,
     [] {
         EnterCanvas();
         MovePointer(OnGround);
     }},
    {"a canvas hidden", GadgetActivity, Canvas, CanvasMouseLeave,
     [] {
         EnterCanvas();
         HideGadget(Canvas, true);
     }},
    {"an image clicked", GadgetActivity, Image, ImageRightClick,
     [] { ClickContent(0, InImage, Qt::RightButton); }},
    {"an image double-clicked", GadgetActivity, Image, ImageRightDoubleClick,
     [] { DoubleClick(InImage, Qt::RightButton); }},
    {"a window painted", Repaint, Canvas, -1,
     [] { WindowSetBounds(0, IgnoreValue, IgnoreValue, 380, 260); }},
    {"a window moved", WindowMoved, Button, -1,
     [] { WindowSetBounds(0, 20, 30, IgnoreValue, IgnoreValue); }},
    {"a window resized", WindowResized, Button, -1,
     [] { WindowSetBounds(0, IgnoreValue, IgnoreValue, 380, 260); }},
    {"a window activated", WindowActivated, Button, -1,
     [] {
         ShowOther();
         WindowActivate(0);
     }},
    {"a window deactivated", WindowDeactivated, Button, -1, ShowOther},
    {"a window minimized", WindowMinimized, Button, -1, [] { SetState(Qt::WindowMinimized); }},
    {"a window maximized", WindowMaximized, Button, -1, [] { SetState(Qt::WindowMaximized); }},
    {"a window restored", WindowRestored, Button, -1,
     [] {
         SetState(Qt::WindowMinimized);
         Await([] { return Native(0)->isMinimized(); });
         Drain();
         SetState(Qt::WindowNoState);
     }},
    {"a right click", RightClick, Button, -1, [] { ClickContent(0, OnGround, Qt::RightButton); }},
    {"a click", LeftClick, Button, -1, [] { ClickContent(0, OnGround); }},
    {"a double click", LeftDoubleClick, Button, -1, [] { DoubleClick(OnGround, Qt::LeftButton); }},
    {"a drop on a window", DropOnWindow, Button, -1,
     [] {
         EnableWindowDrop(0, true);
         Drop(OnGround);
     }},
    {"a drop on a gadget", DropOnGadget, Image, -1,
     [] {
         EnableGadgetDrop(Image, true);
         Drop(InImage);
     }},
    {"a program's event", Posted, Button, -1, [] { PostProgramEvent(Posted); }},
    {"a timer", 0, Button, -1,
     [] {
         WindowAddTimer(
             0, 1, [](void*) { Do(); }, nullptr);
     }},
    {"a filter", 0, Button, -1,
     [] {
         const auto filter = [](void*, void*) {
             Do();
             return false;
         };
         AddNativeEventFilter(filter, nullptr);
         Click(Button);
         Await([] { return isDone; });
         RemoveNativeEventFilter(filter, nullptr);
     }},
    {"data released", 0, Button, -1,
     [] {
         static int data;
         QueueEvent(
             WithData, 0, 0, 0, &data, [](void*) { Do(); }, PostUnmerged);
     }},
    {"data released with its window", 0, Button, -1,
     [] {
         static int data;
         QueueEvent(
             WithData, 0, 0, 0, &data, [](void*) { Do(); }, PostUnmerged);
         WindowDestroy(0);
     }},
    {"a field freed", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         FreeGadget(Field);
     }},
    {"a field replaced", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         StringGadgetCreate(Field, 10, 40, 80, 20);
     },
     true},
    {"a field disabled", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         DisableGadget(Field, true);
     }},
    {"a field hidden", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         HideGadget(Field, true);
     }},
    {"a window disabled", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         WindowDisable(0, true);
     }},
    {"a window destroyed", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         WindowDestroy(0);
     }},
    {"a window replaced", GadgetActivity, Field, LostFocus,
     [] {
         ActivateField();
         WindowCreate(0, 0, 0, 200, 100);
     },
     true},
};

// Puts everything up anew; true when the window then takes a key for its button.
bool SetStage() {
    WindowDestroy(AnyNumber);
    WindowCreate(1, 400, 0, 100, 50, u"Other", WindowHidden);
    WindowCreate(0, 0, 0, 360, 240, u"Stage", WindowResizable | WindowMinimizeBox);
    MenuCreate(0, WindowNativeHandle(0));
    MenuTitle(u"File");
    MenuItem(6, u"Six\tF6");
    StatusBarCreate(0, WindowNativeHandle(0));
    StatusBarAddField(IgnoreValue);
    StatusBarSetText(0, 0, u"Status");
    ButtonGadgetCreate(Button, 10, 10, 80, 20, u"Push");
    StringGadgetCreate(Field, 10, 40, 80, 20);
    StringGadgetCreate(OtherField, 110, 40, 80, 20);
    ComboBoxGadgetCreate(List, 10, 70, 80, 20);
    ComboBoxGadgetCreate(EditList, 110, 70, 80, 20, ComboBoxEditable);
    for (const GadgetNumber each : {List, EditList}) {
        AddGadgetItem(each, -1, u"one");
        AddGadgetItem(each, -1, u"two");
    }
    CanvasGadgetCreate(Canvas, 10, 100, 80, 60);
    ImageGadgetCreate(Image, 110, 100, 80, 60);
    ActivateGadget(Button);
    if (!Await([] { return KeyWindowNumber() == 0 && Native(0)->windowHandle()->isExposed(); })) {
        return false;
    }
    Drain();
    isPressed = false;
    BindEvent([] { isPressed = true; }, GadgetActivity, 0, Button, ButtonPressed);
    Press(Qt::Key_Space);
    return Await([] { return isPressed; });
}

bool AnyGadgetIsLeft() {
    return std::ranges::any_of(std::array{Button, Field, List, EditList, Canvas, Image, OtherField},
                               GadgetExists);
}

class CallbackMatrixTest : public GuiTest {
  protected:
    static void Try(const Trigger& trigger, const Deed& tried) {
        SCOPED_TRACE(std::string("In the middle of ") + trigger.Name + ", the program " +
                     tried.Name);
        ASSERT_TRUE(SetStage());
        isDone = hasArrived = false;
        stage = WindowNativeHandle(0);
        subject = trigger.Subject;
        deed = tried.Do;
        const GadgetNumber object = trigger.Kind == GadgetActivity ? trigger.Subject : -1;
        if (trigger.Kind != 0) {
            BindEvent(Do, trigger.Kind, -1, object, trigger.Type);
        }
        BindEvent(NoteArrival, Posted);
        trigger.Happen();
        EXPECT_TRUE(Await([] { return isDone; }));
        Drain();
        EXPECT_TRUE((trigger.Replaces && !tried.Creates) || tried.Holds());
        EXPECT_TRUE(WindowExists(0) || !AnyGadgetIsLeft());
        UnbindEvent(Do, trigger.Kind, -1, object, trigger.Type);
        UnbindEvent(NoteArrival, Posted);
    }

  private:
    static void NoteArrival() { hasArrived = true; }
};

TEST_F(CallbackMatrixTest, EveryDeedIsPossibleInEveryCallback) {
    for (const Trigger& trigger : triggers) {
        for (const Deed& each : deeds) {
            Try(trigger, each);
            if (HasFatalFailure()) {
                return;
            }
        }
    }
    EXPECT_TRUE(SetStage());
    std::printf("%zu callbacks by %zu deeds\n", std::size(triggers), std::size(deeds));
}

TEST_F(CallbackMatrixTest, WhatACallbackDidStands) {
    ASSERT_TRUE(SetStage());
    ForgetEvents();
    BindEvent([] { ActivateGadget(OtherField); }, GadgetActivity, 0, Field, Focus);
    ActivateGadget(Field);
    EXPECT_EQ(Taken(), "Focus 2, LostFocus 2, Focus 7") << "the keyboard went on once";
    BindEvent([] { WindowDisable(0, false); }, GadgetActivity, 0, OtherField, LostFocus);
    WindowDisable(0, true);
    ForgetEvents();
    Press(Qt::Key_F6);
    EXPECT_EQ(Taken(), "Menu 6") << "the window is enabled, and so is its menu";

    deed = [] {
        WindowCreate(0, 0, 0, 360, 240);
        isDone = true;
    };
    isDone = false;
    const auto filter = [](void*, void*) {
        Do();
        return false;
    };
    AddNativeEventFilter(filter, nullptr);
    ClickContent(0, OnGround);
    RemoveNativeEventFilter(filter, nullptr);
    EXPECT_TRUE(isDone);
    EXPECT_EQ(Taken(), "") << "the click was on the window that is gone";

    ASSERT_TRUE(SetStage());
    ActivateField();
    BindEvent([] { ButtonGadgetCreate(Button, 10, 10, 60, 20, Again); }, GadgetActivity, -1, Field,
              LostFocus);
    WindowDestroy(0);
    EXPECT_FALSE(GadgetExists(Button)) << "what was put into the closing window closed with it";
}

}  // namespace
}  // namespace rotavel
