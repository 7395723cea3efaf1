#pragma once

#include <cstdint>

namespace rotavel {

// Waiting for the next event. One call hands out at most one event and delivers at most one key,
// click or other input; the next input finds its receiver when the event before it has been
// handled. While it waits, the program sleeps: nothing is polled.

// Waits up to `timeoutMs` milliseconds (negative: without end; 0: only looks). Returns the kind of
// the event taken, 0 when the time ran out, or -1 when something native happened that is no event
// of the program's.
std::int64_t WaitForEvent(std::int64_t timeoutMs);

// WaitForEvent without end. A -1 means: wait again.
std::int64_t WaitForEventBlocking();

// Filters see every native event before it is delivered, in the order in which they were added, and
// answer whether they have handled it; a handled event goes no further. `nativeEvent` is the
// toolkit's QEvent, on its way to a native window. A filter may do what a callback of
// event_queue.h may.
using NativeEventFilter = bool (*)(void* nativeEvent, void* userValue);
void AddNativeEventFilter(NativeEventFilter filter, void* userValue);
void RemoveNativeEventFilter(NativeEventFilter filter, void* userValue);

}  // namespace rotavel
