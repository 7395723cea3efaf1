#pragma once

#include <cstdint>
#include <memory>

#include <QWidget>

#include "gui/gadgets/gadget_functions.h"
#include "gui/handles.h"
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
    std::int64_t Window = -1;
    GadgetKind Kind = ButtonKind;
    std::uint32_t Flags = 0;
};

// The gadgets, by number.
NumberedObjects<GadgetRecord>& GadgetRegistry();

// The font number that new gadgets get, AnyNumber for none.
std::int64_t DefaultGadgetFont();

// Frees the gadgets of a window that closes.
void FreeGadgetsOfWindow(std::int64_t window);

// Posts GadgetActivity for a gadget that is still there.
void SendEventFor(std::int64_t gadget, std::int64_t type);

// Frees the record of a gadget whose view is being destroyed by somebody else.
void FreeGadgetRecord(std::int64_t number);

inline QWidget* FromHandle(NativeView* handle) {
    return reinterpret_cast<QWidget*>(handle);
}

inline NativeView* ToHandle(QWidget* view) {
    return reinterpret_cast<NativeView*>(view);
}

}  // namespace rotavel
