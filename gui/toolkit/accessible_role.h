#pragma once

#include <QAccessible>
#include <QWidget>

namespace rotavel {

// Has a screen reader take a view of the layer's own for what it is; the toolkit cannot know.
void SetAccessibleRole(QWidget& view, QAccessible::Role role);

}  // namespace rotavel
