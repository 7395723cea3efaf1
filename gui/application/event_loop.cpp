#include "gui/event_loop.h"

#include <QDeadlineTimer>

#include "gui/events/event_posting.h"
#include "gui/toolkit/native_events.h"
#include "gui/toolkit/retired_objects.h"

namespace rotavel {

std::int64_t WaitForEvent(std::int64_t timeoutMs) {
    if (!NativeDelivery::IsUnderWay() && !IsInEventCallback()) {
        DeleteRetiredObjects();
    }
    if (const std::uint32_t kind = TakeEvent()) {
        return kind;
    }
    const QDeadlineTimer deadline =
        timeoutMs < 0 ? QDeadlineTimer(QDeadlineTimer::Forever) : QDeadlineTimer(timeoutMs);
    for (;;) {
        const bool delivered = ProcessNativeEvents(deadline);
        if (const std::uint32_t kind = TakeEvent()) {
            return kind;
        }
        if (delivered) {
            return -1;
        }
        if (deadline.hasExpired()) {
            return 0;
        }
    }
}

std::int64_t WaitForEventBlocking() {
    return WaitForEvent(-1);
}

}  // namespace rotavel
