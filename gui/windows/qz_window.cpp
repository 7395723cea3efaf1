#include "gui/windows/qz_window.h"

#include <utility>

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QWindow>

#include "gui/toolkit/accessible_role.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/windows/popups.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window_events.h"
#include "gui/windows/window_frame.h"
#include "gui/windows/window_list.h"

namespace rotavel {

namespace {

QPointer<QzWindow> chosenKeyWindow;
QPointer<QzWindow> lastKeyWindow;  // also while another program has the keyboard

}  // namespace

QzWindow::QzWindow(std::uint32_t flags, QzWindow* parent, QSize contentSize)
    : QWidget(nullptr, ToolkitFlags(flags, parent != nullptr)),
      parentWindow(parent),
      contentView(new QzFlippedWindowView(this)),
      layout(*this, *contentView, windowFlags().testFlag(Qt::WindowMaximizeButtonHint)),
      presentation(*this, flags),
      focus(*this, *contentView) {
    SetAccessibleRole(*this, QAccessible::Window);
    // A window that is not on a screen yet counts as on the one that its place is on.
    const QScreen* const screen =
        parent != nullptr ? parent->screen() : QGuiApplication::primaryScreen();
    move(screen->availableGeometry().topLeft());
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

void QzWindow::ExpectKeyboard() {
    if (CanBecomeKeyWindow()) {
        chosenKeyWindow = this;
    }
}

void QzWindow::GiveUpKeyboard() {
    if (chosenKeyWindow == this) {
        auto* const active = dynamic_cast<QzWindow*>(QApplication::activeWindow());
        chosenKeyWindow = active == this ? nullptr : active;
    }
}

void QzWindow::Deminiaturize() {
    if (isMinimized()) {
        setWindowState(windowState() & ~Qt::WindowMinimized);
    }
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
    if (event->type() != QEvent::WindowStateChange || delegate == nullptr ||
        !presentation.Stands()) {
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
