#include "draw/image.h"

#include <cmath>
#include <utility>

#include <QPainter>

#include "draw/current_drawing.h"
#include "gui/toolkit/bitmap.h"
#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/handle.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

namespace {

NumberedObjects<QImage> registry;

std::int64_t Register(std::int64_t number, QImage bitmap) {
    if (bitmap.isNull()) {
        return 0;
    }
    if (number != AnyNumber) {
        ImageFree(number);
    }
    const auto [id, image] = registry.Create(number);
    if (image == nullptr) {
        return 0;
    }
    *image = std::move(bitmap);
    return CreationResult(number, id, image);
}

// For each target pixel of one axis the source pixel it shows, in 16.16 fixed point.
class NearestPixel {
  public:
    NearestPixel(int sourceSize, int targetSize)
        : step(
              static_cast<std::int64_t>(65536.0 / (static_cast<double>(targetSize) / sourceSize))) {
    }

    int operator()(int target) const { return static_cast<int>((target * step + step / 2) >> 16); }

  private:
    std::int64_t step;
};

void ScaleToNearest(const QImage& source, QImage& target) {
    const NearestPixel sourceX(source.width(), target.width());
    const NearestPixel sourceY(source.height(), target.height());
    for (int y = 0; y < target.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(source.constScanLine(sourceY(y)));
        auto* const to = reinterpret_cast<QRgb*>(target.scanLine(y));
        for (int x = 0; x < target.width(); ++x) {
            to[x] = from[sourceX(x)];
        }
    }
}

}  // namespace

std::int64_t ImageCreate(std::int64_t number, std::int64_t width, std::int64_t height) {
    QImage bitmap = MakeBitmap(width, height);
    bitmap.fill(Qt::black);
    return Register(number, std::move(bitmap));
}

std::int64_t ImageGrab(std::int64_t source, std::int64_t number, std::int64_t x, std::int64_t y,
                       std::int64_t width, std::int64_t height) {
    const QImage* const from = registry.Find(source);
    QImage bitmap = MakeBitmap(width, height);
    if (from == nullptr || bitmap.isNull()) {
        return 0;
    }
    bitmap.fill(Qt::white);
    // Pixels are copied whole, also where the screen's scale splits them.
    const auto wholeAt = [scale = bitmap.devicePixelRatio()](std::int64_t place) {
        return std::floor(ToCoordinate(place) * scale + 0.5) / scale;
    };
    QPainter(&bitmap).drawImage(QPointF(-wholeAt(x), -wholeAt(y)), *from);
    return Register(number, std::move(bitmap));
}

bool ImageResize(std::int64_t image, std::int64_t width, std::int64_t height, std::uint32_t mode) {
    QImage* const bitmap = registry.Find(image);
    if (bitmap == nullptr) {
        return false;
    }
    QImage resized = MakeBitmap(width, height);
    if (resized.isNull()) {
        return false;
    }
    EndDrawingOn(ToHandle<NativeImage>(bitmap));
    if ((mode & ResizeNearestPixel) != 0) {
        ScaleToNearest(*bitmap, resized);
    } else {
        const double scale = resized.devicePixelRatio();
        resized = bitmap->scaled(resized.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        resized.setDevicePixelRatio(scale);
    }
    *bitmap = std::move(resized);
    return true;
}

void ImageFree(std::int64_t image) {
    if (image == AnyNumber) {
        registry.ForEach(
            [](std::int64_t, QImage& bitmap) { EndDrawingOn(ToHandle<NativeImage>(&bitmap)); });
        registry.Clear();
    } else if (QImage* const bitmap = registry.Find(image)) {
        EndDrawingOn(ToHandle<NativeImage>(bitmap));
        registry.Remove(image);
    }
}

bool ImageExists(std::int64_t image) {
    return registry.Find(image) != nullptr;
}

NativeImage* ImageHandle(std::int64_t image) {
    return ToHandle<NativeImage>(registry.Find(image));
}

}  // namespace rotavel
