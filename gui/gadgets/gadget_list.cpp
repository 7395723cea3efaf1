#include "gui/gadget_list.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "gui/toolkit/handle.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"

namespace rotavel {

namespace {

constexpr std::size_t StackCapacity = 10;

std::vector<std::unique_ptr<QzGadgetList>> lists;
QzGadgetList* currentList = nullptr;

NativeView* ContentViewOf(NativeWindow* window) {
    return ToHandle<NativeView>(FromHandle(window)->ContentView());
}

}  // namespace

QzGadgetList::QzGadgetList(NativeWindow* window)
    : TopWindow(window), TopView(ContentViewOf(window)) {
    Views.reserve(StackCapacity);
}

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
    const auto found = std::find_if(lists.begin(), lists.end(), [window](const auto& list) {
        return list->Window() == window;
    });
    return found == lists.end() ? nullptr : found->get();
}

NativeWindow* QzGadgetList::SetWindow(NativeWindow* window) {
    QzGadgetList* list = ListFromWindow(window);
    if (list == nullptr && window != nullptr) {
        list = lists.emplace_back(std::make_unique<QzGadgetList>(window)).get();
    }
    QzGadgetList* const before = std::exchange(currentList, list);
    return before == nullptr ? nullptr : before->Window();
}

void QzGadgetList::RemoveWindow(NativeWindow* window) {
    if (currentList != nullptr && currentList->Window() == window) {
        currentList = nullptr;
    }
    std::erase_if(lists, [window](const auto& list) { return list->Window() == window; });
}

void QzGadgetList::RemoveView(NativeView* view) {
    for (const auto& list : lists) {
        NativeView* const content = ContentViewOf(list->TopWindow);
        std::replace(list->Views.begin(), list->Views.end(), view, content);
        if (list->TopView == view) {
            list->TopView = content;
        }
    }
}

}  // namespace rotavel
