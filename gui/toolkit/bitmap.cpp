#include "gui/toolkit/bitmap.h"

#include <cmath>

#include <QGuiApplication>

#include "gui/toolkit/coordinates.h"

namespace rotavel {

QSize BitmapSize(std::int64_t width, std::int64_t height) {
    const double scale = qApp->devicePixelRatio();
    const auto ownPixels = [scale](std::int64_t side) {
        // Less what the scale may be off by: 20 pixels at 1.1 are 22, not 23.
        return static_cast<int>(std::ceil(static_cast<double>(side) * scale - 1e-6));
    };
    return {ownPixels(width), ownPixels(height)};
}

QImage MakeBitmap(std::int64_t width, std::int64_t height) {
    if (!IsPossibleSize(width, height)) {
        return {};
    }
    QImage bitmap(BitmapSize(width, height), QImage::Format_RGB32);
    bitmap.setDevicePixelRatio(qApp->devicePixelRatio());
    return bitmap;
}

}  // namespace rotavel
