#pragma once

#include <vector>

#include "gui/numbers.h"

namespace rotavel {

class QzWindow;

// What those who keep something for a window, its gadgets or its menus, are told of it.
class WindowObserver {
  public:
    virtual ~WindowObserver() = default;

    // A window was made, and gadgets created next are to go into it.
    virtual void WindowTakesGadgets(QzWindow&) {}
    // The window has got the keyboard; the event that tells so is still to be posted.
    virtual void WindowBecameKey(QzWindow&) {}
    // The program destroys the window: what is kept for it goes now, while it is still whole.
    virtual void WindowCloses(QzWindow&, WindowNumber) {}
    // The window is closed and has no number any more.
    virtual void WindowClosed(QzWindow&) {}
};

// The observers of all windows, in the order in which they are told.
std::vector<WindowObserver*>& WindowObservers();

}  // namespace rotavel
