#pragma once

namespace rotavel {

// A native view that wants to know when it becomes, and stops being, the widget of its window that
// keys go to. Moves that belong to the window (it lost the keyboard, a menu opened) do not count.
class FirstResponderView {
  public:
    virtual ~FirstResponderView() = default;
    virtual void BecomeFirstResponder() = 0;
    virtual void TextDidEndEditing() = 0;
};

}  // namespace rotavel
