#include "gui/menus/qz_menu.h"

#include <utility>

#include <QKeyEvent>
#include <QMouseEvent>

#include "gui/menus/letters.h"

namespace rotavel {

QAction* MakeAction(const MenuEntry& entry, QObject* parent) {
    auto* const action = new QAction(entry.Icon, entry.Title, parent);
    action->setSeparator(entry.IsSeparator);
    action->setShortcut(entry.Keys);
    action->setData(QVariant::fromValue<qlonglong>(entry.Number));
    return action;
}

QzMenu::QzMenu(const QString& title, QWidget* parent) : QMenu(title, parent) {
    setSeparatorsCollapsible(false);
    connect(this, &QMenu::aboutToShow, this, &QzMenu::Complete);
}

void QzMenu::AddLater(MenuEntry entry) {
    later.push_back(std::move(entry));
}

void QzMenu::Complete() {
    for (const MenuEntry& entry : std::exchange(later, {})) {
        addAction(MakeAction(entry, this));
    }
}

void QzMenu::keyPressEvent(QKeyEvent* event) {
    // The toolkit would close the menu before the letter comes that Alt is pressed for.
    isAltAlone = event->key() == Qt::Key_Alt;
    if (isAltAlone) {
        return;
    }
    const QChar letter = LetterOf(*event);
    if (letter.isNull() || (event->modifiers() & Qt::AltModifier) != 0) {
        QMenu::keyPressEvent(event);  // lets the bar have a letter with Alt
        return;
    }
    const LetterMatch match = NextByLetter(actions(), activeAction(), letter);
    if (match.Action == nullptr) {
        return;
    }
    Select(*match.Action);
    if (match.IsOnly) {
        Press(Qt::Key_Return);
    }
}

void QzMenu::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Alt && std::exchange(isAltAlone, false)) {
        Press(Qt::Key_Alt);
        return;
    }
    QMenu::keyReleaseEvent(event);
}

void QzMenu::mousePressEvent(QMouseEvent* event) {
    if (opener != nullptr &&
        opener->rect().contains(opener->mapFromGlobal(event->globalPosition().toPoint()))) {
        setAttribute(Qt::WA_NoMouseReplay);
    }
    QMenu::mousePressEvent(event);
}

void QzMenu::SelectFirst() {
    Press(Qt::Key_Down);
}

void QzMenu::Press(Qt::Key key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QMenu::keyPressEvent(&press);
}

void QzMenu::Select(QAction& action) {
    if (action.menu() == nullptr) {
        setActiveAction(&action);
        return;
    }
    // A submenu opens at once when its item is selected from outside, and would have the next key.
    for (qsizetype steps = actions().size(); steps > 0 && activeAction() != &action; --steps) {
        Press(Qt::Key_Down);
    }
}

}  // namespace rotavel
