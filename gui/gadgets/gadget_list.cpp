#include "gui/gadget_list.h"

#include <algorithm>
#include <map>

#include "gui/toolkit/handle.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"

namespace rotavel {

namespace {

std::map<NativeWindow*, QzGadgetList> lists;
QzGadgetList* currentList = nullptr;

NativeView* ContentViewOf(NativeWindow* window) {
    return ToHandle<NativeView>(FromHandle(window)->ContentView());
}

}  // namespace

QzGadgetList::QzGadgetList(NativeWindow* window)
    : TopWindow(window), TopView(ContentViewOf(window)) {}

void QzGadgetList::Push(NativeView* view) {
    Views.push_back(TopView);
    TopView = view;
}

void QzGadgetList::Pop() {
    if (Views.empty()) {
        TopView = ContentViewOf(TopWindow);
        return;
    }
    TopView = Views.back();
    Views.pop_back();
}

QzGadgetList* QzGadgetList::CurrentList() {
    return currentList;
}

NativeView* QzGadgetList::CurrentView() {
    return currentList == nullptr ? nullptr : currentList->Top();
}

NativeWindow* QzGadgetList::CurrentWindow() {
    return currentList == nullptr ? nullptr : currentList->Window();
}

QzGadgetList* QzGadgetList::ListFromWindow(NativeWindow* window) {
    const auto found = lists.find(window);
    return found == lists.end() ? nullptr : &found->second;
}

NativeWindow* QzGadgetList::SetWindow(NativeWindow* window) {
    NativeWindow* const before = CurrentWindow();
    if (window != nullptr) {
        lists.try_emplace(window, window);
    }
    currentList = ListFromWindow(window);
    return before;
}

void QzGadgetList::RemoveWindow(NativeWindow* window) {
    if (CurrentWindow() == window) {
        currentList = nullptr;
    }
    lists.erase(window);
}

void QzGadgetList::RemoveView(NativeView* view) {
    for (auto& [window, list] : lists) {
        NativeView* const content = ContentViewOf(window);
        std::replace(list.Views.begin(), list.Views.end(), view, content);
        if (list.TopView == view) {
            list.TopView = content;
        }
    }
}

}  // namespace rotavel
