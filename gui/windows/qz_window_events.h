#pragma once

#include <cstdint>

#include <QDeadlineTimer>
#include <QObject>
#include <QRect>

#include "gui/event_queue.h"
#include "gui/windows/window_delegate.h"

namespace rotavel {

class QzWindow;

// A window's delegate: turns what happens to the native window into queued events. Of its geometry
// it tells nothing that is only a step of the window manager's on the way: framing a new window,
// or answering one request after the other.
class QzWindowEvents final : public QObject, public WindowDelegate {
  public:
    // Makes this the delegate of `window`, which the application knows as number `id`.
    void Connect(QzWindow* window, WindowNumber id);
    void WindowWillClose();

    WindowNumber GetWindowID() const override { return WindowID; }
    bool WindowShouldClose() const override;
    void WindowDidBecomeKey() const override;
    void WindowDidResignKey() const override;
    void WindowDidMiniaturize() const override;
    void WindowDidDeminiaturize() const override;
    void WindowWillShow() override;
    void WindowDidShow() override;
    void WindowFrameDidChange() override;
    void WindowDidZoom(bool wasZoomed) override;
    void WindowDidTakeBounds() override;

  private:
    struct Geometry {
        QPoint Corner;  // of the frame
        QPoint Inset;   // of the inside to the frame
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
    void WindowDidMove() const;

    QzWindow* WindowInstance = nullptr;
    WindowNumber WindowID = -1;
    std::uint32_t ZoomEvent = 0;
    Geometry told;
    bool isReportDue = false;
    QDeadlineTimer managerAnswered;
};

}  // namespace rotavel
