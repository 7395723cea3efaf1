#include "app/inch_width_rule.h"

#include <string>

#include "app/main_window.h"
#include "gui/gadget.h"

namespace rotavel {

void ApplyTypedWidth() {
    const bool inches = GetGadgetText(TyreWidthField).find(u'.') != std::u16string::npos;
    if (inches) {
        SetGadgetText(PercentHeightField, u"");
    }
    DisableGadget(PercentHeightField, inches);
}

void ShowInchWidth(std::u16string_view width) {
    SetGadgetText(TyreWidthField, width);
    DisableGadget(PercentHeightField, true);
}

}  // namespace rotavel
