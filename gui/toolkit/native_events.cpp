#include "gui/toolkit/native_events.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace rotavel {

namespace {

bool nativeEventSeen = false;
int deliveries = 0;

}  // namespace

void WakeNativeLoop() {
    if (QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance()) {
        dispatcher->wakeUp();
    }
}

bool ProcessNativeEvents(const QDeadlineTimer& deadline, NativeInput input) {
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    const qint64 remaining = deadline.remainingTime();
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    if (remaining > 0) {
        alarm.start(static_cast<int>(std::min<qint64>(remaining, std::numeric_limits<int>::max())));
    }
    // Within a delivery the wait around it keeps its own mark.
    const bool seenBefore = std::exchange(nativeEventSeen, false);
    QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents;
    flags.setFlag(QEventLoop::WaitForMoreEvents, remaining != 0);
    flags.setFlag(QEventLoop::ExcludeUserInputEvents, input == NativeInput::Postpone);
    dispatcher->processEvents(flags);
    return std::exchange(nativeEventSeen, seenBefore);
}

void NoteNativeEvent() {
    nativeEventSeen = true;
}

NativeDelivery::NativeDelivery() {
    ++deliveries;
}

NativeDelivery::~NativeDelivery() {
    --deliveries;
}

void FlushDeferredDeletes() {
    // Without a running event loop of the toolkit's own nobody else does. A wait inside a handler
    // leaves them be: the widget that is handling something may be among them.
    if (deliveries == 0) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace rotavel
