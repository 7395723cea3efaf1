#include <utility>

#include <QElapsedTimer>
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

// What was noted since the last time.
std::string Calls() {
    return std::exchange(calls, "");
}

// Every waiting event as "kind object window type;".
std::string TakeAll() {
    std::string taken;
    while (TakeEvent() != 0) {
        taken += std::to_string(CurrentEventKind()) + " " + std::to_string(CurrentEventObject()) +
                 " " + std::to_string(CurrentEventWindow()) + " " +
                 std::to_string(CurrentEventType()) + ";";
    }
    return taken;
}

using EventQueueTest = GuiTest;

TEST_F(EventQueueTest, KeepsTheOrderAndMergesEqualNeighbours) {
    const auto postTwice = [](std::uint32_t kind, std::int64_t object, std::int64_t window,
                              std::int64_t type, std::uint32_t flags = 0) {
        QueueEvent(kind, object, window, type, nullptr, nullptr, flags);
        QueueEvent(kind, object, window, type, nullptr, nullptr, flags);
    };
    SuspendPosting();
    postTwice(MenuChosen, 1, 5, 0);
    PostProgramEvent(CloseRequested);
    ResumePosting();
    postTwice(65535, 1, 5, 3);
    postTwice(65535, 1, 5, 4);
    postTwice(65535, 6, 5, 4);
    postTwice(65535, 6, 2, 4);
    postTwice(7, 6, 2, 4);
    postTwice(7, 6, 2, 4, PostUnmerged);
    postTwice(65536, 6, 2, 4);
    postTwice(MenuChosen, 0, 8, 0);
    DeleteQueuedEvents(8);
    DeleteQueuedEvents(65535, 1, 5, 3);
    QueueEvent(MenuChosen, 9, 2, 0);
    EXPECT_EQ(TakeAll(),
              "2 0 0 0;65535 1 5 4;65535 6 5 4;65535 6 2 4;7 6 2 4;7 6 2 4;7 6 2 4;"
              "65536 6 2 4;65536 6 2 4;1 9 2 0;");
}

TEST_F(EventQueueTest, BindingsRunFromTheClosestKeyToTheWidest) {
    const auto callsOf = [](std::int64_t object, std::int64_t window, std::int64_t type) {
        QueueEvent(GadgetActivity, object, window, type);
        return Calls();
    };
    BindEvent(Note<'e'>, GadgetActivity, -1, 2, Change);
    BindEvent(Note<'d'>, GadgetActivity);
    BindEvent(Note<'c'>, GadgetActivity, 1);
    BindEvent(Note<'b'>, GadgetActivity, 1, 2);
    BindEvent(Note<'a'>, GadgetActivity, 1, 2, Change);
    BindEvent(Note<'z'>, GadgetActivity, 1, 2, Change);
    EXPECT_EQ(callsOf(2, 1, Change), "azbcde");
    EXPECT_EQ(callsOf(2, 1, Change), "azbcde") << "a merged event runs them too";
    EXPECT_EQ(callsOf(2, 2, Change), "de");
    EXPECT_EQ(callsOf(-1, 1, -1), "cd") << "once, though several keys name them";
    UnbindEvent(Note<'z'>, GadgetActivity, 1, 2, Change);
    TakeAll();
    PostProgramEvent(GadgetActivity, 1, 2, Change);
    EXPECT_EQ(Calls(), "") << "bindings wait until a program event is taken";
    TakeAll();
    EXPECT_EQ(Calls(), "abcde");
    BindEvent([] { UnbindWindowEvents(1); }, MenuChosen, 1);
    BindEvent(Note<'x'>, MenuChosen, 1);
    QueueEvent(MenuChosen, 2, 1, 0);
    EXPECT_EQ(callsOf(2, 1, Change), "de") << "what is unbound does not run any more";
}

TEST_F(EventQueueTest, DataLivesUntilTheNextEventIsTaken) {
    char names[] = "abmx";
    const auto see = [] { calls += *static_cast<char*>(CurrentEventData()); };
    const auto release = [](void* data) { calls += std::string("-") + *static_cast<char*>(data); };
    BindEvent(see, MenuChosen);
    BindEvent([] { TakeEvent(); }, CloseRequested);
    QueueEvent(GadgetActivity, 1, 0, 0, &names[0], release);
    QueueEvent(MenuChosen, 1, 0, 0, &names[1], release);
    QueueEvent(MenuChosen, 1, 0, 0, &names[2], release);  // is merged
    QueueEvent(GadgetActivity, 1, 3, 0, &names[3], release);
    DeleteQueuedEvents(3);
    EXPECT_EQ(Calls(), "bm-m-x");
    TakeEvent();
    EXPECT_EQ(CurrentEventData(), &names[0]);
    QueueEvent(CloseRequested, 1, 0, 0);  // whose binding takes the next
    EXPECT_EQ(CurrentEventData(), &names[0]);
    EXPECT_EQ(Calls(), "-b");
    TakeEvent();
    EXPECT_EQ(Calls(), "-a");
}

TEST_F(EventQueueTest, WaitsAsLongAsItIsTold) {
    QElapsedTimer waited;
    waited.start();
    EXPECT_EQ(WaitForEvent(30), 0);
    EXPECT_GE(waited.elapsed(), 30);
    QTimer::singleShot(10, [] { QueueEvent(MenuChosen, 4, 0, 0); });
    EXPECT_EQ(WaitForEventBlocking(), MenuChosen);
}

}  // namespace
}  // namespace rotavel
