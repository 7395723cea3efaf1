#pragma once

#include "gui/handles.h"

class QFont;
class QImage;
class QWidget;

namespace rotavel {

class QzWindow;

// What stands behind each of the opaque handles that the public headers pass around.
template <typename Handle>
struct Behind;
template <>
struct Behind<NativeWindow> {
    using Type = QzWindow;
};
template <>
struct Behind<NativeView> {
    using Type = QWidget;
};
template <>
struct Behind<NativeFont> {
    using Type = QFont;
};
template <>
struct Behind<NativeImage> {
    using Type = QImage;
};

template <typename Handle>
typename Behind<Handle>::Type* FromHandle(Handle* handle) {
    return reinterpret_cast<typename Behind<Handle>::Type*>(handle);
}

// The handle is named by the caller: ToHandle<NativeView>(widget).
template <typename Handle>
Handle* ToHandle(typename Behind<Handle>::Type* object) {
    return reinterpret_cast<Handle*>(object);
}

}  // namespace rotavel
