#include "gui/native/qz_application.h"

#include <algorithm>

#include <QKeyEvent>

#include "gui/event_queue.h"
#include "gui/menu.h"
#include "gui/native/qz_style.h"
#include "gui/native/qz_window.h"
#include "gui/native/window_record.h"

namespace rotavel {

QzApplication::QzApplication(int& argumentCount, char** arguments)
    : QApplication(argumentCount, arguments) {
    setQuitOnLastWindowClosed(false);
    setStyle(new QzStyle);
    connect(this, &QApplication::focusChanged, this, [](QWidget*, QWidget* now) {
        if (auto* const window = now == nullptr ? nullptr : QzWindow::Of(now)) {
            window->FocusArrived(now);
        }
    });
}

QzApplication* QzApplication::Instance() {
    return static_cast<QzApplication*>(instance());
}

void QzApplication::AddFilter(NativeEventFilter filter, void* userValue) {
    filters.emplace_back(filter, userValue);
}

void QzApplication::RemoveFilter(NativeEventFilter filter, void* userValue) {
    std::erase(filters, std::pair(filter, userValue));
}

bool QzApplication::notify(QObject* receiver, QEvent* event) {
    // What comes from outside reaches the native window first; the toolkit then hands it on to
    // widgets, which is not a native event of its own.
    if (event->spontaneous() && receiver->isWindowType()) {
        nativeEventSeen = true;
        if (IsFiltered(event)) {
            return true;
        }
        if (event->type() == QEvent::KeyPress &&
            PostShortcutOf(receiver, static_cast<QKeyEvent&>(*event))) {
            return true;
        }
    }
    return QApplication::notify(receiver, event);
}

bool QzApplication::event(QEvent* event) {
    if (event->type() != QEvent::Quit) {
        return QApplication::event(event);
    }
    QueueEvent(MenuChosen, QuitItem, -1, 0);
    event->ignore();
    return true;
}

bool QzApplication::IsFiltered(QEvent* event) const {
    return std::any_of(filters.begin(), filters.end(),
                       [event](const auto& filter) { return filter.first(event, filter.second); });
}

}  // namespace rotavel
