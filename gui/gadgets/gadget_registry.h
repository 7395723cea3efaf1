#pragma once

#include <cstdint>
#include <memory>

#include <QWidget>

#include "gui/gadgets/gadget_functions.h"
#include "gui/numbers.h"
#include "gui/windows/window_observer.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

enum GadgetKind : std::int32_t {
    ButtonKind = 1,
    StringKind = 2,
    TextKind = 3,
    ComboBoxKind = 8,
    ImageKind = 9,
    CanvasKind = 33,
};

// What the layer knows of one gadget.
struct GadgetRecord {
    QWidget* View = nullptr;
    QWidget* Container = nullptr;
    std::unique_ptr<QzGadgetFunctions> Functions;
    WindowNumber Window = -1;
    GadgetKind Kind = ButtonKind;
    std::uint32_t Flags = 0;
};

// The gadgets, by number.
NumberedObjects<GadgetRecord>& GadgetRegistry();

// Frees the gadgets of windows that close, and keeps the list of where new ones go.
WindowObserver& GadgetsAsObserver();

// Frees the gadget that holds the number and returns the container that new gadgets go into. Null
// when there is none, when the number cannot be used, or when a callback took it meanwhile.
QWidget* MakeRoomFor(GadgetNumber number);

// Frees the record of a gadget whose view is being destroyed by somebody else.
void FreeGadgetRecord(GadgetNumber number);

}  // namespace rotavel
