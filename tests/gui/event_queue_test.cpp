#include <algorithm>

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

std::string calls;

template <char Letter>
void Note() {
    calls += Letter;
}

// Every waiting event as "kind window object type;".
std::string TakeAll() {
    std::string taken;
    while (TakeEvent() != 0) {
        taken += std::to_string(CurrentEventKind()) + " " + std::to_string(CurrentEventWindow()) +
                 " " + std::to_string(CurrentEventObject()) + " " +
                 std::to_string(CurrentEventType()) + ";";
    }
    return taken;
}

class EventQueueTest : public GuiTest {
  protected:
    EventQueueTest() { calls.clear(); }

    // What the bindings for a gadget's event note.
    static std::string CallsOf(std::int64_t object, std::int64_t window, std::int64_t type) {
        calls.clear();
        QueueEvent(GadgetActivity, object, window, type);
        return calls;
    }
};

TEST_F(EventQueueTest, MergesOnlyWithAnEqualNewestEvent) {
    // Of one event and twice another.
    const auto waiting = [](std::uint32_t kind, std::int64_t window, std::int64_t object,
                            std::int64_t type, std::uint32_t flags = 0) {
        QueueEvent(65535, 2, 1, Change);
        QueueEvent(kind, object, window, type, nullptr, nullptr, flags);
        QueueEvent(kind, object, window, type, nullptr, nullptr, flags);
        return std::ranges::count(TakeAll(), ';');
    };
    EXPECT_EQ(waiting(65535, 1, 2, Change, PostWhileSuspended | PostWaking), 1);
    EXPECT_EQ(waiting(65535, 1, 2, Change, PostUnmerged), 3);
    EXPECT_EQ(waiting(65535, 1, 2, Focus), 2);
    EXPECT_EQ(waiting(65535, 1, 3, Change), 2);
    EXPECT_EQ(waiting(65535, 0, 2, Change), 2);
    EXPECT_EQ(waiting(MenuChosen, 1, 2, Change), 2);
    EXPECT_EQ(waiting(65536, 1, 2, Change), 3);
}

TEST_F(EventQueueTest, KeepsTheOrderOfPosting) {
    QueueEvent(CloseRequested, 0, 0, 0);
    EXPECT_EQ(PostProgramEvent(CloseRequested), 1);
    SuspendPosting();
    QueueEvent(MenuChosen, 1, 0, 0);
    PostProgramEvent(GadgetActivity, 2, 7, Change);
    ResumePosting();
    for (const std::int64_t window : {1, 2, 1}) {
        QueueEvent(MenuChosen, 7, window, 0);
        QueueEvent(GadgetActivity, 7, window, Change);
    }
    DeleteQueuedEvents(1);
    DeleteQueuedEvents(GadgetActivity, 7, 2, Focus);
    QueueEvent(MenuChosen, 9, 2, 0);
    EXPECT_EQ(PeekEvent(), CloseRequested);
    EXPECT_EQ(TakeAll(), "2 0 0 0;2 0 0 0;3 2 7 768;1 2 7 0;3 2 7 768;1 2 9 0;");
    EXPECT_EQ(PeekEvent() + CurrentEventKind(), 0U);
}

TEST_F(EventQueueTest, BindingsRunFromTheClosestKeyToTheWidest) {
    BindEvent(Note<'e'>, GadgetActivity, -1, 2, Change);
    BindEvent(Note<'d'>, GadgetActivity);
    BindEvent(Note<'c'>, GadgetActivity, 1);
    BindEvent(Note<'b'>, GadgetActivity, 1, 2);
    BindEvent(Note<'a'>, GadgetActivity, 1, 2, Change);
    BindEvent(Note<'z'>, GadgetActivity, 1, 2, Change);
    EXPECT_EQ(CallsOf(2, 1, Change), "azbcde");
    EXPECT_EQ(CallsOf(2, 1, Change), "azbcde") << "a merged event runs them too";
    EXPECT_EQ(CallsOf(2, 2, Change), "de");
    EXPECT_EQ(CallsOf(-1, 1, -1), "cd") << "once, though several keys name them";
    UnbindEvent(Note<'z'>, GadgetActivity, 1, 2, Change);
    UnbindEvent(Note<'d'>, GadgetActivity);
    TakeAll();
    calls.clear();
    PostProgramEvent(GadgetActivity, 1, 2, Change);
    EXPECT_EQ(calls, "") << "bindings wait until a program event is taken";
    TakeAll();
    EXPECT_EQ(calls, "abce");
    UnbindWindowEvents(1);
    EXPECT_EQ(CallsOf(2, 1, Change), "e");
}

TEST_F(EventQueueTest, BindingsThatAnEarlierOneRemovedDoNotRun) {
    const EventCallback removals[] = {[] { UnbindEvent(Note<'b'>, MenuChosen, 1); },
                                      [] { UnbindWindowEvents(1); }, ReleaseEventQueue};
    for (const EventCallback removal : removals) {
        BindEvent(removal, MenuChosen, 1);
        BindEvent(Note<'b'>, MenuChosen, 1);
        QueueEvent(MenuChosen, 7, 1, 0);
        EXPECT_EQ(calls, "");
        ReleaseEventQueue();
    }
}

TEST_F(EventQueueTest, DataLivesUntilTheNextEventIsTaken) {
    char names[] = "abmx";
    const auto see = [] { calls += std::string("+") + *static_cast<char*>(CurrentEventData()); };
    const auto release = [](void* data) { calls += std::string("-") + *static_cast<char*>(data); };
    BindEvent(see, MenuChosen);
    QueueEvent(GadgetActivity, 1, 0, 0, &names[0], release);
    QueueEvent(MenuChosen, 1, 0, 0, &names[1], release);
    QueueEvent(MenuChosen, 1, 0, 0, &names[2], release);  // is merged
    QueueEvent(GadgetActivity, 1, 3, 0, &names[3], release);
    DeleteQueuedEvents(3);
    EXPECT_EQ(calls, "+b+m-m-x");
    calls.clear();
    TakeEvent();
    EXPECT_EQ(CurrentEventData(), &names[0]);
    TakeEvent();
    EXPECT_EQ(CurrentEventData(), &names[1]);
    EXPECT_EQ(calls, "-a");
    TakeEvent();
    BindEvent([] { TakeEvent(); }, RightClick);
    QueueEvent(RightClick, 1, 0, 0, &names[3], release);
    EXPECT_EQ(calls, "-a-b-x") << "its own binding took it";
}

TEST_F(EventQueueTest, CallbacksThatTakeEventsRobNobody) {
    BindEvent([] { TakeAll(); }, MenuChosen);
    PostProgramEvent(MenuChosen, 0, 5);
    PostProgramEvent(GadgetActivity, 0, 6);
    EXPECT_EQ(TakeEvent(), MenuChosen);
    QueueEvent(MenuChosen, 7, 0, 0);  // is current only to its bindings
    EXPECT_EQ(CurrentEventObject(), 5);
    const auto release = [](void*) {
        Note<'-'>();
        TakeEvent();
    };
    for (const std::int64_t object : {1, 2, 3}) {
        QueueEvent(GadgetActivity, object, 0, 0, &calls, release);
    }
    TakeEvent();
    EXPECT_EQ(TakeEvent(), 0U);
    EXPECT_EQ(calls, "---") << "each once";
}

TEST_F(EventQueueTest, WaitsAsLongAsItIsTold) {
    WindowCreate(0, 0, 0, 100, 100);
    ForgetEvents();
    QElapsedTimer waited;
    waited.start();
    EXPECT_EQ(WaitForEvent(30), 0);
    EXPECT_GE(waited.elapsed(), 30);
    QTimer::singleShot(10, [] { QueueEvent(MenuChosen, 4, 0, 0); });
    EXPECT_EQ(WaitForEvent(-1), MenuChosen);
    QTimer::singleShot(10, [] {
        for (const int place : {5, 6}) {  // a pointer that stays is no event
            QTest::mouseMove(Native(0)->windowHandle(), {place, place});
        }
    });
    EXPECT_EQ(WaitForEvent(60'000), -1) << "a native event that is none of the program's";
    EXPECT_LT(waited.elapsed(), 30'000);
}

}  // namespace
}  // namespace rotavel
