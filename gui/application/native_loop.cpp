#include "gui/application/native_loop.h"

#include <algorithm>
#include <limits>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include "gui/application/qz_application.h"

namespace rotavel {

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
    QzApplication& application = *QzApplication::Instance();
    const bool seenBefore = application.TakeNativeEventSeen();
    QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents;
    flags.setFlag(QEventLoop::WaitForMoreEvents, remaining != 0);
    flags.setFlag(QEventLoop::ExcludeUserInputEvents, input == NativeInput::Postpone);
    dispatcher->processEvents(flags);
    const bool seen = application.TakeNativeEventSeen();
    application.SetNativeEventSeen(seenBefore);
    return seen;
}

void FlushDeferredDeletes() {
    // Without a running event loop of the toolkit's own nobody else does. A wait inside a handler
    // leaves them be: the widget that is handling something may be among them.
    if (!QzApplication::Instance()->IsDelivering()) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

}  // namespace rotavel
