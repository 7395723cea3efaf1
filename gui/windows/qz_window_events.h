#pragma once

#include <cstdint>

#include <QDeadlineTimer>
#include <QObject>
#include <QRect>

#include "gui/event_queue.h"

namespace rotavel {

class QzWindow;

// The delegate of a window for as long as that is open: turns what happens to the native window
// into queued events. Of its geometry it tells nothing that is only a step of the window manager's
// on the way: framing a new window, or answering one request after the other.
class QzWindowEvents final : public QObject {
  public:
    // Makes this the delegate of `window`, which the application knows as number `id`.
    void Connect(QzWindow* window, WindowNumber id);
    void WindowWillClose();

    WindowNumber GetWindowID() const { return WindowID; }

    // Somebody asks the window to close; false keeps it open.
    bool WindowShouldClose() const;
    void WindowDidBecomeKey() const;
    void WindowDidResignKey() const;
    void WindowDidMiniaturize() const;
    void WindowDidDeminiaturize() const;

    // The window is about to be shown where it is now; its way there is nobody's business.
    void WindowWillShow();
    // The window is on the screen.
    void WindowDidShow();
    // The window manager has moved or resized the window.
    void WindowFrameDidChange();
    // The window was zoomed, or zoomed back. Its new size may be still to come.
    void WindowDidZoom(bool wasZoomed);
    // An edge of its frame is elsewhere.
    void WindowDidMove() const;
    // The program has given the window new bounds.
    void WindowDidTakeBounds();

  private:
    struct Geometry {
        QPoint Corner;  // of the frame
        QSize Content;
        bool IsZoomed = false;
    };

    Geometry CurrentGeometry() const;
    bool HasZoomed() const { return CurrentGeometry().IsZoomed != told.IsZoomed; }
    // Tells what differs from what was told last.
    void Report();
    // The same once the window manager has said all that it has to say.
    void ReportInTime();

    void WindowShouldZoom(bool grows);
    void WindowDidResize();

    QzWindow* WindowInstance = nullptr;
    WindowNumber WindowID = -1;
    std::uint32_t ZoomEvent = 0;
    Geometry told;
    bool isReportDue = false;
    QDeadlineTimer managerAnswered;
};

}  // namespace rotavel
