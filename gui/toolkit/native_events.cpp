#include "gui/toolkit/native_events.h"

#include <algorithm>
#include <deque>
#include <limits>
#include <memory>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QDeadlineTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>
#include <QWindow>

// Declared by the toolkit's test library only: looks for a shortcut before a key is sent, as the
// toolkit does for a key from outside. Returns whether there was one.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* receiver, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers, const QString& text,
                                               bool isAutoRepeat, ushort count);

namespace rotavel {

namespace {

// One call of ProcessNativeEvents.
struct Turn {
    int Depth;       // of deliveries, at which events come in from outside
    bool Postpones;  // every input, to a later call
    bool HasSeen = false;
    bool HasInput = false;  // from outside, which has not waited
    quint64 InputTime = 0;
};

// An input that waits for its turn. What the toolkit copies of a pointer's event stays tied to the
// pointer, which goes on to other places meanwhile; only the place in the window is the copy's own.
struct Input {
    QPointer<QWindow> Window;
    std::unique_ptr<QEvent> Event;
    QPointF OnScreen;  // of a pointer
};

Turn* turn = nullptr;  // the innermost one
int deliveries = 0;
int redeliveryDepth = -1;  // of deliveries, while an input that had to wait is delivered
std::deque<Input> waiting;

// Of a touch or a pen's deed that nobody takes the toolkit makes a mouse's, at once: only that one
// can wait.
bool IsMadeMouse(const QEvent& event) {
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
    return (event.isInputEvent() && !IsMadeMouse(event)) ||
           event.type() == QEvent::ShortcutOverride || event.type() == QEvent::Leave ||
           event.type() == QEvent::Close;
}

quint64 TimeOf(const QEvent& event) {
    return event.isInputEvent() ? static_cast<const QInputEvent&>(event).timestamp() : 0;
}

// What the toolkit also tells in the middle of a deed of its own, when a menu closes for instance.
bool MayBeToldDirectly(const QEvent& event) {
    return event.type() == QEvent::Enter || event.type() == QEvent::Leave ||
           event.type() == QEvent::Close;
}

// The toolkit tells some inputs as two events: a key after the question whether it is a shortcut,
// a double click after its press.
bool ContinuesInput(const QEvent& event) {
    return (event.type() == QEvent::KeyPress || event.type() == QEvent::MouseButtonDblClick) &&
           TimeOf(event) == turn->InputTime;
}

bool IsMoveLike(const Input& earlier, const QWindow& window, const QEvent& event) {
    return event.type() == QEvent::MouseMove && earlier.Event->type() == QEvent::MouseMove &&
           earlier.Window == &window &&
           static_cast<const QMouseEvent&>(*earlier.Event).buttons() ==
               static_cast<const QMouseEvent&>(event).buttons();
}

void Keep(QWindow& window, QEvent& event) {
    if (event.type() == QEvent::ShortcutOverride) {
        event.accept();  // the key itself follows
        return;
    }
    if (event.type() == QEvent::Close) {
        event.ignore();  // else the toolkit takes the window for closed
    }
    if (!waiting.empty() && IsMoveLike(waiting.back(), window, event)) {
        waiting.pop_back();  // the pointer has moved on
    }
    const QPointF onScreen = event.isSinglePointEvent()
                                 ? static_cast<const QSinglePointEvent&>(event).globalPosition()
                                 : QPointF();
    waiting.push_back({&window, std::unique_ptr<QEvent>(event.clone()), onScreen});
}

// The event of a pointer as it was when it came.
std::unique_ptr<QEvent> MadeAnew(const Input& input) {
    const auto& event = static_cast<const QSinglePointEvent&>(*input.Event);
    const QPointF place = event.position();
    std::unique_ptr<QSinglePointEvent> made;
    if (event.type() == QEvent::Enter) {
        made = std::make_unique<QEnterEvent>(place, place, input.OnScreen, event.pointingDevice());
    } else if (event.type() == QEvent::Wheel) {
        const auto& wheel = static_cast<const QWheelEvent&>(event);
        made = std::make_unique<QWheelEvent>(place, input.OnScreen, wheel.pixelDelta(),
                                             wheel.angleDelta(), wheel.buttons(), wheel.modifiers(),
                                             wheel.phase(), wheel.inverted(), wheel.source(),
                                             wheel.pointingDevice());
    } else {
        const auto& mouse = static_cast<const QMouseEvent&>(event);
        made = std::make_unique<QMouseEvent>(mouse.type(), place, place, input.OnScreen,
                                             mouse.button(), mouse.buttons(), mouse.modifiers(),
                                             mouse.source(), mouse.pointingDevice());
    }
    made->setTimestamp(event.timestamp());
    return made;
}

bool IsOfMouse(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Enter:
            return true;
        default:
            return false;
    }
}

bool IsBlocked(const QWindow& window) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr && QApplication::activePopupWidget() == nullptr &&
           modal->windowHandle() != &window;
}

// The window that gets a key now. A box that asks has the keys though the window manager may not
// have given it the keyboard yet. When a menu or a box has closed, the toolkit knows of its window,
// or of none, until the window system has answered; the window below has the keys meanwhile.
QWindow* ReceiverOfKey(const Input& key) {
    if (const QWidget* const modal = QApplication::activeModalWidget()) {
        return modal->windowHandle();
    }
    QWindow* const focused = QGuiApplication::focusWindow();
    if (focused != nullptr && focused->isVisible()) {
        return focused;
    }
    const QWidget* const active = QApplication::activeWindow();
    return active == nullptr ? key.Window.data() : active->windowHandle();
}

// Delivers the input that has waited longest, a key to what has the keyboard now.
void Redeliver() {
    Input input = std::move(waiting.front());
    waiting.pop_front();
    if (IsOfMouse(*input.Event)) {
        input.Event = MadeAnew(input);
    }
    const bool isKey =
        input.Event->type() == QEvent::KeyPress || input.Event->type() == QEvent::KeyRelease;
    const QPointer<QWindow> window = isKey ? ReceiverOfKey(input) : input.Window.data();
    if (window == nullptr || IsBlocked(*window)) {
        return;
    }
    const int depthBefore = std::exchange(redeliveryDepth, deliveries);
    bool isShortcut = false;
    if (input.Event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*input.Event);
        isShortcut =
            qt_sendShortcutOverrideEvent(window, key.timestamp(), key.key(), key.modifiers(),
                                         key.text(), key.isAutoRepeat(), ushort(key.count()));
    }
    if (!isShortcut && window != nullptr) {
        QCoreApplication::sendEvent(window, input.Event.get());
    }
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
    const bool redelivers = input == NativeInput::Deliver && !waiting.empty();
    QEventLoop::ProcessEventsFlags flags = QEventLoop::AllEvents;
    // The toolkit is never asked to hold back input itself: it forgets to wake up for that again.
    flags.setFlag(QEventLoop::WaitForMoreEvents, remaining != 0 && !redelivers);

    Turn here{deliveries, input == NativeInput::Postpone};
    Turn* const around = std::exchange(turn, &here);
    QAbstractEventDispatcher::instance()->processEvents(flags);
    if (redelivers && !here.HasInput && !waiting.empty()) {
        Redeliver();
        here.HasSeen = true;
    }
    turn = around;
    return here.HasSeen;
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
            // In a loop of the toolkit's own, a drag's for instance, nothing waits.
            while (!MayBeToldDirectly(event) && !waiting.empty()) {
                Redeliver();
            }
        } else if (turn->Postpones || !waiting.empty() ||
                   (turn->HasInput && !ContinuesInput(event))) {
            Keep(static_cast<QWindow&>(receiver), event);
            return false;
        } else if (event.type() != QEvent::Enter && event.type() != QEvent::Leave) {
            turn->HasInput = true;
            turn->InputTime = TimeOf(event);
        }
    }
    if (turn != nullptr) {
        turn->HasSeen = true;
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
