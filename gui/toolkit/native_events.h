#pragma once

class QDeadlineTimer;
class QEvent;
class QObject;

namespace rotavel {

// The toolkit's side of waiting. The toolkit hands out all native events that have come in at one
// go; here one call delivers at most one key, click or other input, so that what it leads to can be
// handled before the next one finds its receiver.

// Makes a blocked ProcessNativeEvents return.
void WakeNativeLoop();

// Whether keys and clicks are delivered or wait for a later call.
enum class NativeInput { Deliver, Postpone };

// Sleeps until something native happens or the deadline passes, and delivers it. Returns whether a
// native event (input, exposure, a word from the window manager; not a timer) was delivered.
bool ProcessNativeEvents(const QDeadlineTimer& deadline, NativeInput input = NativeInput::Deliver);

// For the application object, which sees every event before its receiver does.

// Whether an event comes from outside and reaches the program now.
bool IsNativeEvent(const QObject& receiver, const QEvent& event);
// Notes that a native event is being delivered. False when it is an input whose turn is later: it
// is kept, and must go no further now.
bool AdmitNativeEvent(QObject& receiver, QEvent& event);

// Stands around everything in whose middle a callback of the program's may be: the delivery of an
// event, a native-event filter.
class NativeDelivery {
  public:
    NativeDelivery();
    NativeDelivery(const NativeDelivery&) = delete;
    NativeDelivery& operator=(const NativeDelivery&) = delete;
    ~NativeDelivery();

    static bool IsUnderWay();
};

}  // namespace rotavel
