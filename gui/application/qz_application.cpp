#include "gui/application/qz_application.h"

#include <algorithm>
#include <utility>
#include <vector>

#include <QKeyEvent>

#include "gui/application/qz_style.h"
#include "gui/event_loop.h"
#include "gui/events/event_posting.h"
#include "gui/menu.h"
#include "gui/menus/shortcuts.h"
#include "gui/toolkit/native_events.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

std::vector<std::pair<NativeEventFilter, void*>> filters;

bool Offer(QEvent& event) {
    const auto present = filters;  // a filter may add some, and remove those that are to come
    return std::any_of(present.begin(), present.end(), [&event](const auto& filter) {
        const bool isPresent = std::find(filters.begin(), filters.end(), filter) != filters.end();
        return isPresent && filter.first(&event, filter.second);
    });
}

}  // namespace

void AddNativeEventFilter(NativeEventFilter filter, void* userValue) {
    filters.emplace_back(filter, userValue);
}

void RemoveNativeEventFilter(NativeEventFilter filter, void* userValue) {
    std::erase(filters, std::pair(filter, userValue));
}

bool QzApplicationDelegate::ApplicationShouldTerminate() {
    QueueEvent(MenuChosen, QuitItem, -1, 0);
    return false;
}

QzApplication::QzApplication(int& argumentCount, char** arguments)
    : QApplication(argumentCount, arguments) {
    setQuitOnLastWindowClosed(false);
    setStyle(new QzStyle);
    connect(this, &QApplication::focusChanged, this, &QzApplication::FollowFocus);
}

void QzApplication::FollowFocus(QWidget*, QWidget* now) {
    if (QzWindow* const window = now == nullptr ? nullptr : QzWindow::Of(now)) {
        window->FocusArrived(now);
    }
}

bool QzApplication::notify(QObject* receiver, QEvent* event) {
    const bool isNative = IsNativeEvent(*receiver, *event);
    if (isNative && !AdmitNativeEvent(*receiver, *event)) {
        return true;
    }
    const NativeDelivery delivery;
    if (isNative && (IsFiltered(*event) || TakesShortcut(receiver, event) ||
                     (event->type() == QEvent::KeyPress &&
                      TakesMenuKey(receiver, static_cast<QKeyEvent&>(*event))))) {
        return true;
    }
    return QApplication::notify(receiver, event);
}

bool QzApplication::TakesShortcut(QObject* nativeWindow, QEvent* event) {
    // The toolkit asks whether a key is wanted before it looks for a menu item that has it.
    const bool asks = event->type() == QEvent::ShortcutOverride;
    if (!asks && event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto shortcut = FindShortcut(nativeWindow, static_cast<QKeyEvent&>(*event));
    if (!shortcut) {
        return false;
    }
    if (asks) {
        event->accept();
    } else {
        // As for the toolkit's own shortcuts: a menu bar then knows that the Alt key which is
        // released next was not pressed to open it.
        QShortcutEvent told(QKeySequence(), 0);
        sendEvent(nativeWindow, &told);
        QueueEvent(MenuChosen, shortcut->Item, shortcut->Window, 0);
    }
    return true;
}

bool QzApplication::event(QEvent* event) {
    if (event->type() != QEvent::Quit) {
        return QApplication::event(event);
    }
    event->setAccepted(QzApplicationDelegate::ApplicationShouldTerminate());
    return true;
}

bool QzApplication::IsFiltered(QEvent& event) {
    if (filters.empty()) {
        return false;
    }
    // The toolkit asks first whether a key is wanted, else it looks for a menu item that has it. A
    // filter comes before both, and sees the key once.
    if (event.type() == QEvent::ShortcutOverride) {
        auto& question = static_cast<QKeyEvent&>(event);
        QKeyEvent key(QEvent::KeyPress, question.key(), question.modifiers(),
                      question.nativeScanCode(), question.nativeVirtualKey(),
                      question.nativeModifiers(), question.text(), question.isAutoRepeat(),
                      static_cast<quint16>(question.count()));
        key.setTimestamp(question.timestamp());
        offeredKeyTime = question.timestamp();
        isOfferedKeyHandled = Offer(key);
        event.setAccepted(event.isAccepted() || isOfferedKeyHandled);
        return isOfferedKeyHandled;
    }
    const bool wasOffered =
        event.type() == QEvent::KeyPress &&
        static_cast<QKeyEvent&>(event).timestamp() == std::exchange(offeredKeyTime, std::nullopt);
    return wasOffered ? isOfferedKeyHandled : Offer(event);
}

}  // namespace rotavel
