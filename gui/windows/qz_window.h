#pragma once

#include <cstdint>

#include <QPointer>
#include <QWidget>

#include "gui/windows/first_responder.h"
#include "gui/windows/geometry_reports.h"
#include "gui/windows/window_layout.h"

namespace rotavel {

class QzDisabledView;
class QzFlippedWindowView;
class QzWindowEvents;

// A native top-level window: the menu bar on top and, below it, the content view at exactly the
// size asked for. Reports to its delegate; knows nothing of numbers or queues.
class QzWindow final : public QWidget {
  public:
    // `flags` are those of WindowCreate; `parent` may be null.
    QzWindow(std::uint32_t flags, QzWindow* parent, QSize contentSize);
    ~QzWindow() override;

    // The window that a widget lies in, or null.
    static QzWindow* Of(const QWidget* widget);
    // The window that has the keyboard or has just been given it, or null; and the last that had.
    static QzWindow* KeyWindow();
    static QzWindow* LastKeyWindow();

    void SetDelegate(QzWindowEvents* newDelegate) { delegate = newDelegate; }
    QzWindowEvents* Delegate() const { return delegate; }
    QzFlippedWindowView* ContentView() const { return contentView; }
    WindowLayout& Layout() { return layout; }

    QzWindow* ParentWindow() const { return parentWindow; }
    bool IsBorderless() const { return borderless; }
    bool IsResizable() const { return resizable; }
    // On the screen, or about to be.
    bool IsShown() const { return presentPending || isVisible(); }

    QSize ContentSize() const { return layout.ContentSize(); }
    // Puts a window that is to be shown on the screen and waits until its frame is the true one.
    void EnsureFramed();
    // A window that is to be centred when it appears is so now, and not again.
    void FixPlace();
    // To be told of the bounds that the program has given the window.
    GeometryReports& Reports() { return reports; }

    // Centres the window if its flags ask for that. Where it then is, it is to be shown.
    void Place();
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
    void FocusVanished();
    // Makes a widget of the content, or none, the one that keys go to, also while the window does
    // not have the keyboard.
    void MakeFirstResponder(QWidget* view);

    // The content view was painted: the frame stands.
    void ContentPainted();

  protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Present();
    void RemoveOverlay();
    void BecameActive();
    void ResignKey();
    void AttachToParent();

    const bool borderless;
    const bool resizable;
    std::uint32_t flags;  // what the next presentation goes by
    QPointer<QzWindow> parentWindow;
    QPointer<QzWindow> placementOwner;  // the window to centre over
    QzWindowEvents* delegate = nullptr;
    QzFlippedWindowView* const contentView;
    WindowLayout layout;
    QzDisabledView* overlay = nullptr;
    FirstResponder firstResponder;
    QPointer<QWidget> responderBeforeDisabling;

    GeometryReports reports{*this};
    bool presentPending = false;
    bool framed = false;
    bool isKey = false;
};

}  // namespace rotavel
