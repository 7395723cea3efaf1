#pragma once

#include <QKeySequence>
#include <QString>

namespace rotavel {

// A menu item's text taken apart: the title without "&" and, behind the first tab, the shortcut.
struct ItemText {
    QString Title;
    QKeySequence Shortcut;
};

ItemText ParseItemText(QString text);

}  // namespace rotavel
