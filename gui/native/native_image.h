#pragma once

#include <QImage>

#include "gui/handles.h"

namespace rotavel {

inline QImage* FromHandle(NativeImage* handle) {
    return reinterpret_cast<QImage*>(handle);
}

inline NativeImage* ToHandle(QImage* image) {
    return reinterpret_cast<NativeImage*>(image);
}

}  // namespace rotavel
