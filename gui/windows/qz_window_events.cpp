#include "gui/windows/qz_window_events.h"

#include <utility>

#include <QPointer>
#include <QTimer>

#include "gui/events/event_posting.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_frame.h"
#include "gui/windows/window_observer.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

// How long a window manager's answers to a new window or new bounds may take.
constexpr int ManagerAnswersMs = 500;

}  // namespace

void QzWindowEvents::Connect(QzWindow* window, WindowNumber id) {
    WindowInstance = window;
    WindowID = id;
    window->SetDelegate(this);
}

bool QzWindowEvents::WindowShouldClose() const {
    QueueEvent(CloseRequested, WindowID, WindowID, 0);
    return false;  // the program closes it, or not
}

void QzWindowEvents::WindowWillClose() {
    QzWindow& window = *WindowInstance;
    const WindowNumber number = WindowID;
    window.SetDelegate(nullptr);
    WindowRegistry().Remove(number);  // and, with the record, its timers and this delegate
    for (WindowObserver* const observer : WindowObservers()) {
        observer->WindowClosed(window);
    }
    // Last: a function that releases an event's data may open another window under the number.
    DeleteQueuedEvents(number);
}

void QzWindowEvents::WindowDidBecomeKey() const {
    // A callback to the move of the keyboard from one menu bar to another may destroy the window.
    QzWindow& window = *WindowInstance;
    for (WindowObserver* const observer : WindowObservers()) {
        observer->WindowBecameKey(window);
        if (window.Delegate() != this) {
            return;
        }
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
    QueueEvent(CurrentGeometry().IsZoomed ? WindowMaximized : WindowRestored, WindowID, WindowID,
               0);
}

void QzWindowEvents::WindowWillShow() {
    const QPointer<QzWindowEvents> self = this;  // a binding may destroy the window
    if (WindowInstance->Presentation().Stands()) {
        WindowDidTakeBounds();
    }
    if (self != nullptr) {
        told = CurrentGeometry();
    }
}

void QzWindowEvents::WindowDidShow() {
    const Geometry asked = std::exchange(told, CurrentGeometry());
    told.Corner = asked.Corner;
    managerAnswered.setRemainingTime(ManagerAnswersMs);  // it may frame the window only now
    // Where windows are tiled one gets another size than it was made with.
    if (WindowInstance->Layout().IsResizable() && !told.IsZoomed && told.Content != asked.Content) {
        told.Content = asked.Content;
        WindowFrameDidChange();
    }
}

void QzWindowEvents::WindowFrameDidChange() {
    if (WindowInstance->Presentation().Stands() && (!isReportDue || HasZoomed())) {
        isReportDue = true;
        QMetaObject::invokeMethod(this, &QzWindowEvents::ReportInTime, Qt::QueuedConnection);
    }
}

void QzWindowEvents::WindowDidZoom(bool wasZoomed) {
    const QPointer<QzWindowEvents> self = this;
    if (WindowInstance->Layout().IsResizable() && wasZoomed != told.IsZoomed) {
        // The zoom before this one is not told yet, and the size it led to is gone or never came.
        told.IsZoomed = wasZoomed;
        told.Content = {};
        WindowShouldZoom(wasZoomed);
        WindowDidResize();
    }
    if (self != nullptr) {
        // The frame may get its new width last, which the toolkit does not tell of.
        managerAnswered.setRemainingTime(ManagerAnswersMs);
        WindowFrameDidChange();
    }
}

void QzWindowEvents::WindowDidTakeBounds() {
    const QPointer<QzWindowEvents> self = this;
    told.IsZoomed = CurrentGeometry().IsZoomed;
    Report();
    // The window manager answers request by request, and each answer first takes the window back
    // to bounds that the program has left already.
    if (self != nullptr && WindowInstance->isVisible() && !WindowInstance->IsPopup()) {
        managerAnswered.setRemainingTime(ManagerAnswersMs);
    }
}

QzWindowEvents::Geometry QzWindowEvents::CurrentGeometry() const {
    return {FrameOf(*WindowInstance).topLeft(), WindowInstance->Layout().ContentSize(),
            WindowInstance->Layout().IsResizable() && WindowInstance->isMaximized()};
}

void QzWindowEvents::ReportInTime() {
    if (!managerAnswered.hasExpired() && !HasZoomed()) {
        QTimer::singleShot(managerAnswered.remainingTime(), this, &QzWindowEvents::ReportInTime);
        return;
    }
    isReportDue = false;
    Report();
}

void QzWindowEvents::Report() {
    const Geometry current = CurrentGeometry();
    const bool resizes = current.Content != told.Content;
    const bool zooms = current.IsZoomed != told.IsZoomed;
    if (zooms && !resizes) {
        return;  // a zoom is told as one; its size is still to come
    }
    const Geometry before = std::exchange(told, current);
    // Where a zoom puts the window is part of the zoom.
    const bool moves = current.Corner != before.Corner && !zooms;
    const QPointer<QzWindowEvents> self = this;
    if (zooms) {
        WindowShouldZoom(before.Content.isValid()
                             ? current.Content.width() > before.Content.width() ||
                                   current.Content.height() > before.Content.height()
                             : current.IsZoomed);
    }
    if (resizes) {
        WindowDidResize();
    }
    if (moves && self != nullptr) {
        WindowDidMove();
    }
}

void QzWindowEvents::WindowShouldZoom(bool grows) {
    ZoomEvent = grows ? WindowMaximized : WindowRestored;
}

void QzWindowEvents::WindowDidResize() {
    const QPointer<QzWindowEvents> self = this;
    if (const std::uint32_t zoom = std::exchange(ZoomEvent, 0)) {
        QueueEvent(zoom, WindowID, WindowID, 0);
        if (self == nullptr) {
            return;
        }
    }
    // Drops older resize events of window 0 only; those of other windows merge when they are
    // neighbours.
    DeleteQueuedEvents(WindowResized, 0, WindowID, 0);
    QueueEvent(WindowResized, WindowID, WindowID, 0);
    if (self != nullptr) {
        WindowInstance->ContentView()->update();
    }
}

void QzWindowEvents::WindowDidMove() const {
    QueueEvent(WindowMoved, WindowID, WindowID, 0);
}

}  // namespace rotavel
