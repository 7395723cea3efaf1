#include "gui/windows/window_focus.h"

#include <iterator>
#include <map>
#include <utility>

namespace rotavel {

namespace {

// Line by line, each from left to right.
std::pair<int, int> ReadingOrder(const QWidget& widget, const QWidget& content) {
    const QPoint corner = widget.mapTo(&content, QPoint());
    return {corner.y(), corner.x()};
}

bool TakesKeys(const QWidget& widget, const QWidget& content) {
    return (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr &&
           widget.isVisibleTo(&content) && widget.isEnabledTo(&content);
}

QWidget* NextWidget(const QWidget& content, const QWidget* from, bool forward) {
    std::multimap<std::pair<int, int>, QWidget*> widgets;
    for (QWidget* const widget : content.findChildren<QWidget*>()) {
        if (widget != from && TakesKeys(*widget, content)) {
            widgets.emplace(ReadingOrder(*widget, content), widget);
        }
    }
    if (widgets.empty()) {
        return nullptr;
    }
    const bool isInside = from != nullptr && content.isAncestorOf(from);
    const auto behind =
        isInside ? widgets.upper_bound(ReadingOrder(*from, content)) : widgets.begin();
    if (forward) {
        return (behind == widgets.end() ? widgets.begin() : behind)->second;
    }
    return std::prev(behind == widgets.begin() ? widgets.end() : behind)->second;
}

}  // namespace

void WindowFocus::Make(QWidget* responder) {
    const bool canHave =
        responder == nullptr || ((window.windowFlags() & Qt::WindowDoesNotAcceptFocus) == 0 &&
                                 responder->isEnabled() && responder->isVisibleTo(&window));
    if (!canHave) {
        return;
    }
    // For none keys go to the window itself; without a focus the toolkit would choose a field.
    QWidget* const receiver = responder != nullptr ? responder : &window;
    receiver->setFocus(Qt::OtherFocusReason);
    if (window.focusWidget() == receiver) {  // else a callback to this has moved it on
        Pass(responder);
    }
}

bool WindowFocus::Advance(bool forward) {
    QWidget* const next = isSuspended ? nullptr : NextWidget(view, window.focusWidget(), forward);
    if (next == nullptr) {
        return false;
    }
    next->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

void WindowFocus::Arrived(QWidget* widget) {
    if (view.isAncestorOf(widget)) {
        Pass(widget);
    }
}

void WindowFocus::Suspend() {
    if (!isSuspended) {
        suspendedResponder = firstResponder;
    }
    isSuspended = true;
    Make(nullptr);
}

void WindowFocus::Resume() {
    isSuspended = false;
    if (suspendedResponder != nullptr) {
        Make(suspendedResponder);
    }
}

void WindowFocus::Pass(QWidget* to) {
    if (to == firstResponder) {
        return;
    }
    const QPointer<QWidget> next = to;
    auto* const before = dynamic_cast<FirstResponderView*>(firstResponder.data());
    firstResponder = nullptr;
    if (before != nullptr) {
        before->TextDidEndEditing();
    }
    if (firstResponder != nullptr) {
        return;  // who was told has passed it on already
    }
    firstResponder = next;
    if (auto* const now = dynamic_cast<FirstResponderView*>(next.data())) {
        now->BecomeFirstResponder();
    }
}

}  // namespace rotavel
