#include "gui/windows/qz_views.h"

#include <utility>

#include <QMouseEvent>

#include "gui/events/event_posting.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

// Larger than any screen, so that it need not follow a window that grows.
constexpr QSize DisabledViewSize(4096, 4096);

}  // namespace

void QzFlippedWindowView::childEvent(QChildEvent* event) {
    if (event->added()) {
        QzWindow::Of(this)->KeepOverlayOnTop();
    }
}

void QzFlippedWindowView::mousePressEvent(QMouseEvent* event) {
    clicks.Press(*event);
}

void QzFlippedWindowView::mouseReleaseEvent(QMouseEvent* event) {
    const int count = clicks.Of(event->button());
    if (event->button() == Qt::LeftButton && count <= 2) {
        Post(count == 1 ? LeftClick : LeftDoubleClick);
    } else if (event->button() == Qt::RightButton && count == 1) {
        Post(RightClick);
    }
}

void QzFlippedWindowView::paintEvent(QPaintEvent*) {
    QzWindow::Of(this)->Presentation().ContentPainted();
    // Once the painting is done: a callback to this may change what is being painted.
    if (!std::exchange(tellsPainting, true)) {
        QMetaObject::invokeMethod(
            this,
            [this] {
                tellsPainting = false;
                Post(Repaint);
            },
            Qt::QueuedConnection);
    }
}

void QzFlippedWindowView::Post(std::uint32_t kind) const {
    // Of a window that is gone the number may be another's by now.
    if (WindowNumberOf(this) == WindowID) {
        QueueEvent(kind, WindowID, WindowID, 0);
    }
}

QzDisabledView::QzDisabledView(QWidget* contentView, Qt::WindowFlags windowFlags)
    : QWidget(contentView),
      CloseButtonEnabled((windowFlags & Qt::WindowCloseButtonHint) != 0),
      MinimizeButtonEnabled((windowFlags & Qt::WindowMinimizeButtonHint) != 0),
      MaximizeButtonEnabled((windowFlags & Qt::WindowMaximizeButtonHint) != 0) {
    resize(DisabledViewSize.expandedTo(contentView->size()));
    setContextMenuPolicy(Qt::PreventContextMenu);
}

Qt::WindowFlags QzDisabledView::EnabledButtons() const {
    Qt::WindowFlags buttons;
    buttons.setFlag(Qt::WindowCloseButtonHint, CloseButtonEnabled);
    buttons.setFlag(Qt::WindowMinimizeButtonHint, MinimizeButtonEnabled);
    buttons.setFlag(Qt::WindowMaximizeButtonHint, MaximizeButtonEnabled);
    return buttons;
}

bool QzDisabledView::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
            event->accept();
            return true;
        default:
            return QWidget::event(event);
    }
}

}  // namespace rotavel
