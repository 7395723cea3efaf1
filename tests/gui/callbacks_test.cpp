#include <functional>
#include <random>
#include <string>
#include <utility>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>

#include "stage.h"

// Everything in whose middle a callback can run, by everything that a callback can do to what is
// around it: first each pair, then long random sequences in which callbacks call for callbacks. The
// layer must be at work afterwards.

namespace rotavel {
namespace {

using namespace tests;

constexpr std::uint32_t WithData = FirstUnmergedKind + 1;
constexpr GadgetNumber Ground = 0;  // where no gadget is

void (*callback)() = nullptr;
bool isDone = false;  // what the callback is to do

// What happens natively at a place of window 0, with a mouse button or what else it takes.
void Click(QWindow& native, QPoint place, int button) {
    QTest::mouseClick(&native, Qt::MouseButton(button), {}, place);
}

void DoubleClick(QWindow& native, QPoint place, int button) {
    QTest::mouseDClick(&native, Qt::MouseButton(button), {}, place);
}

void Point(QWindow& native, QPoint place, int) {
    qt_handleMouseEvent(&native, place, place, {}, {}, QEvent::MouseMove, {}, 0);
    Drain();
}

void DropText(QWindow& native, QPoint place, int) {
    EnableWindowDrop(0, true);
    EnableGadgetDrop(Image, true);
    QMimeData data;
    data.setText("dropped");
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&native, &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&native, &drop);
}

// As the window manager does it.
void SetState(QWindow&, QPoint, int state) {
    const Qt::WindowStates wanted(state);
    Native(0)->setWindowState(wanted);
    Await([wanted] { return !WindowExists(0) || Native(0)->windowState() == wanted; });
    Drain();
}

void Close(QWindow& native, QPoint, int) {
    native.close();
}

// What a trigger is made of. On the stage as it was put up it happens; on what random calls have
// made of that it may have no place to happen.
using Step = std::function<void()>;

Step At(GadgetNumber gadget, void (*happen)(QWindow&, QPoint, int), int detail = Qt::LeftButton) {
    return [=] {
        if (WindowExists(0) && Native(0)->isVisible()) {
            const QWidget& content = *Native(0)->ContentView();
            const QPoint place = View(gadget) != nullptr ? View(gadget)->geometry().center()
                                                         : content.rect().bottomRight() * 0.75;
            happen(*Native(0)->windowHandle(), content.mapTo(Native(0), place), detail);
        }
    };
}

Step Key(Qt::Key key) {
    return [key] {
        if (QGuiApplication::focusWindow() != nullptr) {
            Press(key);
        }
    };
}

Step Activate(GadgetNumber gadget) {
    return [gadget] {
        ActivateGadget(gadget);
        Drain();
    };
}

// From elsewhere: a pointer that stays is no event.
void EnterCanvas() {
    At(Ground, Point)();
    At(Canvas, Point)();
}

void ShowOther() {
    WindowShow(1, Shown);
    Await([] { return isDone || KeyWindowNumber() == 1; });
}

void Resize() {
    WindowSetBounds(0, IgnoreValue, IgnoreValue, 380, 260);
}

void AddTimer() {
    WindowAddTimer(
        0, 1, [](void*) { callback(); }, nullptr);
}

void Filter() {
    const auto filter = [](void*, void*) {
        callback();
        return false;
    };
    AddNativeEventFilter(filter, nullptr);
    At(Image, Click)();
    RemoveNativeEventFilter(filter, nullptr);
}

void QueueData() {
    static int data;
    QueueEvent(
        WithData, 0, 0, 0, &data, [](void*) { callback(); }, PostUnmerged);
}

// The events that the deed is bound to.
struct Heard {
    std::uint32_t Kind;
    GadgetNumber Object = -1;
    std::int64_t Type = -1;
};

Heard Of(GadgetNumber gadget, std::int64_t type) {
    return {GadgetActivity, gadget, type};
}

constexpr Heard None = {};  // what happens is no event

struct Trigger {
    const char* Name;
    Heard Events;
    std::vector<Step> Steps;
};

const Trigger triggers[] = {
    {"a menu's item", {MenuChosen}, {Key(Qt::Key_F10), Key(Qt::Key_F), Key(Qt::Key_S)}},
    {"a menu item's keys", {MenuChosen}, {Key(Qt::Key_F6)}},
    {"a shortcut", {MenuChosen}, {Key(Qt::Key_F5)}},
    {"a close request", {CloseRequested}, {At(Ground, Close)}},
    {"a button pressed", Of(Button, ButtonPressed), {At(Button, Click)}},
    {"a field edited", Of(Field, Change), {Activate(Field), Key(Qt::Key_X)}},
    {"a field clicked", Of(Field, Focus), {At(Field, Click)}},
    {"a field left by a click", Of(Field, LostFocus), {Activate(Field), At(OtherField, Click)}},
    {"a list's item", Of(List, Change), {At(List, Click), Key(Qt::Key_End), Key(Qt::Key_Return)}},
    {"an item chosen by a key", Of(List, Change), {Activate(List), Key(Qt::Key_Down)}},
    {"an item for a field", Of(EditList, Change), {Activate(EditList), Key(Qt::Key_Down)}},
    {"a combo box's field edited", Of(EditList, Change), {Activate(EditList), Key(Qt::Key_X)}},
    {"a combo box left", Of(EditList, LostFocus), {Activate(EditList), At(Field, Click)}},
    {"a canvas entered", Of(Canvas, CanvasMouseEnter), {EnterCanvas}},
    {"a pointer moved", Of(Canvas, CanvasMouseMove), {EnterCanvas}},
    {"a canvas left", Of(Canvas, CanvasMouseLeave), {EnterCanvas, At(Ground, Point)}},
    {"a canvas hidden",
     Of(Canvas, CanvasMouseLeave),
     {EnterCanvas, [] { HideGadget(Canvas, true); }}},
    {"an image clicked", Of(Image, ImageRightClick), {At(Image, Click, Qt::RightButton)}},
    {"a window painted", {Repaint}, {Resize}},
    {"a window moved", {WindowMoved}, {[] { WindowSetBounds(0, 20, 30, 360, 240); }}},
    {"a window resized", {WindowResized}, {Resize}},
    {"a window activated", {WindowActivated}, {ShowOther, [] { WindowActivate(0); }}},
    {"a window deactivated", {WindowDeactivated}, {ShowOther}},
    {"a window minimized", {WindowMinimized}, {At(Ground, SetState, Qt::WindowMinimized)}},
    {"a window maximized", {WindowMaximized}, {At(Ground, SetState, Qt::WindowMaximized)}},
    {"a window restored",
     {WindowRestored},
     {At(Ground, SetState, Qt::WindowMinimized), At(Ground, SetState, Qt::WindowNoState)}},
    {"a right click", {RightClick}, {At(Ground, Click, Qt::RightButton)}},
    {"a click", {LeftClick}, {At(Ground, Click)}},
    {"a double click", {LeftDoubleClick}, {At(Ground, DoubleClick)}},
    {"a drop on a window", {DropOnWindow}, {At(Ground, DropText)}},
    {"a drop on a gadget", {DropOnGadget, Image}, {At(Image, DropText)}},
    {"a program's event", {Posted}, {[] { PostProgramEvent(Posted); }}},
    {"a timer", None, {AddTimer}},
    {"a filter", None, {Filter}},
    {"data released", None, {QueueData}},
    {"data released with its window", None, {QueueData, [] { WindowDestroy(0); }}},
    {"a field freed", Of(Field, LostFocus), {Activate(Field), [] { FreeGadget(Field); }}},
    {"a field disabled",
     Of(Field, LostFocus),
     {Activate(Field), [] { DisableGadget(Field, true); }}},
    {"a field hidden", Of(Field, LostFocus), {Activate(Field), [] { HideGadget(Field, true); }}},
    {"a window disabled", Of(Field, LostFocus), {Activate(Field), [] { WindowDisable(0, true); }}},
    {"a window destroyed", Of(Field, LostFocus), {Activate(Field), [] { WindowDestroy(0); }}},
};

bool IsAnyGadgetLeft() {
    return GadgetRegistry().First().second != nullptr;
}

void (*deed)() = nullptr;

void DoOnce() {
    if (!std::exchange(isDone, true)) {
        deed();
    }
}

using CallbacksTest = GuiTest;

void Try(const Trigger& trigger, const Deed& tried) {
    SCOPED_TRACE(std::string("In the middle of ") + trigger.Name + ", the program " + tried.Name);
    ASSERT_TRUE(SetStage());
    isDone = hasArrived = false;
    const auto [kind, object, type] = trigger.Events;
    target = {0, object == -1 ? Button : object};
    deed = tried.Do;
    callback = DoOnce;
    BindEvent(DoOnce, kind, -1, kind == GadgetActivity ? object : -1, type);
    BindEvent([] { hasArrived = true; }, Posted);
    for (const Step& step : trigger.Steps) {
        step();
    }
    EXPECT_TRUE(Await([] { return isDone; }));
    Drain();
    EXPECT_TRUE(tried.Holds());
    EXPECT_TRUE(WindowExists(0) || !IsAnyGadgetLeft());
    ReleaseEventQueue();
}

TEST_F(CallbacksTest, MayDoAnythingAnywhere) {
    for (const Trigger& trigger : triggers) {
        for (const Deed& each : deeds) {
            Try(trigger, each);
            if (HasFailure()) {
                return;
            }
        }
    }
    EXPECT_TRUE(SetStage());
}

constexpr int MaximumDepth = 4;  // of callbacks that call for others
constexpr int DeedsBetweenChecks = 250;

std::mt19937 randomBits;
int deedsLeft = 0;
int depth = 0;
int nestedDeeds = 0;

std::int64_t Below(std::size_t limit) {
    return static_cast<std::int64_t>(randomBits() % limit);
}

void DoRandomDeed() {
    --deedsLeft;
    target = {Below(4), Below(24) == 0 ? AnyNumber : Below(Inner + 1)};
    deeds[Below(std::size(deeds))].Do();
}

void HappenAtRandom() {
    for (const Step& step : triggers[Below(std::size(triggers))].Steps) {
        step();
    }
}

void DoRandomDeeds() {
    if (depth == MaximumDepth) {
        return;
    }
    ++depth;
    for (std::int64_t count = Below(4); count > 0 && deedsLeft > 0; --count) {
        ++nestedDeeds;
        DoRandomDeed();
        if (Below(8) == 0) {
            HappenAtRandom();
        }
    }
    --depth;
}

// The offscreen platform activates a field's own menu as if it were a window. A callback to that
// which waits lets the toolkit delete the menu, and the toolkit crashes.
class NoContextMenus final : public QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::ContextMenu;
    }
};

// The seed and the number of deeds are ROTAVEL_RANDOM_SEED and ROTAVEL_RANDOM_DEEDS; a run can be
// repeated.
TEST_F(CallbacksTest, LeaveTheLayerWholeInRandomOrder) {
    NoContextMenus noContextMenus;
    qApp->installEventFilter(&noContextMenus);
    const int seed = qEnvironmentVariableIntValue("ROTAVEL_RANDOM_SEED");
    const int total = qEnvironmentVariable("ROTAVEL_RANDOM_DEEDS", "10000").toInt();
    randomBits.seed(static_cast<std::uint32_t>(seed));
    callback = DoRandomDeeds;
    nestedDeeds = 0;
    for (int done = 0; done < total; done += DeedsBetweenChecks) {
        SCOPED_TRACE("with seed " + std::to_string(seed) + " after " + std::to_string(done));
        for (const Trigger& trigger : triggers) {
            BindEvent(DoRandomDeeds, trigger.Events.Kind);
        }
        patienceMs = 0;
        for (deedsLeft = DeedsBetweenChecks; deedsLeft > 0;) {
            HappenAtRandom();
            DoRandomDeed();
            WaitForEvent(Below(2));
        }
        patienceMs = 2000;
        ReleaseEventQueue();
        WindowDestroy(AnyNumber);
        ForgetEvents();
        EXPECT_FALSE(IsAnyGadgetLeft());
        EXPECT_EQ(StatusBarHeight(0), 0);
        EXPECT_EQ(QApplication::topLevelWidgets().size(), 0) << "a window has outlived its number";
        ASSERT_TRUE(SetStage() && !HasFailure());
    }
    EXPECT_GT(nestedDeeds, total / 20) << "callbacks do deeds";
}

}  // namespace
}  // namespace rotavel
