#include "draw/current_drawing.h"

#include <utility>

#include <QImage>

#include "gui/canvas_gadget.h"
#include "gui/toolkit/handle.h"

namespace rotavel {

namespace {

// Ends at the latest when the bitmap that it works on goes.
Drawing* current = nullptr;

}  // namespace

Drawing* CurrentDrawing() {
    return current;
}

bool BeginDrawing(const DrawingTarget& target) {
    EndDrawing();
    if (target.Bitmap == nullptr) {
        return false;
    }
    SetLostCanvasHook(EndDrawingOn);
    current = new Drawing;
    current->Target = target;
    current->Path.setFillRule(Qt::WindingFill);
    current->Path.moveTo(0, 0);
    if (!current->Painter.begin(FromHandle(target.Bitmap))) {
        delete std::exchange(current, nullptr);
        return false;
    }
    return true;
}

void EndDrawing() {
    if (current == nullptr) {
        return;
    }
    const std::int64_t canvas = current->Target.Canvas;
    delete std::exchange(current, nullptr);
    if (canvas >= 0) {
        ShowCanvasBitmap(canvas);
    }
}

void EndDrawingOn(const NativeImage* bitmap) {
    if (current != nullptr && current->Target.Bitmap == bitmap) {
        EndDrawing();
    }
}

}  // namespace rotavel
