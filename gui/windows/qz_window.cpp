#include "gui/windows/qz_window.h"

#include <algorithm>

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QWindow>

#include "gui/toolkit/native_events.h"
#include "gui/window.h"
#include "gui/windows/frame_placement.h"
#include "gui/windows/key_views.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window_events.h"
#include "gui/windows/status_bars.h"
#include "gui/windows/toolkit_flags.h"
#include "gui/windows/window_list.h"

namespace rotavel {

namespace {

// How long a window manager may take to frame a window before its frame is taken as it is.
constexpr int FramingPatienceMs = 1000;

QPointer<QzWindow> keyWindow;
QPointer<QzWindow> lastKeyWindow;  // also while another program has the keyboard

}  // namespace

QzWindow::QzWindow(std::uint32_t creationFlags, QzWindow* parent, QSize contentSize)
    : borderless((creationFlags & WindowBorderless) != 0),
      resizable(!borderless &&
                (creationFlags & (WindowResizable | WindowMaximizeBox | WindowStartZoomed)) != 0),
      flags(creationFlags),
      parentWindow(parent),
      placementOwner(parent != nullptr ? parent : keyWindow.data()),
      contentView(new QzFlippedWindowView(this)),
      layout(*this, *contentView, resizable) {
    setWindowFlags(ToolkitFlags(flags, parent != nullptr));
    setFocusPolicy(Qt::NoFocus);
    layout.SetContentSize(contentSize);
    EnterWindow(this);
}

QzWindow::~QzWindow() {
    LeaveWindow(this);
}

QzWindow* QzWindow::Of(const QWidget* widget) {
    return dynamic_cast<QzWindow*>(widget->window());
}

QzWindow* QzWindow::KeyWindow() {
    return keyWindow;
}

QzWindow* QzWindow::LastKeyWindow() {
    return lastKeyWindow;
}

void QzWindow::FixPlace() {
    if (presentPending) {
        Place();
    }
    flags &= ~(WindowScreenCentred | WindowOwnerCentred);
}

void QzWindow::Show(std::uint32_t showFlags) {
    constexpr std::uint32_t placement = WindowScreenCentred | WindowOwnerCentred;
    const bool isPopup = windowType() == Qt::ToolTip;
    if (!presentPending) {
        flags &= ~placement;
    }
    flags = (flags & ~WindowNotActivated) | (showFlags & (placement | WindowNotActivated));
    const bool activates =
        (flags & (WindowNotActivated | WindowStartMiniaturized)) == 0 && !isPopup;
    if (isVisible() && (flags & placement) == 0) {
        Deminiaturize();
        if (activates) {
            MakeKeyAndOrderFront();
        } else if (!isPopup) {
            raise();
        }
        return;
    }
    presentPending = true;
    framed = false;
    placementOwner = parentWindow != nullptr ? parentWindow : keyWindow;
    if (activates && CanBecomeKeyWindow()) {
        keyWindow = this;
    }
}

void QzWindow::PresentIfPending() {
    if (presentPending) {
        Present();
    }
}

void QzWindow::Hide() {
    presentPending = false;
    hide();
    if (keyWindow == this) {
        auto* const active = dynamic_cast<QzWindow*>(QApplication::activeWindow());
        keyWindow = active == this ? nullptr : active;
    }
}

void QzWindow::Present() {
    presentPending = false;
    if ((flags & WindowOwnerCentred) != 0 && placementOwner != nullptr) {
        placementOwner->EnsureFramed();
    }
    // A timer or binding of the program's may close it meanwhile.
    if (delegate != nullptr) {
        Place();
    }
    if (delegate == nullptr) {
        return;
    }
    AttachToParent();
    setAttribute(Qt::WA_ShowWithoutActivating, (flags & WindowNotActivated) != 0);
    Deminiaturize();
    if ((flags & WindowStartMiniaturized) != 0) {
        showMinimized();
        reports.Settle();  // nothing is painted that would tell
    } else if ((flags & WindowStartZoomed) != 0) {
        showMaximized();
    } else {
        show();
    }
    // The state asked for at creation is the window's first state only.
    flags &= ~(WindowStartMiniaturized | WindowStartZoomed);
    if (keyWindow == this) {
        MakeKeyAndOrderFront();
    }
}

void QzWindow::Deminiaturize() {
    if (isMinimized()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
    }
}

void QzWindow::Place() {
    if ((flags & WindowScreenCentred) != 0) {
        CentreFrameOnScreen(*this);
    } else if ((flags & WindowOwnerCentred) != 0 && placementOwner != nullptr &&
               placementOwner != this) {
        CentreFrameOver(*this, *placementOwner);
    }
    reports.Begin();
}

void QzWindow::AttachToParent() {
    if (parentWindow == nullptr) {
        return;
    }
    parentWindow->winId();  // makes the native windows that are to be tied together
    winId();
    windowHandle()->setTransientParent(parentWindow->windowHandle());
}

void QzWindow::EnsureFramed() {
    PresentIfPending();
    if (framed || !isVisible()) {
        return;
    }
    // The window manager frames a window at its own pace; the true frame is known once the window
    // is on the screen.
    const QDeadlineTimer patience(FramingPatienceMs);
    const QPointer<QzWindow> self = this;  // a timer of the program's may destroy it meanwhile
    while (self != nullptr && windowHandle() != nullptr && !windowHandle()->isExposed() &&
           !isMinimized() && !patience.hasExpired()) {
        ProcessNativeEvents(patience, NativeInput::Postpone);
    }
    if (self != nullptr) {
        framed = true;
    }
}

void QzWindow::MakeKeyAndOrderFront() {
    if (keyWindow == this && isActiveWindow()) {
        return;
    }
    raise();
    if (!CanBecomeKeyWindow() || (windowFlags() & Qt::WindowDoesNotAcceptFocus) != 0) {
        return;
    }
    keyWindow = this;
    activateWindow();
}

void QzWindow::Disable() {
    if (overlay == nullptr) {
        responderBeforeDisabling = firstResponder.View();
    }
    RemoveOverlay();
    overlay = new QzDisabledView(contentView, windowFlags());
    overlay->show();
    MakeFirstResponder(nullptr);
    layout.EnableMenuBar(false);
    SetTitleBarButtons(*this, {});
}

void QzWindow::Enable() {
    if (overlay == nullptr) {
        return;
    }
    RemoveOverlay();
    layout.EnableMenuBar(true);
    if (responderBeforeDisabling != nullptr) {
        MakeFirstResponder(responderBeforeDisabling);
    }
    if (isActiveWindow() && !isKey && delegate != nullptr) {
        BecameActive();
    }
}

void QzWindow::RemoveOverlay() {
    if (overlay != nullptr) {
        SetTitleBarButtons(*this, overlay->EnabledButtons());
        delete std::exchange(overlay, nullptr);
    }
}

void QzWindow::KeepOverlayOnTop() {
    if (overlay != nullptr) {
        overlay->raise();
    }
}

void QzWindow::FocusArrived(QWidget* widget) {
    if (contentView->isAncestorOf(widget)) {
        firstResponder.Pass(widget);
    }
}

void QzWindow::FocusVanished() {
    if (!IsDisabled()) {
        firstResponder.Pass(nullptr);
    }
}

void QzWindow::MakeFirstResponder(QWidget* view) {
    if (view != nullptr && !(view->isEnabled() && view->isVisibleTo(this))) {
        return;
    }
    if (view != nullptr) {
        view->setFocus(Qt::OtherFocusReason);
    } else {
        setFocus();  // keys go to the window itself; without a focus the toolkit would choose a
                     // field
    }
    firstResponder.Pass(view);
}

bool QzWindow::focusNextPrevChild(bool next) {
    QWidget* const view = IsDisabled() ? nullptr : NextKeyView(*contentView, focusWidget(), next);
    if (view == nullptr) {
        return false;
    }
    view->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void QzWindow::ContentPainted() {
    if (reports.IsSettled()) {
        return;
    }
    reports.Settle();
    framed = true;
    AdjustStatusBarsOf(this);
    RememberFrameMargins(*this);
}

void QzWindow::resizeEvent(QResizeEvent*) {
    layout.Apply();
    reports.ReportLater();
}

void QzWindow::moveEvent(QMoveEvent*) {
    reports.ReportLater();
}

void QzWindow::closeEvent(QCloseEvent* event) {
    const bool closes = delegate != nullptr && !IsDisabled() && delegate->WindowShouldClose();
    event->setAccepted(closes);
}

void QzWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || delegate == nullptr || !reports.IsSettled()) {
        return;
    }
    const auto before = static_cast<QWindowStateChangeEvent*>(event)->oldState();
    const bool wasMiniaturized = (before & Qt::WindowMinimized) != 0;
    if (isMinimized() && !wasMiniaturized) {
        delegate->WindowDidMiniaturize();
    } else if (!isMinimized() && wasMiniaturized) {
        delegate->WindowDidDeminiaturize();
    } else {
        reports.ReportLater();
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
    if (keyWindow == this) {
        keyWindow = nullptr;
    }
    if (delegate != nullptr) {
        delegate->WindowDidResignKey();
    }
}

void QzWindow::BecameActive() {
    if (CanBecomeKeyWindow()) {
        // The toolkit tells the window before only afterwards.
        if (lastKeyWindow != nullptr && lastKeyWindow != this) {
            lastKeyWindow->ResignKey();
        }
        if (delegate == nullptr) {
            return;
        }
        isKey = true;
        keyWindow = this;
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
