#pragma once

#include <QObject>

class QLineEdit;

namespace rotavel {

// Lets the undo key of a field act as everywhere in the program: the field undoes its last edit
// and the key goes on to a menu item that has it as its shortcut.
class UndoKey final : public QObject {
  public:
    static void InstallOn(QLineEdit& field);
    // The same for a field that gets its keys from a widget around it: whether the event was the
    // undo key and has been dealt with.
    static bool Takes(QLineEdit& field, QEvent* event);

    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace rotavel
