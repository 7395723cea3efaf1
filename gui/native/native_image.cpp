#include "gui/native/native_image.h"

#include <cmath>

#include <QGuiApplication>

#include "gui/native/coordinates.h"

namespace rotavel {

QImage MakeBitmap(std::int64_t width, std::int64_t height) {
    if (!IsPossibleSize(width, height)) {
        return {};
    }
    const double scale = qApp->devicePixelRatio();
    QImage bitmap(static_cast<int>(std::ceil(static_cast<double>(width) * scale)),
                  static_cast<int>(std::ceil(static_cast<double>(height) * scale)),
                  QImage::Format_RGB32);
    bitmap.setDevicePixelRatio(scale);
    return bitmap;
}

}  // namespace rotavel
