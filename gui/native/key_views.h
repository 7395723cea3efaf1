#pragma once

class QWidget;

namespace rotavel {

// A native view that wants to know when it becomes, and stops being, the widget of its window that
// keys go to. Moves that belong to the window (it lost the keyboard, a menu opened) do not count.
class FirstResponderView {
  public:
    virtual ~FirstResponderView() = default;
    virtual void BecomeFirstResponder() = 0;
    virtual void TextDidEndEditing() = 0;
};

// The view that Tab (or, not `forward`, Shift+Tab) goes to from `from`: the order is that of the
// eye, left to right and top to bottom, whatever the order of creation. Null when there is none.
QWidget* NextKeyView(const QWidget& content, const QWidget* from, bool forward);

}  // namespace rotavel
