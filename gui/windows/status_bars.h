#pragma once

namespace rotavel {

class QzWindow;

// Lays the status bars of a window out anew after its size has changed.
void AdjustStatusBarsOf(const QzWindow* window);

// Destroys the status bars of a window that closes.
void DestroyStatusBarsOf(const QzWindow* window);

}  // namespace rotavel
