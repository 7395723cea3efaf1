#include <random>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "gui/menus/message_box.h"
#include "layer.h"

// Everything in whose middle a callback can run, by everything that a callback can do to what is
// around it: first each pair, then long random sequences in which callbacks call for callbacks. The
// layer must be at work afterwards.

namespace rotavel {
namespace {

using namespace tests;

// The gadgets of window 0; Ground is where none is. Window 1 is hidden until it is wanted.
enum : GadgetNumber { Ground, Button, Field, List, EditList, Canvas, Inner };

void (*callback)() = nullptr;
bool isDone = false;  // what the callback is to do
int patienceMs = 2000;

template <typename Condition>
bool Await(Condition holds) {
    for (const QDeadlineTimer patience(patienceMs); !holds() && !patience.hasExpired();) {
        WaitForEvent(10);
    }
    return holds();
}

bool IsStageSeen() {
    return WindowExists(0) && Native(0)->isVisible() && QGuiApplication::focusWindow() != nullptr;
}

void PutUp() {
    WindowCreate(1, 400, 0, 100, 50, u"Other", WindowHidden);
    WindowCreate(0, 0, 0, 360, 240, u"Stage", WindowResizable | WindowCloseBox);
    MenuCreate(0, WindowNativeHandle(0));
    MenuTitle(u"File");
    MenuItem(6, u"Six\tF6");
    WindowAddShortcut(0, u"F5", 5);
    StatusBarCreate(0, WindowNativeHandle(0));
    StatusBarAddField(IgnoreValue);
    ButtonGadgetCreate(Button, 10, 10, 80, 20, u"Push");
    StringGadgetCreate(Field, 10, 40, 80, 20);
    ComboBoxGadgetCreate(List, 10, 70, 80, 20);
    ComboBoxGadgetCreate(EditList, 110, 70, 80, 20, ComboBoxEditable);
    AddGadgetItem(List, 0, u"item");
    AddGadgetItem(EditList, 0, u"item");
    CanvasGadgetCreate(Canvas, 10, 100, 80, 60);
    ActivateGadget(Button);
}

// Puts everything up anew, once nothing is left of what was there.
void SetStage() {
    ReleaseEventQueue();
    WindowDestroy(AnyNumber);
    ForgetEvents();
    EXPECT_EQ(GadgetRegistry().First().second, nullptr);
    EXPECT_EQ(StatusBarHeight(0), 0);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), 0) << "a window has outlived its number";
    PutUp();
    ForgetEvents();
    Press("Return");
    EXPECT_EQ(Taken(), "Press 1");
}

// What a deed is done to, and whether it hides and disables or takes that back.
struct {
    WindowNumber Window;
    GadgetNumber Gadget;
    bool State;
} target;

void CreateButton(GadgetNumber gadget) {
    ButtonGadgetCreate(gadget, 10, 10, 60, 20, u"again");
}

bool IsButtonThere() {
    return GetGadgetText(target.Gadget) == u"again";
}

struct Deed {
    const char* Name;
    void (*Do)();
    bool (*Holds)() = [] { return true; };  // once everything has settled
};

// Each may be done to what is not there, too.
const Deed deeds[] = {
    {"frees the gadget", [] { FreeGadget(target.Gadget); }},
    {"frees all gadgets", [] { FreeGadget(AnyNumber); }},
    {"creates the gadget anew", [] { CreateButton(target.Gadget); },
     [] { return IsButtonThere() || !WindowExists(0); }},
    {"puts a gadget into the gadget",
     [] {
         OpenGadgetList(target.Gadget);
         StringGadgetCreate(Inner, 0, 0, 30, 20);
         CloseGadgetList();
     }},
    {"adds an item", [] { AddGadgetItem(target.Gadget, 0, u"item"); }},
    {"hides the gadget", [] { HideGadget(target.Gadget, target.State); }},
    {"disables the gadget", [] { DisableGadget(target.Gadget, target.State); }},
    {"activates another gadget", [] { ActivateGadget(EditList); }},
    {"destroys the window", [] { WindowDestroy(target.Window); }},
    {"destroys all windows", [] { WindowDestroy(AnyNumber); }},
    {"opens the window anew",
     [] {
         WindowCreate(target.Window, 0, 0, 300, 200);
         CreateButton(target.Gadget);
     },
     IsButtonThere},
    {"changes the window", [] { WindowSetBounds(target.Window, 30, 40, 300, 200); }},
    {"asks where the window is", [] { WindowGetX(target.Window, InnerContent); }},
    {"hides the window", [] { WindowShow(target.Window, target.State ? Hidden : Shown); }},
    {"disables the window", [] { WindowDisable(target.Window, target.State); }},
    {"opens windows above it",
     [] {
         NativeWindow* const parent = WindowNativeHandle(target.Window);
         WindowCreate(2, 0, 0, 100, 50, u"", WindowStartZoomed, parent);
         WindowCreate(3, 0, 0, 100, 50, u"", WindowBorderless, WindowNativeHandle(2));
     }},
    {"replaces the menu", [] { MenuCreate(0, WindowNativeHandle(target.Window)); }},
    {"frees the menu", [] { FreeMenu(0); }},
    {"destroys the status bar", [] { StatusBarDestroy(0); }},
    {"opens a requester",
     [] {
         QTimer::singleShot(1, DismissMessageBoxes);
         MessageRequester(u"Title", u"Text");
     }},
    {"waits", [] { WaitForEvent(2); }},
};

struct Step {
    void (*Happen)(std::int64_t to);
    std::int64_t To = 0;  // a window, a gadget or a key
};

void MouseAt(GadgetNumber gadget, QTest::MouseAction action) {
    const QWidget& content = *Native(0)->ContentView();
    const QPoint place = View(gadget) != nullptr ? View(gadget)->geometry().center()
                                                 : content.rect().bottomRight() * 0.75;
    QTest::mouseEvent(action, Native(0)->windowHandle(), Qt::LeftButton, {},
                      content.mapTo(Native(0), place));
}

void ClickAt(GadgetNumber gadget) {
    MouseAt(gadget, QTest::MouseClick);
}

void PointAt(GadgetNumber gadget) {
    MouseAt(gadget, QTest::MouseMove);
}

void Key(std::int64_t key) {
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key(key));
}

void Show(WindowNumber window) {
    WindowShow(window, Shown);
    Await([window] { return isDone || KeyWindowNumber() == window; });
}

void MoveAndResize(WindowNumber window) {
    WindowSetBounds(window, 20, 30, 380, 260);
}

void Maximize(WindowNumber window) {
    Native(window)->showMaximized();
}

void Disable(WindowNumber window) {
    WindowDisable(window, true);
}

void HideAt(GadgetNumber gadget) {
    HideGadget(gadget, true);
}

void AddTimer(WindowNumber window) {
    WindowAddTimer(
        window, 1, [](void*) { callback(); }, nullptr);
}

void ClickFiltered(GadgetNumber gadget) {
    const auto filter = [](void*, void*) {
        callback();
        return false;
    };
    AddNativeEventFilter(filter, nullptr);
    ClickAt(gadget);
    RemoveNativeEventFilter(filter, nullptr);
}

struct Trigger {
    const char* Name;
    std::int64_t Event;   // the kind, of a gadget the type, that the callback is bound to; or 0
    GadgetNumber Gadget;  // Ground for none
    std::vector<Step> Steps;
};

const Trigger triggers[] = {
    {"a menu's item", MenuChosen, Ground, {{Key, Qt::Key_F10}, {Key, Qt::Key_F}, {Key, Qt::Key_S}}},
    {"a menu item's keys", MenuChosen, Ground, {{Key, Qt::Key_F6}}},
    {"a shortcut", MenuChosen, Ground, {{Key, Qt::Key_F5}}},
    {"a close request", CloseRequested, Ground, {{AskToClose}}},
    {"a button pressed", ButtonPressed, Button, {{ClickAt, Button}}},
    {"a field edited", Change, Field, {{ActivateGadget, Field}, {Key, Qt::Key_X}}},
    {"a field clicked", Focus, Field, {{ClickAt, Field}}},
    {"a field left", LostFocus, Field, {{ActivateGadget, Field}, {ClickAt, EditList}}},
    {"a field freed", LostFocus, Field, {{ActivateGadget, Field}, {FreeGadget, Field}}},
    {"a field replaced", LostFocus, Field, {{ActivateGadget, Field}, {CreateButton, Field}}},
    {"a field hidden", LostFocus, Field, {{ActivateGadget, Field}, {HideAt, Field}}},
    {"a window disabled", LostFocus, Field, {{ActivateGadget, Field}, {Disable}}},
    {"a window destroyed", LostFocus, Field, {{ActivateGadget, Field}, {WindowDestroy}}},
    {"a list's item", Change, List, {{ClickAt, List}, {Key, Qt::Key_End}, {Key, Qt::Key_Return}}},
    {"an item for a field", Change, EditList, {{ActivateGadget, EditList}, {Key, Qt::Key_Down}}},
    {"a list's field left", LostFocus, EditList, {{ActivateGadget, EditList}, {ClickAt, Field}}},
    {"a canvas entered", CanvasMouseEnter, Canvas, {{PointAt}, {PointAt, Canvas}}},
    {"a canvas left", CanvasMouseLeave, Canvas, {{PointAt}, {PointAt, Canvas}, {PointAt}}},
    {"a canvas hidden", CanvasMouseLeave, Canvas, {{PointAt}, {PointAt, Canvas}, {HideAt, Canvas}}},
    {"a window painted", Repaint, Ground, {{MoveAndResize}}},
    {"a window moved", WindowMoved, Ground, {{MoveAndResize}}},
    {"a window resized", WindowResized, Ground, {{MoveAndResize}}},
    {"a window activated", WindowActivated, Ground, {{Show, 1}, {WindowActivate}}},
    {"a window deactivated", WindowDeactivated, Ground, {{Show, 1}}},
    {"a window maximized", WindowMaximized, Ground, {{Maximize}}},
    {"a timer", 0, Ground, {{AddTimer}}},
    {"a filter", 0, Ground, {{ClickFiltered}}},
};

void Bind(const Trigger& trigger, EventCallback bound) {
    if (trigger.Gadget == Ground) {
        BindEvent(bound, static_cast<std::uint32_t>(trigger.Event));
    } else {
        BindEvent(bound, GadgetActivity, -1, trigger.Gadget, trigger.Event);
    }
}

// Random deeds may have left nothing that it can happen to.
void Happen(const Trigger& trigger) {
    for (const auto& [happen, to] : trigger.Steps) {
        if (IsStageSeen()) {
            happen(to);
        }
    }
}

using CallbacksTest = GuiTest;

void (*deed)() = nullptr;

void DoOnce() {
    if (!std::exchange(isDone, true)) {
        deed();
        WaitForEvent(0);
    }
}

TEST_F(CallbacksTest, MayDoAnythingAnywhere) {
    callback = DoOnce;
    for (const Trigger& trigger : triggers) {
        for (const Deed& tried : deeds) {
            SCOPED_TRACE(std::string("In the middle of ") + trigger.Name + ", the program " +
                         tried.Name);
            SetStage();
            isDone = false;
            target = {0, trigger.Gadget == Ground ? Button : trigger.Gadget, true};
            deed = tried.Do;
            Bind(trigger, DoOnce);
            Happen(trigger);
            EXPECT_TRUE(Await([] { return isDone; }));
            ForgetEvents();
            EXPECT_TRUE(tried.Holds());
            ASSERT_FALSE(HasFailure());
        }
    }
    SetStage();
}

constexpr int MaximumDepth = 4;  // of callbacks that call for others
constexpr int DeedsBetweenChecks = 250;

std::mt19937 randomBits;
int deedsLeft = 0;
int depth = 0;

std::int64_t Below(std::size_t limit) {
    return static_cast<std::int64_t>(randomBits() % limit);
}

void DoAnything() {
    --deedsLeft;
    if (Below(3) == 0) {
        Happen(triggers[Below(std::size(triggers))]);
    } else {
        target = {Below(4), Below(Inner + 1), Below(3) > 0};
        deeds[Below(std::size(deeds))].Do();
    }
}

void DoSomeThings() {
    ++depth;
    for (auto count = Below(4); count > 0 && deedsLeft > 0 && depth <= MaximumDepth; --count) {
        DoAnything();
    }
    --depth;
}

// The seed and the number of deeds are ROTAVEL_RANDOM_SEED and ROTAVEL_RANDOM_DEEDS; a run can be
// repeated.
TEST_F(CallbacksTest, LeaveTheLayerWholeInRandomOrder) {
    const int seed = qEnvironmentVariableIntValue("ROTAVEL_RANDOM_SEED");
    const int total = qEnvironmentVariable("ROTAVEL_RANDOM_DEEDS", "10000").toInt();
    randomBits.seed(static_cast<std::uint32_t>(seed));
    callback = DoSomeThings;
    for (int done = 0; done < total; done += DeedsBetweenChecks) {
        SCOPED_TRACE("with seed " + std::to_string(seed) + " after " + std::to_string(done));
        SetStage();
        ASSERT_FALSE(HasFailure());
        for (const Trigger& trigger : triggers) {
            Bind(trigger, DoSomeThings);
        }
        patienceMs = 0;
        for (deedsLeft = DeedsBetweenChecks; deedsLeft > 0;) {
            const auto next = WindowExists(0) ? DoAnything : PutUp;
            next();
            WaitForEvent(Below(2));
        }
        patienceMs = 2000;
    }
    SetStage();
}

}  // namespace
}  // namespace rotavel
