#pragma once

#include <cstdint>

#include "gui/numbers.h"

namespace rotavel {

// The program-wide queue of events: what the user and the windowing system did, in the order in
// which it happened, told by numbers. Waiting for the next event, which makes it the current one,
// is event_loop.h's.

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

// Posts an event of the program's own: never merged, never suspended. Returns 1.
std::int64_t PostProgramEvent(std::uint32_t kind, WindowNumber window = 0, std::int64_t object = 0,
                              std::int64_t type = 0, void* data = nullptr);

// The kind of the oldest waiting event, 0 when none waits; the event stays in the queue.
std::uint32_t PeekEvent();
std::uint32_t PeekEvent(std::int64_t& object, WindowNumber& window, std::int64_t& type);

// The event taken last: kind 0 and type -1 when nothing was taken.
std::uint32_t CurrentEventKind();
std::int64_t CurrentEventObject();
WindowNumber CurrentEventWindow();
std::int64_t CurrentEventType();
void* CurrentEventData();

// Callbacks run for matching events, with the event as the current one: when it is posted, or when
// it is taken if it was posted with PostUnmerged. -1 stands for every object or type; a window of
// -1 for every window, with any object and type or with the ones given. An event runs, in this
// order, what is bound to (window, object, type), (window, object, -1), (window, -1, -1),
// (-1, -1, -1) and (-1, object, type).
//
// A callback, here as everywhere in the layer, may do what the program may do elsewhere: bind and
// unbind, close and free, also what it is told of, wait, open a requester. What it frees has gone
// as far as the program can tell; in truth it is kept until the outermost wait.
using EventCallback = void (*)();
void BindEvent(EventCallback callback, std::uint32_t kind, WindowNumber window = -1,
               std::int64_t object = -1, std::int64_t type = -1);
void UnbindEvent(EventCallback callback, std::uint32_t kind, WindowNumber window = -1,
                 std::int64_t object = -1, std::int64_t type = -1);

}  // namespace rotavel
