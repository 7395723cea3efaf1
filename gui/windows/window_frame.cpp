#include "gui/windows/window_frame.h"

#include <algorithm>
#include <optional>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "gui/window.h"

namespace rotavel {

namespace {

// From the pointer to a popup that has to keep clear of it, in pixels.
constexpr int PointerDistance = 24;

// What a compositor may keep for its panels, in pixels; it does not say how much.
constexpr int PanelHeight = 48;

// Of the window framed last.
std::optional<QMargins> lastFrame;

bool IsFramed(const QWidget& window) {
    return !window.windowFlags().testFlag(Qt::FramelessWindowHint);
}

QMargins MarginsOf(const QWidget& window) {
    if (!IsFramed(window)) {
        return {};
    }
    // The widget itself learns of its frame only when it is moved next.
    return window.isVisible() ? window.windowHandle()->frameMargins()
                              : lastFrame.value_or(QMargins());
}

void CentreFrame(QWidget& window, const QRect& over) {
    const QSize frame = window.size().grownBy(MarginsOf(window));
    SetFrameCorner(window, {over.left() + (over.width() - frame.width()) / 2,
                            over.top() + (over.height() - frame.height()) / 2});
}

// As near to its place as it can be inside the room; its upper left corner counts most.
QPoint CornerInside(const QRect& frame, const QRect& room) {
    return {std::max(std::min(frame.left(), room.right() + 1 - frame.width()), room.left()),
            std::max(std::min(frame.top(), room.bottom() + 1 - frame.height()), room.top())};
}

}  // namespace

Qt::WindowFlags ToolkitFlags(std::uint32_t flags, bool hasParent) {
    if ((flags & WindowBorderless) != 0) {
        // Beside its parent a borderless window has to be popup-like: only such a surface can be
        // placed where the program wants it on every platform.
        return hasParent ? Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus
                         : Qt::Window | Qt::FramelessWindowHint;
    }
    // The toolkit tells the window manager of a window's parent for dialogs only.
    Qt::WindowFlags native = (hasParent ? Qt::Dialog : Qt::Window) | Qt::CustomizeWindowHint |
                             Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    native.setFlag(Qt::WindowCloseButtonHint,
                   (flags & (WindowCloseBox | WindowMaximizeBox | WindowMinimizeBox)) != 0);
    native.setFlag(Qt::WindowMinimizeButtonHint,
                   (flags & (WindowMinimizeBox | WindowStartMiniaturized)) != 0);
    native.setFlag(Qt::WindowMaximizeButtonHint,
                   (flags & (WindowResizable | WindowMaximizeBox | WindowStartZoomed)) != 0);
    return native;
}

void SetTitleBarButtons(QWidget& window, Qt::WindowFlags buttons) {
    if (!window.windowFlags().testFlag(Qt::WindowTitleHint)) {
        return;
    }
    // The toolkit would hide the window to change these; the window manager takes the new set from
    // the native window as it is.
    window.overrideWindowFlags((window.windowFlags() & ~TitleBarButtons) | buttons);
    if (window.windowHandle() != nullptr) {
        window.windowHandle()->setFlags(window.windowFlags());
    }
}

bool IsCompositorInCharge() {
    return QGuiApplication::platformName().startsWith("wayland");
}

void RememberFrame(const QWidget& window) {
    const QMargins margins = MarginsOf(window);
    if (window.isVisible() && !window.isMaximized() && !margins.isNull()) {
        lastFrame = margins;
    }
}

bool AwaitsFrame(const QWidget& window) {
    const bool isFrameUsual = !IsCompositorInCharge() && lastFrame != QMargins();
    return isFrameUsual && IsFramed(window) && window.isVisible() && !window.isMaximized() &&
           !window.isMinimized() && MarginsOf(window).isNull();
}

void RememberNoFrame() {
    lastFrame = QMargins();
}

QRect FrameOf(const QWidget& window) {
    return window.isVisible() ? window.geometry().marginsAdded(MarginsOf(window))
                              : QRect(window.pos(), window.size().grownBy(MarginsOf(window)));
}

QPoint InnerCornerOf(const QWidget& window) {
    const QMargins margins = MarginsOf(window);
    return FrameOf(window).topLeft() + QPoint(margins.left(), margins.top());
}

QSize RoomFor(const QWidget& window) {
    const QMargins panels(0, 0, 0, IsCompositorInCharge() ? PanelHeight : 0);
    return window.screen()->availableGeometry().size().shrunkBy(MarginsOf(window) + panels);
}

void SetFrameCorner(QWidget& window, QPoint corner) {
    if (window.windowHandle() == nullptr) {
        window.move(corner);
        return;
    }
    const QMargins margins = MarginsOf(window);
    window.setGeometry({corner + QPoint(margins.left(), margins.top()), window.size()});
}

void LeaveZoom(QWidget& window, QPoint corner) {
    const QSize zoomed = window.size();
    window.setWindowState(window.windowState() & ~Qt::WindowMaximized);
    // Its frame is still that of a zoomed one.
    const QMargins margins = lastFrame.value_or(MarginsOf(window));
    const QRect inner(corner + QPoint(margins.left(), margins.top()), zoomed);
    window.setGeometry(inner);
    // A mere move the toolkit would combine with the size that the window had before the zoom.
    if (window.windowHandle() != nullptr) {
        window.windowHandle()->setGeometry(inner);
    }
}

void CentreFrameOnScreen(QWidget& window) {
    CentreFrame(window, window.screen()->availableGeometry());
}

void CentreFrameOver(QWidget& window, const QWidget& owner) {
    RememberFrame(owner);  // it may have got its frame only after it was painted
    CentreFrame(window, FrameOf(owner));
}

bool IsFrameOnScreen(const QWidget& window) {
    return window.screen()->availableGeometry().contains(FrameOf(window));
}

void MoveFrameOntoScreen(QWidget& window) {
    SetFrameCorner(window, CornerInside(FrameOf(window), window.screen()->availableGeometry()));
}

QPoint CornerForPopup(const QWidget& popup, const QWidget& owner, QPoint corner) {
    const QRect asked(corner, popup.size());
    const QRect beside = FrameOf(owner);
    QRect room = owner.screen()->availableGeometry();
    bool fits = false;
    if (IsCompositorInCharge()) {
        room.moveTo(beside.topLeft());  // as far left as the owner can be, for all that is known
        fits = room.contains(asked);
    } else {
        const auto screens = QGuiApplication::screens();
        fits = std::any_of(screens.begin(), screens.end(), [&asked](const QScreen* screen) {
            return screen->availableGeometry().contains(asked);
        });
    }
    if (fits) {
        return corner;
    }
    QPoint near = CornerInside(asked, room);
    if (near.x() <= beside.right()) {
        // The buttons of the owner's title bar stay free.
        near.setY(std::max(near.y(), InnerCornerOf(owner).y()));
    }
    const QPoint pointer = QCursor::pos();
    const QRect pointed =
        QRect(pointer, pointer)
            .adjusted(-PointerDistance, -PointerDistance, PointerDistance, PointerDistance);
    const QPoint corners[] = {near,
                              {beside.left() - asked.width(), near.y()},
                              {near.x(), beside.bottom() + 1 - asked.height()},
                              {near.x(), room.bottom() + 1 - asked.height()},
                              {room.left(), near.y()}};
    const auto found = std::find_if(std::begin(corners), std::end(corners), [&](QPoint each) {
        const QRect place(each, asked.size());
        return room.contains(place) && !place.intersects(pointed);
    });
    return found == std::end(corners) ? near : *found;
}

}  // namespace rotavel
