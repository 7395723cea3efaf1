#include "gui/windows/qz_window_events.h"

#include <utility>

#include "gui/events/event_posting.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/status_bars.h"
#include "gui/windows/window_observer.h"
#include "gui/windows/window_record.h"

namespace rotavel {

void QzWindowEvents::Connect(QzWindow* window, std::int64_t id) {
    WindowInstance = window;
    WindowID = id;
    ZoomEvent = 0;
    window->SetDelegate(this);
}

bool QzWindowEvents::WindowShouldClose() const {
    QueueEvent(CloseRequested, WindowID, WindowID, 0);
    return false;
}

void QzWindowEvents::WindowWillClose() {
    for (WindowObserver* const observer : WindowObservers()) {
        observer->WindowClosed(*WindowInstance);
    }
    WindowInstance->SetDelegate(nullptr);
    DeleteQueuedEvents(WindowID);
    WindowRegistry().Remove(WindowID);  // and, with the record, its timers and this delegate
}

void QzWindowEvents::WindowDidResize() {
    // A binding may destroy the window, and this with it.
    const QPointer<QzWindow> window = WindowInstance;
    const auto isGone = [&window, this] { return window == nullptr || window->Delegate() != this; };
    if (const std::uint32_t zoom = std::exchange(ZoomEvent, 0)) {
        QueueEvent(zoom, WindowID, WindowID, 0);
        if (isGone()) {
            return;
        }
    }
    // Drops older resize events of window 0 only; those of other windows merge when they are
    // neighbours.
    DeleteQueuedEvents(WindowResized, 0, WindowID, 0);
    QueueEvent(WindowResized, WindowID, WindowID, 0);
    if (!isGone()) {
        AdjustStatusBarsOf(WindowInstance);
        WindowInstance->ContentView()->update();
    }
}

void QzWindowEvents::WindowDidMove() const {
    QueueEvent(WindowMoved, WindowID, WindowID, 0);
}

void QzWindowEvents::WindowDidBecomeKey() const {
    for (WindowObserver* const observer : WindowObservers()) {
        observer->WindowBecameKey(*WindowInstance);
    }
    QueueEvent(WindowActivated, WindowID, WindowID, 0);
}

void QzWindowEvents::WindowDidResignKey() const {
    QueueEvent(WindowDeactivated, WindowID, WindowID, 0);
}

void QzWindowEvents::WindowDidMiniaturize() const {
    QueueEvent(WindowMinimized, WindowID, WindowID, 0);
}

void QzWindowEvents::WindowDidDeminiaturize() const {
    const bool zoomed = WindowInstance->IsResizable() && WindowInstance->isMaximized();
    QueueEvent(zoomed ? WindowMaximized : WindowRestored, WindowID, WindowID, 0);
}

void QzWindowEvents::WindowShouldZoom(bool grows) {
    ZoomEvent = grows ? WindowMaximized : WindowRestored;
}

}  // namespace rotavel
