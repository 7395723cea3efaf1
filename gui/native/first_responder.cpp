#include "gui/native/first_responder.h"

namespace rotavel {

void FirstResponder::Pass(QWidget* to) {
    if (to == view) {
        return;
    }
    auto* const before = dynamic_cast<FirstResponderView*>(view.data());
    view = to;
    if (before != nullptr) {
        before->TextDidEndEditing();
    }
    if (auto* const now = dynamic_cast<FirstResponderView*>(to)) {
        now->BecomeFirstResponder();
    }
}

}  // namespace rotavel
