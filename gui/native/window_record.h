#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <QKeyEvent>
#include <QKeySequence>
#include <QPointer>
#include <QTimer>

#include "gui/handles.h"
#include "gui/native/qz_window.h"
#include "gui/native/qz_window_events.h"
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
    QPointer<QzWindow> PreviousKeyWindow;
};

// The open windows, by number.
NumberedObjects<WindowRecord>& WindowRegistry();

// Posts the menu item that a key event chooses by a shortcut of the native window it goes to.
// Whether there is one.
bool PostShortcutOf(const QObject* nativeWindow, const QKeyEvent& event);

// The number of the window that a widget lies in; -1 when that is none of the open ones.
std::int64_t WindowNumberOf(const QWidget* widget);

inline QzWindow* FromHandle(NativeWindow* handle) {
    return reinterpret_cast<QzWindow*>(handle);
}

inline NativeWindow* ToHandle(QzWindow* window) {
    return reinterpret_cast<NativeWindow*>(window);
}

}  // namespace rotavel
