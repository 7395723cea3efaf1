#include "gui/windows/first_responder.h"

namespace rotavel {

void FirstResponder::Pass(QWidget* to) {
    if (to == view) {
        return;
    }
    const QPointer<QWidget> next = to;
    auto* const before = dynamic_cast<FirstResponderView*>(view.data());
    view = nullptr;
    if (before != nullptr) {
        before->TextDidEndEditing();
    }
    if (view != nullptr) {
        return;  // who was told has passed it on already
    }
    view = next;
    if (auto* const now = dynamic_cast<FirstResponderView*>(next.data())) {
        now->BecomeFirstResponder();
    }
}

}  // namespace rotavel
