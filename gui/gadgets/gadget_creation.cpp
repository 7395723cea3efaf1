#include "gui/gadgets/gadget_creation.h"

#include "gui/gadget.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/handle.h"

namespace rotavel {

QWidget* MakeRoomFor(GadgetNumber number) {
    if (number < AnyNumber || QzGadgetList::CurrentView() == nullptr) {
        return nullptr;
    }
    if (number != AnyNumber) {
        FreeGadget(number);
    }
    return GadgetExists(number) ? nullptr : FromHandle(QzGadgetList::CurrentView());
}

std::int64_t EnterGadget(std::unique_ptr<QzGadgetFunctions> functions, const NewGadget& gadget,
                         QWidget* view) {
    QzGadgetFunctions::Setup(std::move(functions), gadget.Number, gadget.Kind, view, view,
                             gadget.Flags);
    view->setGeometry(ToCoordinate(gadget.X), ToCoordinate(gadget.Y), ToSide(gadget.Width),
                      ToSide(gadget.Height));
    view->show();
    return CreationResult(gadget.Number, dynamic_cast<QzTaggedView&>(*view).Tag(), view);
}

}  // namespace rotavel
