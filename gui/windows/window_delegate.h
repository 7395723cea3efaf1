#pragma once

#include "gui/numbers.h"

namespace rotavel {

// Whom a native window tells what becomes of it, for as long as it is open.
class WindowDelegate {
  public:
    virtual ~WindowDelegate() = default;

    virtual WindowNumber GetWindowID() const = 0;

    // Somebody asks the window to close; false keeps it open.
    virtual bool WindowShouldClose() const = 0;
    virtual void WindowDidBecomeKey() const = 0;
    virtual void WindowDidResignKey() const = 0;
    virtual void WindowDidMiniaturize() const = 0;
    virtual void WindowDidDeminiaturize() const = 0;

    // The window is about to be shown where it is now; its way there is nobody's business.
    virtual void WindowWillShow() = 0;
    // The window is on the screen.
    virtual void WindowDidShow() = 0;
    // The window manager has moved or resized the window.
    virtual void WindowFrameDidChange() = 0;
    // The window was zoomed, or zoomed back. Its new size may be still to come.
    virtual void WindowDidZoom(bool wasZoomed) = 0;
    // The program has given the window new bounds.
    virtual void WindowDidTakeBounds() = 0;
};

}  // namespace rotavel
