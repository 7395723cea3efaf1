#pragma once

#include <cstdint>

#include <QPoint>
#include <QRect>
#include <Qt>

class QWidget;

namespace rotavel {

// The outer frame of a window: what the toolkit is to be told of it, how wide it is, and placing
// windows by it. The window manager adds it at its own time: until then the frame of the window
// framed last is taken for the one that a window will get.

// The toolkit's window type and title bar for the flags of WindowCreate.
Qt::WindowFlags ToolkitFlags(std::uint32_t flags, bool hasParent);

// The buttons of a title bar.
inline constexpr Qt::WindowFlags TitleBarButtons =
    Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint;

// Gives a window, also one on the screen, these of them.
void SetTitleBarButtons(QWidget& window, Qt::WindowFlags buttons);

// Whether the compositor alone knows where windows are, and decides how large they are.
bool IsCompositorInCharge();

// Notes the frame of a window on the screen, for those that come next.
void RememberFrame(const QWidget& window);
// Whether a window on the screen is still to get its frame.
bool AwaitsFrame(const QWidget& window);
// Notes that waiting for a frame was in vain: nobody frames windows here.
void RememberNoFrame();

// The outer frame of a window and the corner of what it frames.
QRect FrameOf(const QWidget& window);
QPoint InnerCornerOf(const QWidget& window);
// The largest size a window can have with its frame on the screen.
QSize RoomFor(const QWidget& window);

// Moves a window so that its frame begins at `corner`.
void SetFrameCorner(QWidget& window, QPoint corner);

// Ends a zoom with the frame at `corner` and the size as it is.
void LeaveZoom(QWidget& window, QPoint corner);

// Centre the frame of a window.
void CentreFrameOnScreen(QWidget& window);
void CentreFrameOver(QWidget& window, const QWidget& owner);

// Whether the whole frame of a window is on its screen; moves it there as far as it fits.
bool IsFrameOnScreen(const QWidget& window);
void MoveFrameOntoScreen(QWidget& window);

// Where a popup of the owner's that is to be at `corner` stands: there if it then is on a screen as
// a whole, else on the owner's screen where it does not lie under the pointer.
QPoint CornerForPopup(const QWidget& popup, const QWidget& owner, QPoint corner);

}  // namespace rotavel
