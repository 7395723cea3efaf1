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

// The widget of a window's content that keys go to, also while the window has no keyboard. Tells
// the views that it passes between.
class FirstResponder {
  public:
    QWidget* View() const { return view; }
    void Pass(QWidget* to);

  private:
    QPointer<QWidget> view;
};

}  // namespace rotavel
