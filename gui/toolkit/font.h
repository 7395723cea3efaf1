#pragma once

#include <cstdint>

#include <QFont>

#include "gui/handles.h"

namespace rotavel {

// The font of a number as gadgets use it; the system's own for a number that is not loaded.
QFont FontForGadgets(std::int64_t number);

inline QFont* FromHandle(NativeFont* handle) {
    return reinterpret_cast<QFont*>(handle);
}

inline NativeFont* ToHandle(QFont* font) {
    return reinterpret_cast<NativeFont*>(font);
}

}  // namespace rotavel
