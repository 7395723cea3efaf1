#pragma once

class QEvent;
class QWindow;

namespace rotavel {

// The inputs that have come in while their turn is later, in their order.

// Keeps a copy of an input of a window. The toolkit takes the event itself for delivered.
void KeepInput(QWindow& window, QEvent& event);

bool IsInputKept();

// Sends the input that has waited longest: to its window, a key to what has the keyboard now. One
// whose window has gone, or must wait for an answer elsewhere, is dropped.
void SendInputKept();

}  // namespace rotavel
