#pragma once

#include <cstdint>

#include <QPointer>
#include <QWidget>

#include "gui/windows/window_focus.h"
#include "gui/windows/window_layout.h"
#include "gui/windows/window_presentation.h"

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
    WindowPresentation& Presentation() { return presentation; }

    QzWindow* ParentWindow() const { return parentWindow; }
    bool IsBorderless() const { return windowFlags().testFlag(Qt::FramelessWindowHint); }
    // A borderless window beside its parent.
    bool IsPopup() const { return windowType() == Qt::ToolTip; }
    void Deminiaturize();
    // The window is to have the keyboard once it is shown, or not any more.
    void ExpectKeyboard();
    void GiveUpKeyboard();
    // Brings the window to the front and gives it the keyboard, unless it is disabled.
    void MakeKeyAndOrderFront();

    // The overlay swallows clicks; without an overlay the window can have the keyboard.
    void Disable();
    void Enable();
    bool IsDisabled() const { return overlay != nullptr; }
    void KeepOverlayOnTop();
    bool CanBecomeKeyWindow() const { return overlay == nullptr; }

    // The toolkit's focus has come to a widget of this window.
    void FocusArrived(QWidget* widget);
    // Scrolls a part of a view of the content into sight.
    void Reveal(const QWidget& view, const QRect& part);
    // Makes a widget of the content, or none, the one that keys go to, also while the window does
    // not have the keyboard.
    void MakeFirstResponder(QWidget* view) { focus.Make(view); }

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
    void RemoveOverlay();
    void BecameActive();
    void ResignKey();

    QPointer<QzWindow> parentWindow;
    QzWindowEvents* delegate = nullptr;
    QzFlippedWindowView* const contentView;
    WindowLayout layout;
    WindowPresentation presentation;
    WindowFocus focus;
    QzDisabledView* overlay = nullptr;
    bool isKey = false;
};

}  // namespace rotavel
