#include "gui/native/key_views.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <vector>

#include <QWidget>

namespace rotavel {

QWidget* NextKeyView(const QWidget& content, const QWidget* from, bool forward) {
    std::vector<QWidget*> views;
    for (QWidget* const view : content.findChildren<QWidget*>()) {
        if ((view->focusPolicy() & Qt::TabFocus) != 0 && view->focusProxy() == nullptr &&
            view->isVisibleTo(&content) && view->isEnabledTo(&content)) {
            views.push_back(view);
        }
    }
    if (views.empty()) {
        return nullptr;
    }
    std::stable_sort(views.begin(), views.end(), [&content](QWidget* left, QWidget* right) {
        const QPoint a = left->mapTo(&content, QPoint());
        const QPoint b = right->mapTo(&content, QPoint());
        return std::tuple(a.y(), a.x()) < std::tuple(b.y(), b.x());
    });
    const auto current = std::find(views.begin(), views.end(), from);
    if (current == views.end()) {
        return forward ? views.front() : views.back();
    }
    if (forward) {
        const auto next = std::next(current);
        return next == views.end() ? views.front() : *next;
    }
    return current == views.begin() ? views.back() : *std::prev(current);
}

}  // namespace rotavel
