#pragma once

#include <cstdint>
#include <string_view>

#include "draw/colour.h"
#include "draw/drawing_target.h"
#include "gui/handles.h"

namespace rotavel {

// Drawing with paths, in pixels of the target as doubles: origin at the top left, y downwards. A
// stroke along whole coordinates covers whole pixels: one wide just those of these numbers, two
// wide the ones before them too. Where one stroke or fill meets itself, its colour counts once. All
// operations work on the current drawing and do nothing without one. Coordinates beyond a million
// are cut to it.

inline constexpr std::uint32_t StrokeKeepPath = 8;  // stroke again, or fill, afterwards
inline constexpr std::uint32_t StrokeRoundEnd = 16;
inline constexpr std::uint32_t StrokeSquareEnd = 32;
inline constexpr std::uint32_t StrokeRoundJoin = 64;
inline constexpr std::uint32_t StrokeBevelJoin = 128;

// The vector output of an image; one without a bitmap when there is no such image.
DrawingTarget ImageVectorTarget(std::int64_t image);

// Starts a drawing in opaque black; false when the target has no bitmap. VectorEnd ends it.
bool VectorBegin(const DrawingTarget& target);
void VectorEnd();

void VectorSetColour(Colour colour);
// The font at a size in pixels of the target (above 0).
void VectorSetFont(NativeFont* font, double size);
// Turns the coordinate system of all that follows by degrees (clockwise) about a point.
void VectorRotate(double x, double y, double degrees);

// The path. Its points stay where the coordinate system of the moment puts them.
void PathMoveTo(double x, double y);
void PathLineTo(double x, double y);
void PathAddBox(double x, double y, double width, double height);
// Strokes or fills the path with the colour and begins a new one at (0, 0).
void PathStroke(double width, std::uint32_t flags = 0);
// Strokes it as dots, `distance` pixels apart, the first at the start of each line; square ones
// unless the flags say round.
void PathStrokeDotted(double width, double distance, std::uint32_t flags = 0);
void PathFill();

// Draws one line of text with its top left corner at the current point, which moves behind it.
void VectorDrawText(std::u16string_view text);

}  // namespace rotavel
