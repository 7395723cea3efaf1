#pragma once

#include <cstdint>

#include "gui/event_queue.h"

namespace rotavel {

// The queue as those see it who fill it and empty it. What programs see is event_queue.h.

// Posting flags.
inline constexpr std::uint32_t PostWhileSuspended = 1;
inline constexpr std::uint32_t PostUnmerged = 2;  // and run the bindings when the event is taken
inline constexpr std::uint32_t PostWaking = 4;    // wake a blocked wait, as all but Repaint do

using ReleaseFunction = void (*)(void* data);

// One queued event, or the one taken last.
struct EventRecord {
    EventRecord* Next = nullptr;
    std::uint32_t Kind = 0;
    std::uint32_t Flags = 0;
    std::int64_t Object = 0;  // gadget, menu item or window number
    WindowNumber Window = 0;  // -1 for none
    std::int64_t Type = -1;
    void* Data = nullptr;
    ReleaseFunction Release = nullptr;  // frees Data, or null
};

// Posts an event on behalf of a window, gadget or menu. An event below FirstUnmergedKind that
// equals the newest one waiting is dropped unless flags say otherwise. `release` frees `data` when
// the event after this one is taken, or with the event. Runs bindings, which may do anything.
void QueueEvent(std::uint32_t kind, std::int64_t object, WindowNumber window, std::int64_t type,
                void* data = nullptr, ReleaseFunction release = nullptr, std::uint32_t flags = 0);

// While suspended, events without PostWhileSuspended are dropped. The calls count and must pair.
void SuspendPosting();
void ResumePosting();

// Takes the oldest event and makes it the current one. Returns its kind, 0 when none waits.
std::uint32_t TakeEvent();

// Deletes the waiting events of a window.
void DeleteQueuedEvents(WindowNumber window);
// Deletes the waiting events that equal the one described.
void DeleteQueuedEvents(std::uint32_t kind, std::int64_t object, WindowNumber window,
                        std::int64_t type);

// Removes what is bound to events of one window.
void UnbindWindowEvents(WindowNumber window);

// Whether a binding, or a function that releases an event's data, is running.
bool IsInEventCallback();

// What posting calls to end a blocked wait; null for nothing.
void SetWakeHook(void (*wake)());

// Drops every event and binding.
void ReleaseEventQueue();

}  // namespace rotavel
