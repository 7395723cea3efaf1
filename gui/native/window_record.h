#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <QPointer>
#include <QTimer>

#include "gui/handles.h"
#include "gui/native/qz_window.h"
#include "gui/native/qz_window_events.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

// What the layer knows of one open window.
struct WindowRecord {
    QPointer<QzWindow> Window;
    std::unique_ptr<QzWindowEvents> Delegate;
    std::vector<std::unique_ptr<QTimer>> Timers;
    QPointer<QzWindow> PreviousKeyWindow;
};

// The open windows, by number.
NumberedObjects<WindowRecord>& WindowRegistry();

// The number of the window that a widget lies in; -1 when that is none of the open ones.
std::int64_t WindowNumberOf(const QWidget* widget);

inline QzWindow* FromHandle(NativeWindow* handle) {
    return reinterpret_cast<QzWindow*>(handle);
}

inline NativeWindow* ToHandle(QzWindow* window) {
    return reinterpret_cast<NativeWindow*>(window);
}

}  // namespace rotavel
