#pragma once

class QWidget;

namespace rotavel {

// Closes the menus and lists that are open and stem from a widget, the newest first.
void ClosePopupsOf(const QWidget& widget);

}  // namespace rotavel
