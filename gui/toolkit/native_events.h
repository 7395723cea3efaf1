#pragma once

class QDeadlineTimer;

namespace rotavel {

// The toolkit's side of waiting: its event dispatcher and its postponed deletions.

// Makes a blocked ProcessNativeEvents return.
void WakeNativeLoop();

// Whether keys and clicks are delivered now or wait for a later call.
enum class NativeInput { Deliver, Postpone };

// Sleeps until something native happens or the deadline passes, and delivers it. Returns whether a
// native event (input, exposure, a word from the window manager; not a timer) was delivered.
bool ProcessNativeEvents(const QDeadlineTimer& deadline, NativeInput input = NativeInput::Deliver);

// To be told of each native event as it comes in.
void NoteNativeEvent();

// Stands around the delivery of an event, so that a widget may be in the middle of its handler.
class NativeDelivery {
  public:
    NativeDelivery();
    NativeDelivery(const NativeDelivery&) = delete;
    NativeDelivery& operator=(const NativeDelivery&) = delete;
    ~NativeDelivery();
};

// Deletes the widgets that were given up since the last call, unless an event is being delivered.
void FlushDeferredDeletes();

}  // namespace rotavel
