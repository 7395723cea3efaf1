#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QTimer>

#include "gui/numbers.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/qz_window_events.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

// Keys that choose a menu item of a window's.
class WindowShortcut {
  public:
    WindowShortcut(const QKeySequence& shortcutKeys, std::int64_t menuItem)
        : keys(shortcutKeys), item(menuItem) {}

    // Whether the key event is this shortcut; gives the menu item if it is.
    bool IsEventMatch(const QKeyEvent& event, std::int64_t& setItemID) const {
        if (keys.isEmpty() || QKeySequence(event.keyCombination()) != keys) {
            return false;
        }
        setItemID = item;
        return true;
    }

  private:
    QKeySequence keys;
    std::int64_t item;
};

// What the layer knows of one open window.
struct WindowRecord {
    QPointer<QzWindow> Window;
    std::unique_ptr<QzWindowEvents> Delegate;
    std::vector<std::unique_ptr<QTimer>> Timers;
    std::vector<WindowShortcut> Shortcuts;
    QPointer<QzWindow> PreviousKeyWindow;  // null again once that one is gone
    bool HadPreviousKeyWindow = false;
};

// The open windows, by number.
NumberedObjects<WindowRecord>& WindowRegistry();

// The window and menu item of a shortcut that a key event is, of the window that lies in this
// native window. Nothing when there is none or the window is disabled.
struct ChosenShortcut {
    std::int64_t Window;
    std::int64_t Item;
};
std::optional<ChosenShortcut> FindShortcut(const QObject* nativeWindow, const QKeyEvent& event);

// Destroys the status bars of a window that closes.
void DestroyStatusBarsOf(const QzWindow& window);

// The number of the window that a widget lies in; -1 when that is none of the open ones.
std::int64_t WindowNumberOf(const QWidget* widget);

}  // namespace rotavel
