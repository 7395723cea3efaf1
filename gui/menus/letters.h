#pragma once

#include <QChar>
#include <QList>

class QAction;
class QKeyEvent;

namespace rotavel {

// Choosing from bars and menus by letters. A title's or item's letter is the first of its text;
// texts carry no mark for another.

// The letter or digit that a key stands for, with or without Alt; null for every other key.
QChar LetterOf(const QKeyEvent& event);

struct LetterMatch {
    QAction* Action = nullptr;
    bool IsOnly = false;
};

// The next of the actions behind `from` (behind the last comes the first) that has the letter and
// can be chosen.
LetterMatch NextByLetter(const QList<QAction*>& actions, QAction* from, QChar letter);

}  // namespace rotavel
