#pragma once

namespace rotavel {

class QzWindow;

// Puts the first menu bar that belongs to a window on it, now that the window has the keyboard.
void InstallMenuBarOf(QzWindow* window);

// Frees the first menu bar of a window that closes.
void FreeMenuOf(const QzWindow* window);

}  // namespace rotavel
