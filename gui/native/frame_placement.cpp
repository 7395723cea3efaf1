#include "gui/native/frame_placement.h"

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

void CentreFrame(QWidget& window, QPoint centre, const QScreen& screen) {
    QRect frame({}, window.size().grownBy(MarginsFor(window)));
    frame.moveCenter(centre);
    const QPoint corner = screen.availableGeometry().topLeft();
    SetFramePosition(window,
                     {std::max(frame.left(), corner.x()), std::max(frame.top(), corner.y())});
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
    CentreFrame(window, window.screen()->availableGeometry().center(), *window.screen());
}

void CentreFrameOver(QWidget& window, const QWidget& owner) {
    CentreFrame(window, owner.frameGeometry().center(), *owner.screen());
}

}  // namespace rotavel
