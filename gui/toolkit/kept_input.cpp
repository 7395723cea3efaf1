#include "gui/toolkit/kept_input.h"

#include <deque>
#include <memory>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QWidget>
#include <QWindow>

// Declared by the toolkit's test library only: looks for a shortcut before a key is sent, as the
// toolkit does for a key from outside. Returns whether there was one.
Q_GUI_EXPORT bool qt_sendShortcutOverrideEvent(QObject* receiver, ulong timestamp, int key,
                                               Qt::KeyboardModifiers modifiers, const QString& text,
                                               bool isAutoRepeat, ushort count);

namespace rotavel {

namespace {

// An input that waits for its turn. What the toolkit copies of a pointer's event stays tied to the
// pointer, which goes on to other places meanwhile; only the place in the window is the copy's own.
struct Input {
    QPointer<QWindow> Window;
    std::unique_ptr<QEvent> Event;
    QPointF OnScreen;  // of a pointer
};

std::deque<Input> waiting;
QWindow* (*chosenWindow)() = nullptr;

bool IsMoveLike(const Input& earlier, const QWindow& window, const QEvent& event) {
    return event.type() == QEvent::MouseMove && earlier.Event->type() == QEvent::MouseMove &&
           earlier.Window == &window &&
           static_cast<const QMouseEvent&>(*earlier.Event).buttons() ==
               static_cast<const QMouseEvent&>(event).buttons();
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

// The event of a pointer as it was when it came, for the window that gets it now.
std::unique_ptr<QEvent> MadeAnew(const Input& input, const QWindow& receiver) {
    const auto& event = static_cast<const QSinglePointEvent&>(*input.Event);
    const QPointF place =
        input.Window == &receiver ? event.position() : receiver.mapFromGlobal(input.OnScreen);
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

bool IsBlocked(const QWindow& window) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr && QApplication::activePopupWidget() == nullptr &&
           modal->windowHandle() != &window;
}

QWindow* ReceiverOf(const Input& input) {
    const QEvent::Type type = input.Event->type();
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease) {
        return ReceiverOfKey(input.Window);
    }
    const bool isElsewhere = input.Window != nullptr && !input.Window->isVisible() &&
                             IsOfMouse(*input.Event) && type != QEvent::Enter;
    return isElsewhere ? QGuiApplication::topLevelAt(input.OnScreen.toPoint())
                       : input.Window.data();
}

}  // namespace

void SetKeyboardHook(QWindow* (*chosen)()) {
    chosenWindow = chosen;
}

QWindow* ReceiverOfKey(QWindow* sentTo) {
    if (const QWidget* const modal = QApplication::activeModalWidget()) {
        return modal->windowHandle();
    }
    QWindow* const chosen = chosenWindow == nullptr ? nullptr : chosenWindow();
    for (QWindow* const window : {chosen, QGuiApplication::focusWindow(), sentTo}) {
        if (window != nullptr && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

void KeepInput(QWindow& window, QEvent& event) {
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

bool IsInputKept() {
    return !waiting.empty();
}

void SendInputKept() {
    Input input = std::move(waiting.front());
    waiting.pop_front();
    const QPointer<QWindow> window = ReceiverOf(input);
    if (window == nullptr || IsBlocked(*window)) {
        return;
    }
    if (IsOfMouse(*input.Event)) {
        input.Event = MadeAnew(input, *window);
    }
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
}

}  // namespace rotavel
