#include "gui/event_queue.h"

#include <utility>

#include "gui/events/event_bindings.h"
#include "gui/events/event_posting.h"
#include "runtime/block_pool.h"

namespace rotavel {

namespace {

struct CurrentEvent {
    std::uint32_t Kind = 0;
    std::int64_t Object = 0;
    WindowNumber Window = 0;
    std::int64_t Type = -1;
    void* Data = nullptr;
    ReleaseFunction Release = nullptr;
};

struct EventQueue {
    BlockPool<EventRecord> pool;
    EventRecord* oldest = nullptr;
    EventRecord* newest = nullptr;
    int suspensions = 0;
    CurrentEvent current;
    EventBindings bindings;
    int callbacks = 0;  // that are running
    void (*wake)() = nullptr;
};

EventQueue queue;

void ReleaseData(void* data, ReleaseFunction release) {
    if (data != nullptr && release != nullptr) {
        ++queue.callbacks;
        release(data);
        --queue.callbacks;
    }
}

// The function that releases the data may take events that have data too.
void ReleaseCurrentData() {
    while (queue.current.Data != nullptr) {
        ReleaseData(std::exchange(queue.current.Data, nullptr),
                    std::exchange(queue.current.Release, nullptr));
    }
}

void RunBindings(std::uint32_t kind, WindowNumber window, std::int64_t object, std::int64_t type) {
    ++queue.callbacks;
    queue.bindings.Run(kind, window, object, type);
    --queue.callbacks;
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
        ReleaseData(record->Data, record->Release);
        queue.pool.Give(record);
    }
}

bool EqualsNewest(std::uint32_t kind, std::int64_t object, WindowNumber window, std::int64_t type) {
    const EventRecord* const newest = queue.newest;
    return newest != nullptr && newest->Kind == kind && newest->Object == object &&
           newest->Window == window && newest->Type == type;
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
    if (queue.suspensions > 0 && (flags & PostWhileSuspended) == 0) {
        ReleaseData(data, release);
        return;
    }
    if (kind != Repaint && queue.wake != nullptr) {
        queue.wake();
    }
    const bool merges = kind < FirstUnmergedKind && (flags & PostUnmerged) == 0;
    const bool isMerged = merges && EqualsNewest(kind, object, window, type);
    if (isMerged) {
        // Only its bindings see this one.
    } else if (EventRecord* const record = queue.pool.Take()) {
        *record = {nullptr, kind, flags, object, window, type, data, release};
        (queue.newest == nullptr ? queue.oldest : queue.newest->Next) = record;
        queue.newest = record;
    } else {
        ReleaseData(data, release);
        return;
    }
    if ((flags & PostUnmerged) == 0) {
        const CurrentEvent saved =
            std::exchange(queue.current, {kind, object, window, type, data, nullptr});
        RunBindings(kind, window, object, type);
        // A binding that waits may have taken an event, perhaps this one.
        ReleaseCurrentData();
        queue.current = saved;
    }
    if (isMerged) {
        ReleaseData(data, release);
    }
}

void SuspendPosting() {
    ++queue.suspensions;
}

void ResumePosting() {
    --queue.suspensions;
}

std::uint32_t TakeEvent() {
    CurrentEvent& current = queue.current;
    current.Kind = 0;
    ReleaseCurrentData();
    current.Kind = 0;
    current.Type = -1;
    EventRecord* const record = queue.oldest;
    if (record == nullptr) {
        return 0;
    }
    queue.oldest = record->Next;
    if (queue.oldest == nullptr) {
        queue.newest = nullptr;
    }
    current = {record->Kind, record->Object, record->Window,
               record->Type, record->Data,   record->Release};
    const bool bindsNow = (record->Flags & PostUnmerged) != 0;
    queue.pool.Give(record);
    if (bindsNow) {
        // A binding that waits takes others meanwhile; this one is the one that is taken here.
        const CurrentEvent taken = current;
        current.Release = nullptr;
        RunBindings(taken.Kind, taken.Window, taken.Object, taken.Type);
        ReleaseCurrentData();
        current = taken;
    }
    return current.Kind;
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
    DeleteWhere([=](const EventRecord& record) {
        return record.Kind == kind && record.Object == object && record.Window == window &&
               record.Type == type;
    });
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
