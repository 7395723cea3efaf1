#include "draw/current_drawing.h"

#include <memory>

#include "gui/canvas_gadget.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/image.h"

namespace rotavel {

namespace {

std::unique_ptr<Drawing> current;

}  // namespace

Drawing* CurrentDrawing() {
    return current.get();
}

bool BeginDrawing(const DrawingTarget& target) {
    EndDrawing();
    if (target.Bitmap == nullptr) {
        return false;
    }
    NotifyOfLostCanvas([](const NativeImage* bitmap) {
        if (current != nullptr && current->Target.Bitmap == bitmap) {
            EndDrawing();
        }
    });
    current = std::make_unique<Drawing>();
    current->Target = target;
    current->Path.setFillRule(Qt::WindingFill);
    current->Path.moveTo(0, 0);
    if (!current->Painter.begin(FromHandle(target.Bitmap))) {
        current.reset();
        return false;
    }
    return true;
}

void EndDrawing() {
    if (current == nullptr) {
        return;
    }
    const std::int64_t canvas = current->Target.Canvas;
    current.reset();
    ShowCanvasBitmap(canvas);
}

void EndDrawingOn(const NativeImage* bitmap) {
    if (current != nullptr && current->Target.Bitmap == bitmap) {
        EndDrawing();
    }
}

}  // namespace rotavel
