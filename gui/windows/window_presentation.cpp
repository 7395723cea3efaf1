#include "gui/windows/window_presentation.h"

#include <utility>

#include <QScreen>
#include <QTimer>
#include <QWindow>

#include "gui/toolkit/native_events.h"
#include "gui/window.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/qz_window_events.h"
#include "gui/windows/window_frame.h"

namespace rotavel {

namespace {

// How long a window manager may take to frame a window before its frame is taken as it is.
constexpr int PatienceMs = 1000;
constexpr int SecondPaintingMs = 500;

constexpr std::uint32_t CentringFlags = WindowScreenCentred | WindowOwnerCentred;

QzWindow* OwnerOf(const QzWindow& window) {
    return window.ParentWindow() != nullptr ? window.ParentWindow() : QzWindow::ChosenKeyWindow();
}

}  // namespace

WindowPresentation::WindowPresentation(QzWindow& presentedWindow, std::uint32_t creationFlags)
    : window(presentedWindow), flags(creationFlags), over(OwnerOf(presentedWindow)) {}

bool WindowPresentation::IsVisibleOrPending() const {
    return isPending || window.isVisible();
}

void WindowPresentation::SetCorner(QPoint corner) {
    if (window.IsPopup() && window.ParentWindow() != nullptr) {
        popupCorner = corner;
        corner = CornerForPopup(window, *window.ParentWindow(), popupCorner);
    }
    SetFrameCorner(window, corner);
}

void WindowPresentation::SetContentSize(QSize size) {
    const bool staysOnScreen = !window.isVisible() && !window.IsPopup() && IsFrameOnScreen(window);
    window.Layout().SetContentSize(size);
    if (staysOnScreen || window.Layout().IsScrolled()) {
        MoveFrameOntoScreen(window);
    }
}

QSize WindowPresentation::ZoomedContentSize() {
    const QPointer<QzWindow> self = &window;
    const bool startsZoomed = isPending && (flags & WindowStartZoomed) != 0;
    if (startsZoomed || unzoomedSize == window.size()) {
        EnsureFramed();
    }
    return self == nullptr ? QSize(0, 0) : window.Layout().ContentSize();
}

void WindowPresentation::TakePlace() {
    const bool isCentred = (flags & CentringFlags) != 0;
    if (window.IsPopup() && !isCentred) {
        SetCorner(popupCorner);
    } else if ((flags & WindowScreenCentred) != 0) {
        CentreFrameOnScreen(window);
    } else if (isCentred && over != nullptr && over != &window) {
        CentreFrameOver(window, *over);
    }
    if (isCentred) {
        popupCorner = FrameOf(window).topLeft();
    }
    if (window.Layout().IsScrolled()) {
        MoveFrameOntoScreen(window);
    }
    if (QzWindowEvents* const delegate = window.Delegate()) {
        delegate->WindowWillShow();
    }
    stands = stands && window.isVisible();
}

void WindowPresentation::KeepPlace() {
    if (isPending) {
        TakePlace();
    }
    flags &= ~CentringFlags;
}

void WindowPresentation::Show(std::uint32_t showFlags) {
    constexpr std::uint32_t taken = CentringFlags | WindowNotActivated;
    if (!isPending) {
        flags &= ~CentringFlags;
    }
    flags = (flags & ~WindowNotActivated) | (showFlags & taken);
    const bool activates =
        (flags & (WindowNotActivated | WindowStartMiniaturized)) == 0 && !window.IsPopup();
    if (window.isVisible() && (flags & CentringFlags) == 0) {
        window.Deminiaturize();
        if (activates) {
            window.MakeKeyAndOrderFront();
        } else if (window.IsPopup()) {
            SetCorner(popupCorner);  // the pointer may have come to where it stands
        } else {
            window.raise();
        }
        return;
    }
    isPending = true;
    over = OwnerOf(window);
    if (activates) {
        window.ExpectKeyboard();
    }
    // Shown at once it would be seen hollow until its gadgets are there, and jump as it is given
    // a menu bar.
    QMetaObject::invokeMethod(
        &window, [this] { PresentIfPending(); }, Qt::QueuedConnection);
}

void WindowPresentation::Hide() {
    isPending = false;
    window.hide();
    window.GiveUpKeyboard();
}

void WindowPresentation::PresentIfPending() {
    // Two windows may be centred over each other.
    if (isPending && !std::exchange(isUnderWay, true)) {
        const QPointer<QzWindow> self = &window;
        Present();
        if (self != nullptr) {
            isUnderWay = false;
        }
    }
}

void WindowPresentation::Present() {
    // A timer or binding of the program's may close or hide it meanwhile.
    if ((flags & WindowOwnerCentred) != 0 && over != nullptr) {
        over->Presentation().EnsureFramed();
    }
    if (isPending && window.Delegate() != nullptr) {
        TakePlace();
    }
    const bool isStillWanted = std::exchange(isPending, false) && window.Delegate() != nullptr;
    if (!isStillWanted) {
        return;
    }
    MakeNativeWindow();
    if (QzWindow* const parent = window.ParentWindow()) {
        parent->Presentation().MakeNativeWindow();
        window.windowHandle()->setTransientParent(parent->windowHandle());
    }
    // The toolkit goes by the attribute only when it makes the native window, later by the
    // property.
    const bool activates = (flags & WindowNotActivated) == 0;
    window.setAttribute(Qt::WA_ShowWithoutActivating, !activates);
    window.windowHandle()->setProperty("_q_showWithoutActivating", !activates);
    window.Deminiaturize();
    patience.setRemainingTime(PatienceMs);
    if ((flags & WindowStartMiniaturized) != 0) {
        window.showMinimized();
        ContentPainted();  // nothing is painted that would tell
    } else if ((flags & WindowStartZoomed) != 0) {
        unzoomedSize = window.size();
        window.showMaximized();
    } else if (IsCompositorInCharge() && window.Layout().IsScrolled()) {
        window.showMaximized();  // the compositor alone knows how much room there is
    } else {
        window.show();
    }
    // The state asked for at creation is the window's first state only.
    flags &= ~(WindowStartMiniaturized | WindowStartZoomed);
    if (QzWindow::ChosenKeyWindow() == &window) {
        window.MakeKeyAndOrderFront();
    }
}

void WindowPresentation::MakeNativeWindow() {
    if (window.windowHandle() != nullptr) {
        return;
    }
    if (!IsCompositorInCharge()) {
        unframedCorner = window.pos();
    }
    window.winId();  // makes it
    QObject::connect(window.windowHandle(), &QWindow::screenChanged, &window, [this] {
        FollowScreen();
        FitOntoScreen();
    });
    FollowScreen();
    room = window.screen()->availableGeometry();
}

void WindowPresentation::EnsureFramed() {
    const QPointer<QzWindow> self = &window;  // a timer of the program's may destroy it meanwhile
    PresentIfPending();
    while (self != nullptr && IsAwaited() && !patience.hasExpired()) {
        ProcessNativeEvents(patience, NativeInput::Postpone);
    }
    if (self == nullptr) {
        return;
    }
    if (AwaitsFrame(window)) {
        RememberNoFrame();
    }
    RememberFrame(window);
    unframedCorner.reset();
    unzoomedSize.reset();
}

bool WindowPresentation::IsAwaited() const {
    if (!window.isVisible() || window.isMinimized()) {
        return false;
    }
    const bool isExposed = window.windowHandle() != nullptr && window.windowHandle()->isExposed();
    // The window manager may tell how wide the frame is before it tells where it has put it.
    const QPoint corner = window.geometry().topLeft();
    const bool isFrameInPlace = corner != unframedCorner || FrameOf(window).topLeft() == corner;
    return !isExposed || !isFrameInPlace || unzoomedSize == window.size() || AwaitsFrame(window);
}

void WindowPresentation::ContentPainted() {
    if (stands) {
        return;
    }
    stands = true;
    // A compositor may have missed this painting while the window was framed, and show black.
    QTimer::singleShot(SecondPaintingMs, &window, qOverload<>(&QWidget::update));
    if (QzWindowEvents* const delegate = window.Delegate()) {
        delegate->WindowDidShow();
    }
    RememberFrame(window);
    if (window.Layout().IsTooLarge()) {
        // Its frame was not known when it was made. Not within the painting, which this is.
        QMetaObject::invokeMethod(
            &window, [this] { FitOntoScreen(); }, Qt::QueuedConnection);
    }
}

void WindowPresentation::FollowScreen() {
    QObject::disconnect(roomChanges);
    roomChanges = QObject::connect(window.screen(), &QScreen::availableGeometryChanged, &window,
                                   [this] { FitOntoScreen(); });
}

void WindowPresentation::FitOntoScreen() {
    const QRect former = std::exchange(room, window.screen()->availableGeometry());
    if (window.IsPopup()) {
        SetCorner(popupCorner);
    } else if (!window.isMaximized() && !window.isFullScreen()) {
        const QRect before = FrameOf(window);
        const bool wasWhole = former.contains(before);
        window.Layout().SetContentSize(window.Layout().ContentSize());
        const bool isResized = FrameOf(window).size() != before.size();
        // Where the rider has pushed it beyond an edge it stays as long as some of it is seen.
        if (wasWhole || isResized || !room.intersects(before)) {
            MoveFrameOntoScreen(window);
        }
        if (isResized && FrameOf(window).topLeft() == before.topLeft() && window.isVisible() &&
            window.Delegate() != nullptr) {
            // The content is no other, but what stands beside the window has to follow.
            window.Delegate()->WindowDidMove();
        }
    }
}

}  // namespace rotavel
