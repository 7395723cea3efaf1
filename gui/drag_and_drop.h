#pragma once

#include <string>

#include "gui/numbers.h"

namespace rotavel {

// Dropping text or files on gadgets and windows. One that takes drops posts DropOnGadget (object:
// the gadget, window: its window) or DropOnWindow (object and window: the window) for each. A field
// that takes none still lets text be dropped into it.

void EnableGadgetDrop(GadgetNumber gadget, bool state);
void EnableWindowDrop(WindowNumber window, bool state);

// What was dropped by the current event: the text, or the paths of the files, one a line. Empty
// when the current event is no drop.
std::u16string EventDropText();

}  // namespace rotavel
