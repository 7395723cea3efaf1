#pragma once

#include <cstdint>

#include "gui/event_queue.h"

namespace rotavel {

class QzWindow;

// A window's delegate: turns what happens to the native window into queued events.
class QzWindowEvents {
  public:
    // Makes this the delegate of `window`, which the application knows as number `id`.
    void Connect(QzWindow* window, std::int64_t id);

    std::int64_t GetWindowID() const { return WindowID; }

    bool WindowShouldClose() const;
    void WindowWillClose();
    void WindowDidResize();
    void WindowDidMove() const;
    void WindowDidBecomeKey() const;
    void WindowDidResignKey() const;
    void WindowDidMiniaturize() const;
    void WindowDidDeminiaturize() const;
    // The window is being zoomed to a frame that is larger in some direction, or not.
    void WindowShouldZoom(bool grows);

  private:
    QzWindow* WindowInstance = nullptr;
    std::int64_t WindowID = -1;
    std::uint32_t ZoomEvent = 0;
};

}  // namespace rotavel
