#pragma once

#include <cstddef>
#include <vector>

#include "gui/handles.h"

namespace rotavel {

// Where new gadgets go: one list a window that takes any (not WindowOutsideGadgetList), each with a
// stack of containers. A new window's list becomes the current one.
class QzGadgetList {
  public:
    explicit QzGadgetList(NativeWindow* window);

    NativeWindow* Window() const { return TopWindow; }
    NativeView* Top() const { return TopView; }
    std::size_t StackIndex() const { return Views.size(); }

    // Makes `view` the container and saves the one before; Set does not save it.
    void Push(NativeView* view);
    void PushNoView() { Push(nullptr); }
    void Set(NativeView* view) { TopView = view; }
    // Goes back to the container saved last, or to the window's content view when none is.
    void Pop();

    static QzGadgetList* CurrentList();
    // Null when there is no list, or its container is none.
    static NativeView* CurrentView();
    static NativeWindow* CurrentWindow();
    static QzGadgetList* ListFromWindow(NativeWindow* window);
    // Makes the list of `window` the current one. Returns the window current before, or null.
    static NativeWindow* SetWindow(NativeWindow* window);
    // Drops the list of a window that closes.
    static void RemoveWindow(NativeWindow* window);
    // Puts the window's content view in the place of a container that goes.
    static void RemoveView(NativeView* view);

  private:
    NativeWindow* TopWindow;
    NativeView* TopView;
    std::vector<NativeView*> Views;
};

}  // namespace rotavel
