#pragma once

#include <cstdint>
#include <optional>

#include <QDeadlineTimer>
#include <QPointer>
#include <QWidget>

#include "gui/windows/window_focus.h"
#include "gui/windows/window_layout.h"

namespace rotavel {

class QzDisabledView;
class QzFlippedWindowView;
class QzWindowEvents;

// A native top-level window: the menu bar on top and, below it, the content view at exactly the
// size asked for. Reports to its delegate, which makes events of it.
class QzWindow final : public QWidget {
  public:
    // `flags` are those of WindowCreate; `parent` may be null.
    QzWindow(std::uint32_t flags, QzWindow* parent, QSize contentSize);
    ~QzWindow() override;

    // The window that a widget lies in, or null.
    static QzWindow* Of(const QWidget* widget);
    // The open window that lies in a native window, or null.
    static QzWindow* In(const QObject* nativeWindow);
    // The window that the keyboard was given to: it has it, or gets it as soon as the windowing
    // system agrees. Null when another program has it.
    static QzWindow* ChosenKeyWindow();
    // The last window that had the keyboard, or null.
    static QzWindow* LastKeyWindow();

    // Null once the window is closed.
    void SetDelegate(QzWindowEvents* newDelegate) { delegate = newDelegate; }
    QzWindowEvents* Delegate() const { return delegate; }
    QzFlippedWindowView* ContentView() const { return contentView; }
    WindowLayout& Layout() { return layout; }

    QzWindow* ParentWindow() const { return parentWindow; }
    bool IsBorderless() const { return windowFlags().testFlag(Qt::FramelessWindowHint); }
    // A borderless window beside its parent.
    bool IsPopup() const { return windowType() == Qt::ToolTip; }
    bool IsResizable() const { return layout.IsResizable(); }
    bool IsVisibleOrPending() const { return showPending || isVisible(); }
    // On the screen and painted.
    bool Stands() const { return stands; }

    // Puts a window that is to be shown on the screen and waits until its frame is the true one.
    void EnsureFramed();

    QSize ContentSize() const { return layout.ContentSize(); }
    // Also waits until a window that starts zoomed is.
    QSize ZoomedContentSize();
    // Gives the content a size; a window that was on the screen as a whole stays so until it is
    // shown first.
    void SetContentSize(QSize size);
    // Moves the frame; a popup without room there stands where there is some.
    void SetCorner(QPoint corner);
    // Ends a zoom with the frame at `corner` and the size as it is.
    void LeaveZoom(QPoint corner);

    // Centres the window if its flags ask for that. Where it is then, it is to be shown.
    void TakePlace();
    // The same for the last time: where it is then, it stays.
    void KeepPlace();
    // Shows the window when the program next waits. Flags as for WindowShow.
    void Show(std::uint32_t flags);
    void PresentIfPending();
    void Hide();
    void Deminiaturize();
    // Brings the window to the front and gives it the keyboard, unless it is disabled.
    void MakeKeyAndOrderFront();

    // The overlay swallows clicks; without an overlay the window can have the keyboard.
    void Disable();
    void Enable();
    bool IsDisabled() const { return overlay != nullptr; }
    void KeepOverlayOnTop();
    bool CanBecomeKeyWindow() const { return overlay == nullptr; }

    // The toolkit's focus is on a widget of this window now, or on none of it any more.
    void FocusArrived(QWidget* widget);
    void FocusVanished() { focus.Vanished(); }
    // Scrolls a part of a view of the content into sight.
    void Reveal(const QWidget& view, const QRect& part);
    // Makes a widget of the content, or none, the one that keys go to, also while the window does
    // not have the keyboard.
    void MakeFirstResponder(QWidget* view) { focus.Make(view); }

    // The content view was painted: the window stands.
    void ContentPainted();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override { return focus.Advance(next); }
    // Escape and the desktop's key for closing ask a window above another to close; others scroll.
    void keyPressEvent(QKeyEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void Present();
    void AttachToParent();
    bool IsAwaited() const;
    void FitOntoScreen();
    void RemoveOverlay();
    void BecameActive();
    void ResignKey();

    std::uint32_t flags;  // what the next presentation goes by
    QPointer<QzWindow> parentWindow;
    QPointer<QzWindow> placementOwner;  // the window to centre over
    QzWindowEvents* delegate = nullptr;
    QzFlippedWindowView* const contentView;
    WindowLayout layout;
    WindowFocus focus;
    QzDisabledView* overlay = nullptr;

    QPoint popupCorner;  // where the program wants a popup
    bool showPending = false;
    bool isPresenting = false;
    bool stands = false;
    QDeadlineTimer framePatience;
    // Of the window until its frame has moved it, and until it is zoomed.
    std::optional<QPoint> unframedCorner;
    std::optional<QSize> unzoomedSize;
    bool isKey = false;
};

}  // namespace rotavel
