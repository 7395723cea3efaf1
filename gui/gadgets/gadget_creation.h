#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "gui/gadgets/gadget_registry.h"

namespace rotavel {

// What a creation function was asked for.
struct NewGadget {
    GadgetNumber Number;
    GadgetKind Kind;
    std::int64_t X;
    std::int64_t Y;
    std::int64_t Width;
    std::int64_t Height;
    std::uint32_t Flags;
};

// Frees the gadget that holds the number and returns the container that new gadgets go into. Null
// when there is none, when the number cannot be used, or when a callback took it meanwhile.
QWidget* MakeRoomFor(GadgetNumber number);

// Enters a view as a gadget, puts it in its place and shows it. Returns what the creation function
// returns.
std::int64_t EnterGadget(std::unique_ptr<QzGadgetFunctions> functions, const NewGadget& gadget,
                         QWidget* view);

// Creates a gadget: `makeView` makes its view in a container, and `complete` gets the view and the
// functions once they are entered.
template <typename Functions, typename MakeView, typename Complete>
std::int64_t CreateGadget(const NewGadget& gadget, MakeView makeView, Complete complete) {
    QWidget* const container = MakeRoomFor(gadget.Number);
    if (container == nullptr) {
        return 0;
    }
    auto* const view = makeView(container);
    auto owned = std::make_unique<Functions>();
    Functions& functions = *owned;
    const std::int64_t result = EnterGadget(std::move(owned), gadget, view);
    complete(*view, functions);
    return result;
}

}  // namespace rotavel
