#pragma once

#include <cstdint>

namespace rotavel {

// The program-wide queue of events: what the user and the windowing system did, in the order in
// which it happened, told by numbers. Waiting for the next event is event_loop.h's.

enum EventKind : std::uint32_t {
    MenuChosen = 1,
    CloseRequested = 2,
    GadgetActivity = 3,
    Repaint = 4,
    WindowMoved = 5,
    WindowResized = 6,
    WindowActivated = 7,
    WindowDeactivated = 8,
    DropOnWindow = 10,
    DropOnGadget = 11,
    WindowMinimized = 12,
    WindowMaximized = 13,
    WindowRestored = 14,
    RightClick = 16,
    LeftClick = 17,
    LeftDoubleClick = 18,
};

// Kinds from here on belong to the program and are never merged.
inline constexpr std::uint32_t FirstUnmergedKind = 65536;

// Types of GadgetActivity events that fields and combo boxes post.
inline constexpr std::int64_t Focus = 256;
inline constexpr std::int64_t LostFocus = 512;
inline constexpr std::int64_t Change = 768;

// Posting flags.
inline constexpr std::uint32_t PostWhileSuspended = 1;
inline constexpr std::uint32_t PostUnmerged = 2;  // and run the bindings when the event is taken
inline constexpr std::uint32_t PostWaking = 4;    // wake a blocked wait, as all but Repaint do

using ReleaseFunction = void (*)(void* data);

// One queued event.
struct EventRecord {
    EventRecord* Next;
    std::uint32_t Kind;
    std::uint32_t Flags;
    std::int64_t Object;  // gadget, menu item or window number
    std::int64_t Window;  // -1 for none
    std::int64_t Type;
    void* Data;
    ReleaseFunction Release;  // frees Data, or null
};

// Posts an event of the program's own: never merged, never suspended. Returns 1.
std::int64_t PostProgramEvent(std::uint32_t kind, std::int64_t window = 0, std::int64_t object = 0,
                              std::int64_t type = 0, void* data = nullptr);

// Posts an event on behalf of a window, gadget or menu. An event below FirstUnmergedKind that
// equals the newest one waiting is dropped unless flags say otherwise. `release` frees `data` when
// the event after this one is taken, or with the event.
void QueueEvent(std::uint32_t kind, std::int64_t object, std::int64_t window, std::int64_t type,
                void* data = nullptr, ReleaseFunction release = nullptr, std::uint32_t flags = 0);

// While suspended, events without PostWhileSuspended are dropped. The calls count and must pair.
void SuspendPosting();
void ResumePosting();

// Takes the oldest event and makes it the current one. Returns its kind, 0 when none waits.
std::uint32_t TakeEvent();

// The kind of the oldest waiting event, 0 when none waits; the event stays in the queue.
std::uint32_t PeekEvent();
std::uint32_t PeekEvent(std::int64_t& object, std::int64_t& window, std::int64_t& type);

// The event taken last: kind 0 and type -1 when nothing was taken.
std::uint32_t CurrentEventKind();
std::int64_t CurrentEventObject();
std::int64_t CurrentEventWindow();
std::int64_t CurrentEventType();
void* CurrentEventData();

// Deletes the waiting events of a window.
void DeleteQueuedEvents(std::int64_t window);
// Deletes the waiting events that equal the one described.
void DeleteQueuedEvents(std::uint32_t kind, std::int64_t object, std::int64_t window,
                        std::int64_t type);

// Callbacks run for matching events, with the event as the current one: when it is posted, or when
// it is taken if it was posted with PostUnmerged. -1 stands for every object or type; a window of
// -1 for every window, with any object and type or with the ones given. An event runs, in this
// order, what is bound to (window, object, type), (window, object, -1), (window, -1, -1),
// (-1, -1, -1) and (-1, object, type).
using EventCallback = void (*)();
void BindEvent(EventCallback callback, std::uint32_t kind, std::int64_t window = -1,
               std::int64_t object = -1, std::int64_t type = -1);
void UnbindEvent(EventCallback callback, std::uint32_t kind, std::int64_t window = -1,
                 std::int64_t object = -1, std::int64_t type = -1);
// Removes what is bound to events of one window.
void UnbindWindowEvents(std::int64_t window);

// Drops every event and binding.
void ReleaseEventQueue();

}  // namespace rotavel
