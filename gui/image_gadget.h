#pragma once

#include <cstdint>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// Shows an image, centred, and scaled down where it is larger than the gadget. Its state is the
// image's handle as a number, 0 for none; setting it is SetGadgetImage.

inline constexpr std::uint32_t ImageSunken = 1;  // a sunken frame

// Types of the GadgetActivity events.
inline constexpr std::int64_t ImageRightClick = 1;
inline constexpr std::int64_t ImageRightDoubleClick = 3;

std::int64_t ImageGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                               std::int64_t width, std::int64_t height,
                               NativeImage* image = nullptr, std::uint32_t flags = 0);

// Shows an image (a handle of draw/image.h, null for none) in the place of the one before. The
// image is copied, so that it may be freed afterwards, and the gadget takes its size. Does nothing
// when the gadget is of another kind.
void SetGadgetImage(GadgetNumber gadget, NativeImage* image);

}  // namespace rotavel
