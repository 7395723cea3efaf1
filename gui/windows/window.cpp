#include "gui/window.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <tuple>

#include "gui/events/event_posting.h"
#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/toolkit/text.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/window_frame.h"
#include "gui/windows/window_observer.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

NumberedObjects<WindowRecord> registry;

// The window that gets the keyboard when `closing` goes: the one that had it before if that is
// visible, else the first visible one.
QzWindow* NextKeyWindow(const WindowRecord& closing) {
    QzWindow* candidate = nullptr;
    for (auto [number, record] = registry.First(); record != nullptr;
         std::tie(number, record) = registry.After(number)) {
        if (record == &closing || !record->Window->Presentation().IsVisibleOrPending() ||
            record->Window->isMinimized()) {
            continue;
        }
        if (record->Window == closing.PreviousKeyWindow) {
            return record->Window;
        }
        if (candidate == nullptr) {
            candidate = record->Window;
        }
    }
    return candidate;
}

// Closes a window. Most steps may run callbacks of the program's, which may close it first or open
// another under its number: that one stays.
void DestroyOne(WindowNumber number, QzWindow& window) {
    const auto isGone = [number, &window] {
        const WindowRecord* const record = registry.Find(number);
        return record == nullptr || record->Window != &window;
    };
    UnbindWindowEvents(number);
    for (WindowObserver* const observer : WindowObservers()) {
        observer->WindowCloses(window, number);
        if (isGone()) {
            return;
        }
    }
    DestroyStatusBarsOf(window);
    const WindowRecord& record = *registry.Find(number);
    QPointer<QzWindow> heir;
    if (record.HadPreviousKeyWindow && QzWindow::ChosenKeyWindow() == &window) {
        heir = NextKeyWindow(record);
    }
    record.Delegate->WindowWillClose();
    window.Presentation().Hide();  // which it tells nobody any more
    Retire(&window);
    if (heir != nullptr && heir->Delegate() != nullptr) {
        heir->MakeKeyAndOrderFront();
    }
}

QzWindow* FindWindow(WindowNumber number) {
    const WindowRecord* const record = registry.Find(number);
    return record == nullptr ? nullptr : record->Window.data();
}

// A window with its true frame; null when it is not open, or no longer after the wait for that.
QzWindow* FindFramedWindow(WindowNumber number) {
    if (QzWindow* const window = FindWindow(number)) {
        window->Presentation().EnsureFramed();
    }
    return FindWindow(number);
}

QPoint CornerOf(WindowNumber number, int mode) {
    QzWindow* const window = FindFramedWindow(number);
    if (window == nullptr) {
        return {};
    }
    return mode == OuterFrame ? FrameOf(*window).topLeft()
                              : InnerCornerOf(*window) + window->Layout().ContentCorner();
}

QSize SizeOf(WindowNumber number, int mode) {
    QzWindow* const window = mode == OuterFrame ? FindFramedWindow(number) : FindWindow(number);
    if (window == nullptr) {
        return {0, 0};
    }
    return mode == OuterFrame ? FrameOf(*window).size()
                              : window->Presentation().ZoomedContentSize();
}

}  // namespace

NumberedObjects<WindowRecord>& WindowRegistry() {
    return registry;
}

std::vector<WindowObserver*>& WindowObservers() {
    static std::vector<WindowObserver*> observers;
    return observers;
}

std::optional<ChosenShortcut> FindShortcut(const QObject* nativeWindow, const QKeyEvent& event) {
    const QzWindow* const window = QzWindow::In(nativeWindow);
    if (window == nullptr || window->IsDisabled()) {
        return std::nullopt;
    }
    const WindowNumber number = window->Delegate()->GetWindowID();
    for (const WindowShortcut& shortcut : registry.Find(number)->Shortcuts) {
        std::int64_t item = 0;
        if (shortcut.IsEventMatch(event, item)) {
            return ChosenShortcut{number, item};
        }
    }
    return std::nullopt;
}

std::int64_t WindowNumberOf(const QWidget* widget) {
    const QzWindow* const window = widget == nullptr ? nullptr : QzWindow::Of(widget);
    return window == nullptr || window->Delegate() == nullptr ? -1
                                                              : window->Delegate()->GetWindowID();
}

std::int64_t WindowCreate(WindowNumber number, std::int64_t x, std::int64_t y, std::int64_t width,
                          std::int64_t height, std::u16string_view title, std::uint32_t flags,
                          NativeWindow* parent) {
    if ((flags & WindowStartZoomed) != 0) {
        width = std::max<std::int64_t>(width, 1);
        height = std::max<std::int64_t>(height, 1);
    }
    if (!IsPossibleSize(width, height) || number < AnyNumber) {
        return 0;
    }
    if (number != AnyNumber) {
        WindowDestroy(number);
    }
    if (x == IgnoreValue || y == IgnoreValue) {
        flags |= WindowScreenCentred;
    }
    const auto [id, record] = registry.Create(number);
    if (record == nullptr) {
        return 0;  // a callback has opened another window under the number meanwhile
    }
    auto* const window =
        new QzWindow(flags, FromHandle(parent), QSize(ToSide(width), ToSide(height)));
    record->Window = window;
    record->Delegate = std::make_unique<QzWindowEvents>();
    record->Delegate->Connect(window, id);
    record->PreviousKeyWindow = QzWindow::ChosenKeyWindow();
    record->HadPreviousKeyWindow = record->PreviousKeyWindow != nullptr;
    window->ContentView()->WindowID = id;
    window->setWindowTitle(ToWindowTitle(title));
    if ((flags & WindowScreenCentred) == 0) {
        window->Presentation().SetCorner({ToCoordinate(x), ToCoordinate(y)});
    }
    window->Presentation().TakePlace();
    if ((flags & WindowHidden) == 0) {
        window->Presentation().Show(flags);
    }
    if ((flags & WindowOutsideGadgetList) == 0) {
        for (WindowObserver* const observer : WindowObservers()) {
            observer->WindowTakesGadgets(*window);
        }
    }
    return CreationResult(number, id, window);
}

void WindowDestroy(WindowNumber number) {
    if (number == AnyNumber) {
        std::vector<std::pair<WindowNumber, QzWindow*>> open;
        registry.ForEach([&open](WindowNumber each, const WindowRecord& record) {
            open.emplace_back(each, record.Window);
        });
        for (const auto& [each, window] : open) {
            if (FindWindow(each) == window) {
                DestroyOne(each, *window);
            }
        }
    } else if (QzWindow* const window = FindWindow(number)) {
        DestroyOne(number, *window);
    }
}

void WindowShow(WindowNumber number, WindowVisibility hide, std::uint32_t flags) {
    QzWindow* const window = FindWindow(number);
    if (window == nullptr) {
        return;
    }
    if (hide == Hidden) {
        window->Presentation().Hide();
    } else {
        window->Presentation().Show(flags);
    }
}

void WindowActivate(WindowNumber number) {
    QzWindow* const window = FindWindow(number);
    if (window != nullptr && window->Presentation().IsVisibleOrPending() &&
        !window->isMinimized()) {
        window->MakeKeyAndOrderFront();
    }
}

void WindowDisable(WindowNumber number, bool state) {
    QzWindow* const window = FindWindow(number);
    if (window == nullptr) {
        return;
    }
    if (state) {
        window->Disable();
    } else {
        window->Enable();
    }
}

bool WindowIsDisabled(WindowNumber number) {
    const QzWindow* const window = FindWindow(number);
    return window != nullptr && window->IsDisabled();
}

std::int64_t WindowGetX(WindowNumber number, int mode) {
    return CornerOf(number, mode).x();
}

std::int64_t WindowGetY(WindowNumber number, int mode) {
    return CornerOf(number, mode).y();
}

std::int64_t WindowGetWidth(WindowNumber number, int mode) {
    return SizeOf(number, mode).width();
}

std::int64_t WindowGetHeight(WindowNumber number, int mode) {
    return SizeOf(number, mode).height();
}

void WindowSetBounds(WindowNumber number, std::int64_t x, std::int64_t y, std::int64_t width,
                     std::int64_t height) {
    QzWindow* window = FindWindow(number);
    if (window != nullptr && window->isVisible()) {
        window = FindFramedWindow(number);
    }
    if (window == nullptr) {
        return;
    }
    window->Presentation().KeepPlace();
    const QSize current = window->Layout().ContentSize();
    const std::int64_t newWidth = width == IgnoreValue ? current.width() : width;
    const std::int64_t newHeight = height == IgnoreValue ? current.height() : height;
    // A size that no window can have changes nothing, like any size that is the present one.
    const bool resizes = IsPossibleSize(newWidth, newHeight) &&
                         (newWidth != current.width() || newHeight != current.height());
    const QPoint corner = FrameOf(*window).topLeft();
    const QPoint newCorner(x == IgnoreValue ? corner.x() : ToCoordinate(x),
                           y == IgnoreValue ? corner.y() : ToCoordinate(y));
    if (window->isMaximized() && (resizes || newCorner != corner)) {
        LeaveZoom(*window, newCorner);
    } else if (x != IgnoreValue || y != IgnoreValue) {
        window->Presentation().SetCorner(newCorner);
    }
    if (resizes) {
        window->Presentation().SetContentSize({ToSide(newWidth), ToSide(newHeight)});
    }
    if (QzWindowEvents* const delegate = window->Delegate()) {
        delegate->WindowDidTakeBounds();
    }
}

void WindowAddTimer(WindowNumber number, int milliseconds, TimerCallback callback,
                    void* userValue) {
    WindowRecord* const record = registry.Find(number);
    if (record == nullptr || milliseconds < 1) {
        return;
    }
    const auto& timer = record->Timers.emplace_back(std::make_unique<QTimer>());
    QObject::connect(timer.get(), &QTimer::timeout, [callback, userValue] { callback(userValue); });
    timer->start(milliseconds);
}

NativeWindow* WindowNativeHandle(WindowNumber number) {
    return ToHandle<NativeWindow>(FindWindow(number));
}

bool WindowExists(WindowNumber number) {
    return registry.Find(number) != nullptr;
}

}  // namespace rotavel
