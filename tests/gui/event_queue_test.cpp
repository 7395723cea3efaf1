#include <algorithm>
#include <chrono>
#include <cstdint>

#include <QTest>
#include <QTimer>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

std::string calls;

std::string Current() {
    return std::to_string(CurrentEventKind()) + " " + std::to_string(CurrentEventWindow()) + " " +
           std::to_string(CurrentEventObject()) + " " + std::to_string(CurrentEventType()) + ";";
}

template <char Letter>
void Note() {
    calls += Letter + Current();
}

// Every waiting event as "kind window object type;".
std::string TakeAll() {
    std::string taken;
    while (TakeEvent() != 0) {
        taken += Current();
    }
    return taken;
}

class EventQueueTest : public GuiTest {
  protected:
    EventQueueTest() { calls.clear(); }
};

TEST_F(EventQueueTest, MergesOnlyWithAnEqualNewestEvent) {
    const auto merges = [](std::uint32_t kind, std::int64_t window, std::int64_t object,
                           std::int64_t type, std::uint32_t flags = 0) {
        QueueEvent(65535, 2, 1, Change);
        QueueEvent(kind, object, window, type, nullptr, nullptr, flags);
        return std::ranges::count(TakeAll(), ';') == 1;
    };
    EXPECT_TRUE(merges(65535, 1, 2, Change, PostWhileSuspended | PostWaking));
    EXPECT_FALSE(merges(65535, 1, 2, Change, PostUnmerged));
    EXPECT_FALSE(merges(65535, 1, 2, Focus));
    EXPECT_FALSE(merges(65535, 1, 3, Change));
    EXPECT_FALSE(merges(65535, 0, 2, Change));
    EXPECT_FALSE(merges(MenuChosen, 1, 2, Change));
    for (const std::int64_t object : {1, 2, 1, 1}) {
        QueueEvent(MenuChosen, object, 0, 0);
        QueueEvent(65536, 0, 0, 0);
        QueueEvent(65536, 0, 0, 0);
    }
    EXPECT_EQ(std::ranges::count(TakeAll(), ';'), 12);
}

TEST_F(EventQueueTest, KeepsTheOrderOfPosting) {
    QueueEvent(CloseRequested, 0, 0, 0);
    EXPECT_EQ(PostProgramEvent(CloseRequested), 1);
    SuspendPosting();
    SuspendPosting();
    ResumePosting();
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
    EXPECT_EQ(PeekEvent(), 0U);
    EXPECT_EQ(CurrentEventKind(), 0U);
    EXPECT_EQ(CurrentEventType(), -1);
}

TEST_F(EventQueueTest, BindingsRunFromTheClosestKeyToTheWidest) {
    BindEvent(Note<'e'>, GadgetActivity, -1, 2, Change);
    BindEvent(Note<'d'>, GadgetActivity);
    BindEvent(Note<'c'>, GadgetActivity, 1);
    BindEvent(Note<'b'>, GadgetActivity, 1, 2);
    BindEvent(Note<'a'>, GadgetActivity, 1, 2, Change);
    BindEvent(Note<'z'>, GadgetActivity, 1, 2, Change);
    BindEvent(Note<'x'>, GadgetActivity, 2, 2, Change);
    PostProgramEvent(MenuChosen, 0, 5);
    TakeEvent();
    const std::string all = "a3 1 2 768;z3 1 2 768;b3 1 2 768;c3 1 2 768;d3 1 2 768;e3 1 2 768;";
    QueueEvent(GadgetActivity, 2, 1, Change);
    EXPECT_EQ(calls, all);
    QueueEvent(GadgetActivity, 2, 1, Change);
    EXPECT_EQ(calls, all + all) << "a merged event runs them too";
    EXPECT_EQ(Current(), "1 0 5 0;");
    calls.clear();
    QueueEvent(GadgetActivity, -1, 1, -1);
    EXPECT_EQ(calls, "c3 1 -1 -1;d3 1 -1 -1;") << "once, though several keys name them";

    calls.clear();
    UnbindEvent(Note<'z'>, GadgetActivity, 1, 2, Change);
    UnbindEvent(Note<'d'>, GadgetActivity);
    PostProgramEvent(GadgetActivity, 1, 2, Change);
    EXPECT_EQ(calls, "") << "bindings wait until a program event is taken";
    TakeAll();
    EXPECT_EQ(calls, "a3 1 2 768;b3 1 2 768;c3 1 2 768;e3 1 2 768;");
    calls.clear();
    UnbindWindowEvents(1);
    QueueEvent(GadgetActivity, 2, 1, Change);
    EXPECT_EQ(calls, "e3 1 2 768;");
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
    std::string names[] = {"a", "b", "merged", "dropped", "deleted"};
    const auto release = [](void* data) { calls += *static_cast<std::string*>(data) + " gone;"; };
    BindEvent([] { calls += "sees " + *static_cast<std::string*>(CurrentEventData()) + ";"; },
              MenuChosen);
    QueueEvent(GadgetActivity, 1, 0, 0, &names[0], release);
    QueueEvent(MenuChosen, 1, 0, 0, &names[1], release);
    QueueEvent(MenuChosen, 1, 0, 0, &names[2], release);
    SuspendPosting();
    QueueEvent(MenuChosen, 1, 0, 0, &names[3], release);
    ResumePosting();
    QueueEvent(GadgetActivity, 1, 3, 0, &names[4], release);
    DeleteQueuedEvents(3);
    EXPECT_EQ(calls, "sees b;sees merged;merged gone;dropped gone;deleted gone;");
    calls.clear();
    TakeEvent();
    EXPECT_EQ(CurrentEventData(), &names[0]);
    TakeEvent();
    EXPECT_EQ(CurrentEventData(), &names[1]);
    EXPECT_EQ(calls, "a gone;");
    TakeEvent();
    EXPECT_EQ(calls, "a gone;b gone;");
    BindEvent([] { TakeEvent(); }, RightClick);
    QueueEvent(GadgetActivity, 1, 0, 0, &names[0], release);
    QueueEvent(RightClick, 0, 0, 0);
    EXPECT_EQ(calls, "a gone;b gone;a gone;") << "a binding took it";
}

TEST_F(EventQueueTest, CallbacksThatTakeEventsRobNobody) {
    BindEvent([] { TakeAll(); }, MenuChosen);
    PostProgramEvent(MenuChosen, 0, 5);
    PostProgramEvent(GadgetActivity, 0, 6);
    EXPECT_EQ(TakeEvent(), MenuChosen);
    EXPECT_EQ(Current(), "1 0 5 0;");
    static int data;
    const auto release = [](void*) {
        calls += "gone;";
        TakeEvent();
    };
    for (const std::int64_t object : {1, 2, 3}) {
        QueueEvent(GadgetActivity, object, 0, 0, &data, release);
    }
    TakeEvent();
    EXPECT_EQ(TakeEvent(), 0U);
    EXPECT_EQ(calls, "gone;gone;gone;") << "each once";
}

TEST_F(EventQueueTest, WaitsAsLongAsItIsTold) {
    using std::chrono::steady_clock;
    ForgetEvents();
    const auto start = steady_clock::now();
    EXPECT_EQ(WaitForEvent(30), 0);
    EXPECT_GE(steady_clock::now() - start, std::chrono::milliseconds(30));
    for (const std::int64_t timeout : {INT64_C(-1), INT64_MAX}) {
        QTimer::singleShot(10, [] { QueueEvent(MenuChosen, 4, 0, 0); });
        EXPECT_EQ(WaitForEvent(timeout), MenuChosen);
    }
    WindowCreate(0, 0, 0, 100, 100);
    ForgetEvents();
    QTimer::singleShot(10, [] {
        for (const int place : {5, 6}) {  // a pointer that stays is no event
            QTest::mouseMove(Native(0)->windowHandle(), {place, place});
        }
    });
    EXPECT_EQ(WaitForEvent(60'000), -1) << "a native event that is none of the program's";
    EXPECT_LT(steady_clock::now() - start, std::chrono::seconds(30));
}

}  // namespace
}  // namespace rotavel
