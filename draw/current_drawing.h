#pragma once

#include <cstdint>

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include "draw/drawing_target.h"

namespace rotavel {

// The state of the drawing that is current. Not part of what the application sees.
struct Drawing {
    DrawingTarget Target;
    QPainter Painter;
    QTransform Transform;  // from the coordinates given to the target's
    QPainterPath Path;     // in the target's coordinates
    QColor Colour = Qt::black;
    QFont Font;
};

// The current drawing, or null.
Drawing* CurrentDrawing();

// Makes a drawing on the target the current one; false when the target has no bitmap.
bool BeginDrawing(const DrawingTarget& target);

// Ends the current drawing, if there is one, and brings its result to the screen.
void EndDrawing();

// Ends the current drawing if it works on this bitmap, which goes.
void EndDrawingOn(const NativeImage* bitmap);

}  // namespace rotavel
