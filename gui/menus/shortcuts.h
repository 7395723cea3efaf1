#pragma once

#include <QKeySequence>
#include <QString>

class QAction;
class QKeyEvent;
class QObject;

namespace rotavel {

// A menu item's text taken apart: the title without "&" and, behind the first tab, the shortcut.
struct ItemText {
    QString Title;
    QKeySequence Shortcut;
};

ItemText ParseItemText(QString text);

// The shortcut alone: tokens joined by "+". Empty when there is no key among them.
QKeySequence ParseShortcut(const QString& text);

// Leaves an item's keys written in its menu but to another command that has them too.
void GiveUpKeys(QAction& action);

// Whether a key pressed in a native window, which no menu item of that window's has, is one for its
// menu bar or, where it has none, for the application menu of the program's bar: then it is done.
bool TakesMenuKey(const QObject* nativeWindow, const QKeyEvent& event);

}  // namespace rotavel
