#include "gui/windows/window_list.h"

#include <algorithm>
#include <vector>

#include "gui/window.h"
#include "gui/windows/qz_window.h"

namespace rotavel {

namespace {

std::vector<QzWindow*> windows;

// What is done may run code that opens another window.
template <typename Deed>
void ForEach(Deed deed) {
    for (std::size_t i = 0; i < windows.size(); ++i) {
        deed(*windows[i]);
    }
}

}  // namespace

void EnterWindow(QzWindow* window) {
    windows.push_back(window);
}

void LeaveWindow(QzWindow* window) {
    std::erase(windows, window);
}

void PresentPendingWindows() {
    ForEach([](QzWindow& window) { window.Presentation().PresentIfPending(); });
}

void BringToFront() {
    ForEach([](QzWindow& window) {
        if (window.isVisible()) {
            window.raise();
        }
    });
    if (QzWindow* const key = QzWindow::LastKeyWindow()) {
        key->MakeKeyAndOrderFront();
    }
}

void MiniaturizeWindows() {
    ForEach([](QzWindow& window) {
        if (window.isVisible() && !window.IsBorderless()) {
            window.setWindowState(window.windowState() | Qt::WindowMinimized);
        }
    });
}

void DeminiaturizeWindows() {
    ForEach([](QzWindow& window) { window.Deminiaturize(); });
}

QzWindow* KeyWindowAbove(const QzWindow* parent) {
    const auto above = std::find_if(windows.rbegin(), windows.rend(), [parent](QzWindow* window) {
        return window->ParentWindow() == parent && window->isVisible() &&
               window->CanBecomeKeyWindow();
    });
    return above == windows.rend() ? nullptr : *above;
}

}  // namespace rotavel
