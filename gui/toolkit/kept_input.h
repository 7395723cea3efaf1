#pragma once

class QEvent;
class QWindow;

namespace rotavel {

// The inputs that have come in before their turn, in their order.

// Sets what names the window that the program has chosen for the keyboard, though the window
// manager may not have given it that yet; it gives null for none.
void SetKeyboardHook(QWindow* (*chosen)());

// The window that gets a key now which the window system sent to `sentTo`, or to one that has
// closed meanwhile (null). A box that asks, or a window just opened, has the keys though the window
// manager may not have given it the keyboard yet. When a menu or a box has closed, the toolkit may
// know of its window, or of none, until the window system has answered. Null where no window is
// open.
QWindow* ReceiverOfKey(QWindow* sentTo);

// Keeps a copy of an input of a window. The toolkit takes the event itself for delivered.
void KeepInput(QWindow& window, QEvent& event);

bool IsInputKept();

// Sends the input that has waited longest: to its window, a key to what has the keyboard now, a
// click on a menu that has closed meanwhile to what lies there now. One whose window has gone, or
// must wait for an answer elsewhere, is dropped.
void SendInputKept();

}  // namespace rotavel
