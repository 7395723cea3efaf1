#include "gui/windows/key_views.h"

#include <iterator>
#include <map>
#include <utility>

#include <QWidget>

namespace rotavel {

namespace {

// Places compare as the eye goes: line by line, each from left to right.
std::pair<int, int> PlaceOf(const QWidget& view, const QWidget& content) {
    const QPoint corner = view.mapTo(&content, QPoint());
    return {corner.y(), corner.x()};
}

bool TakesKeys(const QWidget& view, const QWidget& content) {
    return (view.focusPolicy() & Qt::TabFocus) != 0 && view.focusProxy() == nullptr &&
           view.isVisibleTo(&content) && view.isEnabledTo(&content);
}

}  // namespace

QWidget* NextKeyView(const QWidget& content, const QWidget* from, bool forward) {
    std::multimap<std::pair<int, int>, QWidget*> views;
    for (QWidget* const view : content.findChildren<QWidget*>()) {
        if (view != from && TakesKeys(*view, content)) {
            views.emplace(PlaceOf(*view, content), view);
        }
    }
    if (views.empty()) {
        return nullptr;
    }
    if (from == nullptr || !content.isAncestorOf(from)) {
        return forward ? views.begin()->second : std::prev(views.end())->second;
    }
    auto next = views.upper_bound(PlaceOf(*from, content));
    if (forward) {
        return next == views.end() ? views.begin()->second : next->second;
    }
    return next == views.begin() ? std::prev(views.end())->second : std::prev(next)->second;
}

}  // namespace rotavel
