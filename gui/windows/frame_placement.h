#pragma once

#include <QPoint>
#include <QRect>

class QWidget;

namespace rotavel {

// Placing windows by their outer frames, which the window manager adds at its own time: before a
// window has been framed, the frame of the window framed last is taken for what it will get.

// Notes the frame of a window that is on the screen.
void RememberFrameMargins(const QWidget& window);

// The outer frame of a window and, on the screen, the corner of what it frames.
QRect FrameOf(const QWidget& window);
QPoint InnerCornerOf(const QWidget& window);

// Moves a window so that its frame begins at `position`.
void SetFramePosition(QWidget& window, QPoint position);

// Centre a window, but keep its title bar within reach when it is larger than the screen.
void CentreFrameOnScreen(QWidget& window);
void CentreFrameOver(QWidget& window, const QWidget& owner);

}  // namespace rotavel
