#include "gui/menus/letters.h"

#include <QAction>
#include <QKeyEvent>

namespace rotavel {

namespace {

bool HasLetter(const QAction& action, QChar letter) {
    return action.isEnabled() && action.text().startsWith(letter, Qt::CaseInsensitive);
}

}  // namespace

QChar LetterOf(const QKeyEvent& event) {
    constexpr Qt::KeyboardModifiers allowed =
        Qt::AltModifier | Qt::ShiftModifier | Qt::KeypadModifier;
    const QString text = event.text();
    const bool isLetter =
        (event.modifiers() & ~allowed) == 0 && text.size() == 1 && text.front().isLetterOrNumber();
    return isLetter ? text.front() : QChar();
}

LetterMatch NextByLetter(const QList<QAction*>& actions, QAction* from, QChar letter) {
    LetterMatch match;
    const qsizetype start = actions.indexOf(from);  // -1 for none: the search begins at the first
    for (qsizetype step = 1; step <= actions.size(); ++step) {
        QAction* const action = actions[(start + step) % actions.size()];
        if (!HasLetter(*action, letter)) {
            continue;
        }
        match.IsOnly = match.Action == nullptr;
        if (!match.IsOnly) {
            break;
        }
        match.Action = action;
    }
    return match;
}

}  // namespace rotavel
