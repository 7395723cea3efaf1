#pragma once

namespace rotavel {

// The layer's beginning and end. Everything else of gui/ and draw/ works between the two calls;
// images are freed before the second.

// Connects to the windowing system. Ends the process with a message when there is none. From then
// on SIGINT, SIGTERM and SIGHUP post CloseRequested for window 0 and dismiss an open requester.
void GuiStart();

// Destroys every window, gadget, menu and font and disconnects.
void GuiStop();

}  // namespace rotavel
