#include "gui/drag_and_drop.h"

#include <QComboBox>
#include <QLineEdit>

#include "gui/event_queue.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/windows/drop_target.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/window_record.h"

namespace rotavel {

void EnableGadgetDrop(GadgetNumber gadget, bool state) {
    if (const GadgetRecord* const record = GadgetRegistry().Find(gadget)) {
        TakeDrops(*record->View, state, DropOnGadget, gadget);
        // The field of an editable combo box lies over the whole of it.
        const auto* const comboBox = qobject_cast<QComboBox*>(record->View);
        if (comboBox != nullptr && comboBox->isEditable()) {
            comboBox->lineEdit()->setAcceptDrops(!state);
        }
    }
}

void EnableWindowDrop(WindowNumber window, bool state) {
    if (const WindowRecord* const record = WindowRegistry().Find(window)) {
        TakeDrops(*record->Window->ContentView(), state, DropOnWindow, window);
    }
}

std::u16string EventDropText() {
    const bool isDrop = CurrentEventKind() == DropOnGadget || CurrentEventKind() == DropOnWindow;
    const auto* const text = static_cast<const std::u16string*>(CurrentEventData());
    return isDrop && text != nullptr ? *text : std::u16string();
}

}  // namespace rotavel
