#include "gui/windows/frame_placement.h"

#include <algorithm>

#include <QScreen>
#include <QWidget>

namespace rotavel {

namespace {

QMargins frameMargins;

bool IsFramed(const QWidget& window) {
    return window.windowType() == Qt::Window &&
           !window.windowFlags().testFlag(Qt::FramelessWindowHint);
}

QMargins MarginsFor(const QWidget& window) {
    return IsFramed(window) ? frameMargins : QMargins();
}

void CentreFrame(QWidget& window, const QRect& over, const QScreen& screen) {
    const QSize frame = window.size().grownBy(MarginsFor(window));
    const QRect room = screen.availableGeometry();
    QPoint corner(over.left() + (over.width() - frame.width()) / 2,
                  over.top() + (over.height() - frame.height()) / 2);
    if (frame.width() > room.width()) {
        corner.setX(std::max(corner.x(), room.left()));
    }
    if (frame.height() > room.height()) {
        corner.setY(std::max(corner.y(), room.top()));
    }
    SetFramePosition(window, corner);
}

}  // namespace

void RememberFrameMargins(const QWidget& window) {
    if (!IsFramed(window)) {
        return;
    }
    const QRect frame = window.frameGeometry();
    const QRect inner = window.geometry();
    frameMargins = QMargins(inner.left() - frame.left(), inner.top() - frame.top(),
                            frame.right() - inner.right(), frame.bottom() - inner.bottom());
}

QRect FrameOf(const QWidget& window) {
    return window.isVisible() ? window.frameGeometry()
                              : QRect(window.pos(), window.size().grownBy(MarginsFor(window)));
}

QPoint InnerCornerOf(const QWidget& window) {
    const QMargins margins = MarginsFor(window);
    return window.isVisible() ? window.geometry().topLeft()
                              : window.pos() + QPoint(margins.left(), margins.top());
}

void SetFramePosition(QWidget& window, QPoint position) {
    if (window.windowHandle() == nullptr || window.isVisible()) {
        window.move(position);
        return;
    }
    // The toolkit takes the position of a window that was on the screen and is hidden now for that
    // of its inside.
    const QMargins margins = MarginsFor(window);
    window.setGeometry({position + QPoint(margins.left(), margins.top()), window.size()});
}

void CentreFrameOnScreen(QWidget& window) {
    CentreFrame(window, window.screen()->availableGeometry(), *window.screen());
}

void CentreFrameOver(QWidget& window, const QWidget& owner) {
    CentreFrame(window, FrameOf(owner), *owner.screen());
}

}  // namespace rotavel
