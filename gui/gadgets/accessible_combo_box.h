#pragma once

#include <QComboBox>

namespace rotavel {

// Has a screen reader call a plain combo box by its accessible name; the toolkit gives the text of
// the selected item there, and the name only by way of a label.
void NameByAccessibleName(QComboBox& box);

}  // namespace rotavel
