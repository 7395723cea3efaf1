#include "gui/event_queue.h"

#include "gui/events/event_bindings.h"
#include "gui/events/event_posting.h"
#include "runtime/block_pool.h"

namespace rotavel {

namespace {

struct EventQueue {
    BlockPool<EventRecord> pool;
    EventRecord* oldest = nullptr;
    EventRecord* newest = nullptr;
    int suspensions = 0;
    EventRecord current;
    EventBindings bindings;
    int callbacks = 0;  // that are running
    void (*wake)() = nullptr;
};

EventQueue queue;

bool AreEqual(const EventRecord& one, const EventRecord& other) {
    return one.Kind == other.Kind && one.Object == other.Object && one.Window == other.Window &&
           one.Type == other.Type;
}

void ReleaseData(const EventRecord& event) {
    if (event.Data != nullptr && event.Release != nullptr) {
        ++queue.callbacks;
        event.Release(event.Data);
        --queue.callbacks;
    }
}

// The function that releases the data may take events that have data too.
void ReleaseCurrentData() {
    while (queue.current.Data != nullptr) {
        const EventRecord released = queue.current;
        queue.current.Data = nullptr;
        ReleaseData(released);
    }
}

// Runs what is bound to an event, with that as the current one, which the caller puts back.
void RunBindings(const EventRecord& event) {
    queue.current = event;
    queue.current.Release = nullptr;
    ++queue.callbacks;
    queue.bindings.Run(event.Kind, event.Window, event.Object, event.Type);
    --queue.callbacks;
    // A binding that waits may have taken others, perhaps this one.
    ReleaseCurrentData();
}

template <typename Predicate>
void DeleteWhere(Predicate matches) {
    EventRecord** link = &queue.oldest;
    EventRecord* kept = nullptr;
    EventRecord* deleted = nullptr;
    while (EventRecord* const record = *link) {
        if (!matches(*record)) {
            kept = record;
            link = &record->Next;
            continue;
        }
        *link = record->Next;
        record->Next = deleted;
        deleted = record;
    }
    queue.newest = kept;
    // Only now, for a release function may post events.
    while (EventRecord* const record = deleted) {
        deleted = record->Next;
        ReleaseData(*record);
        queue.pool.Give(record);
    }
}

}  // namespace

std::int64_t PostProgramEvent(std::uint32_t kind, WindowNumber window, std::int64_t object,
                              std::int64_t type, void* data) {
    QueueEvent(kind, object, window, type, data, nullptr,
               PostWhileSuspended | PostUnmerged | PostWaking);
    return 1;
}

void QueueEvent(std::uint32_t kind, std::int64_t object, WindowNumber window, std::int64_t type,
                void* data, ReleaseFunction release, std::uint32_t flags) {
    const EventRecord posted{nullptr, kind, flags, object, window, type, data, release};
    if (queue.suspensions > 0 && (flags & PostWhileSuspended) == 0) {
        ReleaseData(posted);
        return;
    }
    if (kind != Repaint && queue.wake != nullptr) {
        queue.wake();
    }
    const bool merges = kind < FirstUnmergedKind && (flags & PostUnmerged) == 0;
    const bool isMerged = merges && queue.newest != nullptr && AreEqual(*queue.newest, posted);
    if (isMerged) {
        // Only its bindings see this one.
    } else if (EventRecord* const record = queue.pool.Take()) {
        *record = posted;
        (queue.newest == nullptr ? queue.oldest : queue.newest->Next) = record;
        queue.newest = record;
    } else {
        ReleaseData(posted);
        return;
    }
    if ((flags & PostUnmerged) == 0) {
        const EventRecord before = queue.current;
        RunBindings(posted);
        queue.current = before;
    }
    if (isMerged) {
        ReleaseData(posted);
    }
}

void SuspendPosting() {
    ++queue.suspensions;
}

void ResumePosting() {
    --queue.suspensions;
}

std::uint32_t TakeEvent() {
    queue.current.Kind = 0;
    ReleaseCurrentData();
    queue.current.Kind = 0;
    queue.current.Type = -1;
    EventRecord* const record = queue.oldest;
    if (record == nullptr) {
        return 0;
    }
    queue.oldest = record->Next;
    if (queue.oldest == nullptr) {
        queue.newest = nullptr;
    }
    const EventRecord taken = *record;
    queue.pool.Give(record);
    if ((taken.Flags & PostUnmerged) != 0) {
        RunBindings(taken);
    }
    queue.current = taken;
    return taken.Kind;
}

std::uint32_t PeekEvent() {
    return queue.oldest == nullptr ? 0 : queue.oldest->Kind;
}

std::uint32_t PeekEvent(std::int64_t& object, WindowNumber& window, std::int64_t& type) {
    if (queue.oldest == nullptr) {
        return 0;
    }
    object = queue.oldest->Object;
    window = queue.oldest->Window;
    type = queue.oldest->Type;
    return queue.oldest->Kind;
}

std::uint32_t CurrentEventKind() {
    return queue.current.Kind;
}

std::int64_t CurrentEventObject() {
    return queue.current.Object;
}

WindowNumber CurrentEventWindow() {
    return queue.current.Window;
}

std::int64_t CurrentEventType() {
    return queue.current.Type;
}

void* CurrentEventData() {
    return queue.current.Data;
}

void DeleteQueuedEvents(WindowNumber window) {
    DeleteWhere([window](const EventRecord& record) { return record.Window == window; });
}

void DeleteQueuedEvents(std::uint32_t kind, std::int64_t object, WindowNumber window,
                        std::int64_t type) {
    const EventRecord described{nullptr, kind, 0, object, window, type};
    DeleteWhere([&described](const EventRecord& record) { return AreEqual(record, described); });
}

void BindEvent(EventCallback callback, std::uint32_t kind, WindowNumber window, std::int64_t object,
               std::int64_t type) {
    queue.bindings.Bind(callback, kind, window, object, type);
}

void UnbindEvent(EventCallback callback, std::uint32_t kind, WindowNumber window,
                 std::int64_t object, std::int64_t type) {
    queue.bindings.Unbind(callback, kind, window, object, type);
}

void UnbindWindowEvents(WindowNumber window) {
    queue.bindings.UnbindWindow(window);
}

bool IsInEventCallback() {
    return queue.callbacks > 0;
}

void SetWakeHook(void (*wake)()) {
    queue.wake = wake;
}

void ReleaseEventQueue() {
    queue.bindings.Clear();
    ReleaseCurrentData();
    while (queue.oldest != nullptr) {  // a release function may post events
        DeleteWhere([](const EventRecord&) { return true; });
    }
    queue.current = {};
    queue.pool.Release();
}

}  // namespace rotavel
