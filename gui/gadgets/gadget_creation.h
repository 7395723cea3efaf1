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

// Creates a gadget with a view and functions of these classes, and shows it. `complete` gets both
// once the gadget is entered. Returns what the creation function returns.
template <typename View, typename Functions, typename Complete = void (*)(View&, Functions&)>
std::int64_t CreateGadget(
    const NewGadget& gadget, Complete complete = [](View&, Functions&) {}) {
    QWidget* const container = MakeRoomFor(gadget.Number);
    if (container == nullptr) {
        return 0;
    }
    auto* const view = new View(container);
    auto owned = std::make_unique<Functions>();
    Functions& functions = *owned;
    const std::int64_t number = QzGadgetFunctions::Setup(std::move(owned), gadget, view, view);
    complete(*view, functions);
    return CreationResult(gadget.Number, number, view);
}

}  // namespace rotavel
