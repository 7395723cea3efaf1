#include "gui/drag_and_drop.h"

#include "gui/event_queue.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/window_record.h"

namespace rotavel {

void EnableGadgetDrop(GadgetNumber gadget, bool state) {
    if (const GadgetRecord* const record = GadgetRegistry().Find(gadget)) {
        dynamic_cast<QzTaggedView&>(*record->View).TakeGadgetDrops(state);
    }
}

void EnableWindowDrop(WindowNumber window, bool state) {
    if (const WindowRecord* const record = WindowRegistry().Find(window)) {
        record->Window->ContentView()->TakeDrops(state, DropOnWindow, window);
    }
}

std::u16string EventDropText() {
    const bool isDrop = CurrentEventKind() == DropOnGadget || CurrentEventKind() == DropOnWindow;
    const auto* const text = static_cast<const std::u16string*>(CurrentEventData());
    return isDrop && text != nullptr ? *text : std::u16string();
}

}  // namespace rotavel
