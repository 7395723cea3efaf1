#include "gui/windows/qz_window.h"

#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>

#include "gui/toolkit/accessible_role.h"
#include "gui/toolkit/native_events.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/window.h"
#include "gui/windows/popups.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window_events.h"
#include "gui/windows/window_frame.h"
#include "gui/windows/window_list.h"

namespace rotavel {

namespace {

// How long a window manager may take to frame a window before its frame is taken as it is.
constexpr int FramingPatienceMs = 1000;
constexpr int SecondPaintingMs = 500;

constexpr std::uint32_t CentringFlags = WindowScreenCentred | WindowOwnerCentred;

QPointer<QzWindow> chosenKeyWindow;
QPointer<QzWindow> lastKeyWindow;  // also while another program has the keyboard

}  // namespace

QzWindow::QzWindow(std::uint32_t creationFlags, QzWindow* parent, QSize contentSize)
    : QWidget(nullptr, ToolkitFlags(creationFlags, parent != nullptr)),
      flags(creationFlags),
      parentWindow(parent),
      placementOwner(parent != nullptr ? parent : chosenKeyWindow.data()),
      contentView(new QzFlippedWindowView(this)),
      layout(*this, *contentView, windowFlags().testFlag(Qt::WindowMaximizeButtonHint)),
      focus(*this, *contentView) {
    setFocusPolicy(Qt::NoFocus);
    SetAccessibleRole(*this, QAccessible::Window);
    layout.SetContentSize(contentSize);
    EnterWindow(this);
}

QzWindow::~QzWindow() {
    LeaveWindow(this);
}

QzWindow* QzWindow::Of(const QWidget* widget) {
    return dynamic_cast<QzWindow*>(widget->window());
}

QzWindow* QzWindow::In(const QObject* nativeWindow) {
    const WId id = static_cast<const QWindow*>(nativeWindow)->winId();
    auto* const window = dynamic_cast<QzWindow*>(QWidget::find(id));
    return window != nullptr && window->delegate != nullptr ? window : nullptr;
}

QzWindow* QzWindow::ChosenKeyWindow() {
    return chosenKeyWindow;
}

QzWindow* QzWindow::LastKeyWindow() {
    return lastKeyWindow;
}

QSize QzWindow::ZoomedContentSize() {
    const bool startsZoomed = showPending && (flags & WindowStartZoomed) != 0;
    const QPointer<QzWindow> self = this;
    if (startsZoomed || unzoomedSize == size()) {
        EnsureFramed();
    }
    return self == nullptr ? QSize() : ContentSize();
}

void QzWindow::SetContentSize(QSize size) {
    const bool staysOnScreen = !isVisible() && !IsPopup() && IsFrameOnScreen(*this);
    layout.SetContentSize(size);
    if (staysOnScreen || layout.IsScrolled()) {
        MoveFrameOntoScreen(*this);
    }
}

void QzWindow::SetCorner(QPoint corner) {
    if (IsPopup() && parentWindow != nullptr) {
        popupCorner = corner;
        corner = CornerForPopup(*this, *parentWindow, popupCorner);
    }
    SetFrameCorner(*this, corner);
}

void QzWindow::LeaveZoom(QPoint corner) {
    const QSize zoomed = size();
    setWindowState(windowState() & ~Qt::WindowMaximized);
    SetUnzoomedBounds(*this, corner, zoomed);
}

void QzWindow::TakePlace() {
    const bool isCentred = (flags & CentringFlags) != 0;
    if (IsPopup() && !isCentred) {
        SetCorner(popupCorner);
    } else if ((flags & WindowScreenCentred) != 0) {
        CentreFrameOnScreen(*this);
    } else if (isCentred && placementOwner != nullptr && placementOwner != this) {
        CentreFrameOver(*this, *placementOwner);
    }
    if (isCentred) {
        popupCorner = FrameOf(*this).topLeft();
    }
    if (layout.IsScrolled()) {
        MoveFrameOntoScreen(*this);
    }
    if (delegate != nullptr) {
        delegate->WindowWillShow();
    }
    stands = stands && isVisible();
}

void QzWindow::KeepPlace() {
    if (showPending) {
        TakePlace();
    }
    flags &= ~CentringFlags;
}

void QzWindow::Show(std::uint32_t showFlags) {
    constexpr std::uint32_t taken = CentringFlags | WindowNotActivated;
    if (!showPending) {
        flags &= ~CentringFlags;
    }
    flags = (flags & ~WindowNotActivated) | (showFlags & taken);
    const bool activates =
        (flags & (WindowNotActivated | WindowStartMiniaturized)) == 0 && !IsPopup();
    if (isVisible() && (flags & CentringFlags) == 0) {
        Deminiaturize();
        if (activates) {
            MakeKeyAndOrderFront();
        } else if (IsPopup()) {
            SetCorner(popupCorner);  // the pointer may have come to where it stands
        } else {
            raise();
        }
        return;
    }
    showPending = true;
    placementOwner = parentWindow != nullptr ? parentWindow : chosenKeyWindow;
    if (activates && CanBecomeKeyWindow()) {
        chosenKeyWindow = this;
    }
    // Shown at once it would be seen hollow until its gadgets are there, and jump as it is given
    // a menu bar.
    QMetaObject::invokeMethod(this, &QzWindow::PresentIfPending, Qt::QueuedConnection);
}

void QzWindow::PresentIfPending() {
    // Two windows may be centred over each other.
    if (showPending && !std::exchange(isPresenting, true)) {
        const QPointer<QzWindow> self = this;
        Present();
        if (self != nullptr) {
            isPresenting = false;
        }
    }
}

void QzWindow::Hide() {
    showPending = false;
    hide();
    if (chosenKeyWindow == this) {
        auto* const active = dynamic_cast<QzWindow*>(QApplication::activeWindow());
        chosenKeyWindow = active == this ? nullptr : active;
    }
}

void QzWindow::Present() {
    // A timer or binding of the program's may close or hide it meanwhile.
    if ((flags & WindowOwnerCentred) != 0 && placementOwner != nullptr) {
        placementOwner->EnsureFramed();
    }
    if (showPending && delegate != nullptr) {
        TakePlace();
    }
    const bool isStillWanted = std::exchange(showPending, false) && delegate != nullptr;
    if (!isStillWanted) {
        return;
    }
    if (windowHandle() == nullptr && !IsCompositorInCharge()) {
        unframedCorner = pos();
    }
    winId();  // makes the native window
    AttachToParent();
    // The toolkit goes by the attribute only when it makes the native window, later by the
    // property.
    const bool activates = (flags & WindowNotActivated) == 0;
    setAttribute(Qt::WA_ShowWithoutActivating, !activates);
    windowHandle()->setProperty("_q_showWithoutActivating", !activates);
    Deminiaturize();
    framePatience.setRemainingTime(FramingPatienceMs);
    if ((flags & WindowStartMiniaturized) != 0) {
        showMinimized();
        ContentPainted();  // nothing is painted that would tell
    } else if ((flags & WindowStartZoomed) != 0) {
        unzoomedSize = size();
        showMaximized();
    } else if (IsCompositorInCharge() && layout.IsScrolled()) {
        showMaximized();  // the compositor alone knows how much room there is
    } else {
        show();
    }
    // The state asked for at creation is the window's first state only.
    flags &= ~(WindowStartMiniaturized | WindowStartZoomed);
    if (chosenKeyWindow == this) {
        MakeKeyAndOrderFront();
    }
}

void QzWindow::Deminiaturize() {
    if (isMinimized()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
    }
}

void QzWindow::AttachToParent() {
    if (parentWindow != nullptr) {
        parentWindow->winId();  // makes the native window, if there is none yet
        windowHandle()->setTransientParent(parentWindow->windowHandle());
    }
}

void QzWindow::EnsureFramed() {
    PresentIfPending();
    // The window manager frames a window at its own pace; the true frame is known once the window
    // is on the screen.
    const QPointer<QzWindow> self = this;  // a timer of the program's may destroy it meanwhile
    while (self != nullptr && IsAwaited() && !framePatience.hasExpired()) {
        ProcessNativeEvents(framePatience, NativeInput::Postpone);
    }
    if (self == nullptr) {
        return;
    }
    if (AwaitsFrame(*this)) {
        RememberNoFrame();
    }
    RememberFrame(*this);
    unframedCorner.reset();
    unzoomedSize.reset();
}

bool QzWindow::IsAwaited() const {
    if (!isVisible() || isMinimized()) {
        return false;
    }
    const bool isExposed = windowHandle() != nullptr && windowHandle()->isExposed();
    // The window manager may tell how wide the frame is before it tells where it has put it.
    const QPoint corner = geometry().topLeft();
    const bool isFrameInPlace = corner != unframedCorner || FrameOf(*this).topLeft() == corner;
    return !isExposed || !isFrameInPlace || unzoomedSize == size() || AwaitsFrame(*this);
}

void QzWindow::MakeKeyAndOrderFront() {
    if (delegate == nullptr) {
        return;
    }
    raise();
    if ((chosenKeyWindow == this && isActiveWindow()) || !CanBecomeKeyWindow() ||
        (windowFlags() & Qt::WindowDoesNotAcceptFocus) != 0) {
        return;
    }
    chosenKeyWindow = this;
    activateWindow();
}

void QzWindow::Disable() {
    ClosePopupsOf(*this);
    RemoveOverlay();
    overlay = new QzDisabledView(contentView, windowFlags());
    overlay->show();
    // A bar that has the keyboard gives it back to the field that had it before.
    layout.Enable(false);
    SetTitleBarButtons(*this, {});
    focus.Suspend();  // last: a callback to this may enable the window
}

void QzWindow::Enable() {
    if (overlay == nullptr) {
        return;
    }
    RemoveOverlay();
    layout.Enable(true);
    focus.Resume();
    if (isActiveWindow() && !isKey && delegate != nullptr) {
        BecameActive();
    }
}

void QzWindow::RemoveOverlay() {
    if (overlay != nullptr) {
        SetTitleBarButtons(*this, overlay->EnabledButtons());
        overlay->hide();
        Retire(std::exchange(overlay, nullptr));  // the window may be in the middle of painting it
    }
}

void QzWindow::KeepOverlayOnTop() {
    if (overlay != nullptr) {
        overlay->raise();
    }
}

void QzWindow::FocusArrived(QWidget* widget) {
    if (contentView->isAncestorOf(widget)) {
        Reveal(*widget, widget->rect());
    }
    focus.Arrived(widget);
}

void QzWindow::Reveal(const QWidget& view, const QRect& part) {
    layout.Scroll().Reveal({view.mapTo(contentView, part.topLeft()), part.size()});
}

void QzWindow::ContentPainted() {
    if (stands) {
        return;
    }
    stands = true;
    // A compositor may have missed this painting while the window was framed, and show black.
    QTimer::singleShot(SecondPaintingMs, this, qOverload<>(&QWidget::update));
    if (delegate != nullptr) {
        delegate->WindowDidShow();
    }
    RememberFrame(*this);
    if (layout.IsTooLarge() && !isMaximized() && !isMinimized()) {
        // Its frame was not known when it was made. Not within the painting, which this is.
        QMetaObject::invokeMethod(this, &QzWindow::FitOntoScreen, Qt::QueuedConnection);
    }
}

void QzWindow::FitOntoScreen() {
    layout.SetContentSize(layout.ContentSize());
    MoveFrameOntoScreen(*this);
}

void QzWindow::resizeEvent(QResizeEvent*) {
    layout.Apply();
    if (delegate != nullptr) {
        delegate->WindowFrameDidChange();
    }
}

void QzWindow::moveEvent(QMoveEvent*) {
    if (delegate != nullptr) {
        delegate->WindowFrameDidChange();
    }
}

void QzWindow::wheelEvent(QWheelEvent* event) {
    event->ignore();
    layout.Scroll().TakeWheel(*event);
}

void QzWindow::closeEvent(QCloseEvent* event) {
    // The window manager's keys reach a window without a close box as well, or with a disabled one.
    event->setAccepted(windowFlags().testFlag(Qt::WindowCloseButtonHint) && delegate != nullptr &&
                       delegate->WindowShouldClose());
}

void QzWindow::keyPressEvent(QKeyEvent* event) {
    const bool asksToClose =
        event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close);
    if (asksToClose && parentWindow != nullptr) {
        close();
        return;
    }
    event->ignore();
    layout.Scroll().TakeKey(*event);
}

void QzWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || delegate == nullptr || !stands) {
        return;
    }
    const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
    const bool wasMiniaturized = (before & Qt::WindowMinimized) != 0;
    if (isMinimized() && !wasMiniaturized) {
        delegate->WindowDidMiniaturize();
    } else if (!isMinimized() && wasMiniaturized) {
        delegate->WindowDidDeminiaturize();
    } else {
        delegate->WindowDidZoom((before & Qt::WindowMaximized) != 0);
    }
}

bool QzWindow::event(QEvent* event) {
    if (delegate == nullptr) {
        return QWidget::event(event);
    }
    if (event->type() == QEvent::WindowActivate) {
        BecameActive();
    } else if (event->type() == QEvent::WindowDeactivate) {
        ResignKey();
    }
    return QWidget::event(event);
}

void QzWindow::ResignKey() {
    if (!std::exchange(isKey, false)) {
        return;
    }
    if (chosenKeyWindow == this) {
        chosenKeyWindow = nullptr;
    }
    if (delegate != nullptr) {
        delegate->WindowDidResignKey();
    }
}

void QzWindow::BecameActive() {
    if (!isVisible()) {
        return;  // the window manager's answer to an earlier wish; it takes the keyboard away again
    }
    if (CanBecomeKeyWindow()) {
        // The toolkit tells the window before only afterwards.
        if (lastKeyWindow != nullptr && lastKeyWindow != this) {
            lastKeyWindow->ResignKey();
        }
        if (delegate == nullptr) {
            return;
        }
        isKey = true;
        chosenKeyWindow = this;
        lastKeyWindow = this;
        delegate->WindowDidBecomeKey();
        return;
    }
    // A disabled window cannot have the keyboard: the newest window above it gets it.
    if (QzWindow* const above = KeyWindowAbove(this)) {
        above->MakeKeyAndOrderFront();
    }
}

}  // namespace rotavel
