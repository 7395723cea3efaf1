#pragma once

#include <QPointer>
#include <QWidget>

namespace rotavel {

// A native view that wants to know when it becomes, and stops being, the widget of its window that
// keys go to. Moves that belong to the window (it lost the keyboard, a menu opened) do not count.
class FirstResponderView {
  public:
    virtual ~FirstResponderView() = default;
    virtual void BecomeFirstResponder() = 0;
    virtual void TextDidEndEditing() = 0;
};

// Where the keys of one window go: to a widget of its content or to none, also while the window
// itself has no keyboard. Tells the views that the focus passes between.
class WindowFocus {
  public:
    WindowFocus(QWidget& focusedWindow, QWidget& content) : window(focusedWindow), view(content) {}

    // Makes a widget of the content, or none, the one that keys go to. Does nothing for a widget
    // that keys cannot reach.
    void Make(QWidget* responder);
    // Goes on to the widget that Tab (or, not `forward`, Shift+Tab) leads to: left to right and top
    // to bottom as the eye goes, whatever the order of creation. False when there is none.
    bool Advance(bool forward);

    // The toolkit's focus has come to a widget of the window.
    void Arrived(QWidget* widget);

    // Takes the focus from the content until Resume gives it back.
    void Suspend();
    void Resume();

  private:
    void Pass(QWidget* to);

    QWidget& window;
    QWidget& view;
    QPointer<QWidget> firstResponder;
    QPointer<QWidget> suspendedResponder;
    bool isSuspended = false;
};

}  // namespace rotavel
