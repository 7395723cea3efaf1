#include "gui/gadgets/undo_key.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace rotavel {

void UndoKey::InstallOn(QLineEdit& field) {
    static UndoKey shared;
    field.installEventFilter(&shared);
}

bool UndoKey::eventFilter(QObject* watched, QEvent* event) {
    return Takes(static_cast<QLineEdit&>(*watched), event);
}

bool UndoKey::Takes(QLineEdit& field, QEvent* event) {
    const bool isKey =
        event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
    if (!isKey || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Undo)) {
        return false;
    }
    // The toolkit asks first whether a field wants a key that may be a shortcut, and then presents
    // the key itself, which here has done its work by then.
    if (event->type() == QEvent::ShortcutOverride) {
        if (!field.isReadOnly() && field.echoMode() == QLineEdit::Normal) {
            field.undo();
        }
        event->ignore();
    }
    return true;
}

}  // namespace rotavel
