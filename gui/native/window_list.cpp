#include "gui/native/window_list.h"

#include <algorithm>
#include <vector>

#include "gui/native/qz_window.h"

namespace rotavel {

namespace {

std::vector<QzWindow*> windows;

}  // namespace

void EnterWindow(QzWindow* window) {
    windows.push_back(window);
}

void LeaveWindow(QzWindow* window) {
    std::erase(windows, window);
}

void PresentPendingWindows() {
    // Showing one may run code that opens another.
    for (std::size_t i = 0; i < windows.size(); ++i) {
        windows[i]->PresentIfPending();
    }
}

void BringWindowsToFront() {
    for (QzWindow* const window : windows) {
        if (window->isVisible()) {
            window->raise();
        }
    }
    if (QzWindow* const key = QzWindow::LastKeyWindow()) {
        key->MakeKeyAndOrderFront();
    }
}

void MiniaturizeWindows() {
    for (QzWindow* const window : windows) {
        if (window->isVisible() && !window->IsBorderless()) {
            window->showMinimized();
        }
    }
}

void DeminiaturizeWindows() {
    for (QzWindow* const window : windows) {
        if (window->isMinimized()) {
            window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
        }
    }
}

QzWindow* KeyWindowAbove(const QzWindow* parent) {
    const auto above = std::find_if(windows.rbegin(), windows.rend(), [parent](QzWindow* window) {
        return window->ParentWindow() == parent && window->isVisible() &&
               window->CanBecomeKeyWindow();
    });
    return above == windows.rend() ? nullptr : *above;
}

}  // namespace rotavel
