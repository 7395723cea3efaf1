#pragma once

#include <cstdint>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// A bitmap of the gadget's size that the program draws on (draw/raster_drawing.h), white at first
// and cleared to its GadgetBackColor whenever that is set.
//
// While its window has the keyboard, the pointer posts GadgetActivity with one of these types:
// first that it entered, at last that it left, which is also posted when the window loses the
// keyboard or the canvas is hidden. A press that began elsewhere enters nothing.
//
// A canvas that has the keyboard itself (ActivateGadget, Tab) takes the arrow keys for the pointer,
// though that stays where it is on the screen: the first key enters at the place the pointer was at
// last, in the middle if there is none, each further one moves by a pixel, with Shift by ten, to
// the canvas's edges at most. Losing the keyboard, or the pointer moving elsewhere, leaves. A cross
// shows the place on the screen; the bitmap stays as it is.

inline constexpr std::int64_t CanvasMouseEnter = 65537;
inline constexpr std::int64_t CanvasMouseLeave = 65538;
inline constexpr std::int64_t CanvasMouseMove = 65539;

// Attributes. The pointer's place is in pixels of the canvas and read-only; the pointer's shape
// over the canvas is one of the two below.
inline constexpr std::int64_t CanvasMouseX = 2;
inline constexpr std::int64_t CanvasMouseY = 3;
inline constexpr std::int64_t CanvasCursor = 7;

inline constexpr std::int64_t CursorArrow = 0;
inline constexpr std::int64_t CursorCrossHair = 1;

std::int64_t CanvasGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::uint32_t flags = 0);

// For those who draw: the bitmap, null when there is no such canvas or its size leaves nothing to
// draw on; bringing to the screen what was drawn; and a function that is called with each bitmap
// that goes while it is being drawn on.
NativeImage* CanvasBitmap(GadgetNumber canvas);
void ShowCanvasBitmap(GadgetNumber canvas);
void SetLostCanvasHook(void (*notify)(const NativeImage* bitmap));

}  // namespace rotavel
