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

// The shortcut alone: tokens joined by "+". Empty when there is no key among them.
QKeySequence ParseShortcut(const QString& text);

}  // namespace rotavel
