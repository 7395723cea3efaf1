#pragma once

class QWidget;

namespace rotavel {

// The view that Tab (or, not `forward`, Shift+Tab) goes to from `from`: the order is that of the
// eye, left to right and top to bottom, whatever the order of creation. Null when there is none.
QWidget* NextKeyView(const QWidget& content, const QWidget* from, bool forward);

}  // namespace rotavel
