#include "gui/toolkit/native_events.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>

#include "gui/toolkit/kept_input.h"

namespace rotavel {

namespace {

// One call of ProcessNativeEvents.
struct Turn {
    // How many deliveries were under way when it began: events from outside come in at that depth.
    int Depth;
    bool Postpones;  // every input, to a later call
    bool HasDelivered = false;
    bool HasInput = false;  // one that came in during this call has been delivered
    QEvent::Type InputType = QEvent::None;
    quint64 InputTime = 0;
    int InputKey = 0;
};

Turn* turn = nullptr;  // the innermost one
int deliveries = 0;
int redeliveryDepth = -1;  // how many are under way while a kept input is sent; -1 when none is

// The toolkit makes a mouse's event of a touch or a pen's that nobody takes, while that is being
// delivered. Only the mouse's can wait.
bool IsOfTouchOrPen(const QEvent& event) {
    switch (event.type()) {
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
        case QEvent::TabletPress:
        case QEvent::TabletMove:
        case QEvent::TabletRelease:
            return true;
        default:
            return false;
    }
}

bool IsInput(const QEvent& event) {
    return (event.isInputEvent() && !IsOfTouchOrPen(event)) ||
           event.type() == QEvent::ShortcutOverride || event.type() == QEvent::Leave ||
           event.type() == QEvent::Close;
}

quint64 TimeOf(const QEvent& event) {
    return event.isInputEvent() ? static_cast<const QInputEvent&>(event).timestamp() : 0;
}

int KeyOf(const QEvent& event) {
    const bool isKey = event.type() == QEvent::ShortcutOverride || event.type() == QEvent::KeyPress;
    return isKey ? static_cast<const QKeyEvent&>(event).key() : 0;
}

// What the toolkit also tells in the middle of a deed of its own. When a menu closes, the keys that
// wait are not to be sent before it has closed.
bool MayBeToldDirectly(const QEvent& event) {
    return event.type() == QEvent::Enter || event.type() == QEvent::Leave ||
           event.type() == QEvent::Close;
}

// The toolkit tells some inputs as two events: a key after the question whether it is a shortcut,
// a double click after its press.
bool ContinuesInput(const QEvent& event) {
    const bool follows =
        (event.type() == QEvent::KeyPress && turn->InputType == QEvent::ShortcutOverride) ||
        (event.type() == QEvent::MouseButtonDblClick &&
         turn->InputType == QEvent::MouseButtonPress);
    return follows && TimeOf(event) == turn->InputTime && KeyOf(event) == turn->InputKey;
}

void Redeliver() {
    const int depthBefore = std::exchange(redeliveryDepth, deliveries);
    SendInputKept();
    redeliveryDepth = depthBefore;
}

}  // namespace

void WakeNativeLoop() {
    if (QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance()) {
        dispatcher->wakeUp();
    }
}

bool ProcessNativeEvents(const QDeadlineTimer& deadline, NativeInput input) {
    const qint64 remaining = deadline.remainingTime();
    QTimer alarm;
    alarm.setTimerType(Qt::PreciseTimer);
    if (remaining > 0) {
        alarm.start(static_cast<int>(std::min<qint64>(remaining, std::numeric_limits<int>::max())));
    }
    const bool redelivers = input == NativeInput::Deliver && IsInputKept();
    QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents;
    // The toolkit is never asked to hold back input itself: it forgets to wake up for that again.
    flags.setFlag(QEventLoop::WaitForMoreEvents, remaining != 0 && !redelivers);

    Turn here{deliveries, input == NativeInput::Postpone};
    Turn* const around = std::exchange(turn, &here);
    QAbstractEventDispatcher::instance()->processEvents(flags);
    if (redelivers && !here.HasInput && IsInputKept()) {
        Redeliver();
        here.HasDelivered = true;
    }
    turn = around;
    return here.HasDelivered;
}

bool IsNativeEvent(const QObject& receiver, const QEvent& event) {
    // The native window is the first to get it; the toolkit then hands it on to widgets, which is
    // not a native event of its own.
    return receiver.isWindowType() && (event.spontaneous() || deliveries == redeliveryDepth);
}

bool AdmitNativeEvent(QObject& receiver, QEvent& event) {
    const bool isRedelivered = deliveries == redeliveryDepth;
    if (IsInput(event) && !isRedelivered) {
        if (turn == nullptr || turn->Depth != deliveries) {
            // In a loop of the toolkit's own, a drag's for instance, nothing goes on waiting.
            while (!MayBeToldDirectly(event) && IsInputKept()) {
                Redeliver();
            }
        } else if (!ContinuesInput(event) && (turn->Postpones || IsInputKept() || turn->HasInput)) {
            KeepInput(static_cast<QWindow&>(receiver), event);
            return false;
        } else if (event.type() != QEvent::Enter && event.type() != QEvent::Leave) {
            turn->HasInput = true;
            turn->InputType = event.type();
            turn->InputTime = TimeOf(event);
            turn->InputKey = KeyOf(event);
        }
    }
    if (turn != nullptr) {
        turn->HasDelivered = true;
    }
    return true;
}

NativeDelivery::NativeDelivery() {
    ++deliveries;
}

NativeDelivery::~NativeDelivery() {
    --deliveries;
}

bool NativeDelivery::IsUnderWay() {
    return deliveries > 0;
}

}  // namespace rotavel
