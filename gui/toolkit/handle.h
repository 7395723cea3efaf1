#pragma once

#include "gui/handles.h"

class QFont;
class QImage;
class QWidget;

namespace rotavel {

class QzWindow;

// What stands behind each of the opaque handles that the public headers pass around: types only,
// nowhere defined.
QzWindow* Behind(NativeWindow*);
QWidget* Behind(NativeView*);
QFont* Behind(NativeFont*);
QImage* Behind(NativeImage*);

template <typename Handle>
using BehindHandle = decltype(Behind(static_cast<Handle*>(nullptr)));

template <typename Handle>
BehindHandle<Handle> FromHandle(Handle* handle) {
    return reinterpret_cast<BehindHandle<Handle>>(handle);
}

// The handle is named by the caller: ToHandle<NativeView>(widget).
template <typename Handle>
Handle* ToHandle(BehindHandle<Handle> object) {
    return reinterpret_cast<Handle*>(object);
}

}  // namespace rotavel
