#pragma once

namespace rotavel {

class QzWindow;

// Destroys the status bars of a window that closes.
void DestroyStatusBarsOf(const QzWindow* window);

}  // namespace rotavel
