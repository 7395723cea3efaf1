#pragma once

namespace rotavel {

class QzWindow;

// All native windows in order of creation, and what is done to them together.

void EnterWindow(QzWindow* window);
void LeaveWindow(QzWindow* window);

// Puts the windows on the screen that the next wait would show.
void PresentPendingWindows();

void MiniaturizeWindows();
void DeminiaturizeWindows();

// The newest visible window attached above `parent` that can have the keyboard, or null.
QzWindow* KeyWindowAbove(const QzWindow* parent);

}  // namespace rotavel
