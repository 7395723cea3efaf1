#include "gui/menus/qz_menu_bar.h"

#include <algorithm>

#include <QApplication>
#include <QKeyEvent>
#include <QStyleOptionMenuItem>
#include <QToolButton>

#include "gui/menu.h"
#include "gui/menus/letters.h"
#include "gui/menus/qz_menu.h"
#include "gui/menus/shortcuts.h"
#include "gui/windows/popups.h"

namespace rotavel {

namespace {

// The toolkit's name for the button that opens what it has no room for.
constexpr const char* RestButtonName = "qt_menubar_ext_button";

}  // namespace

QzMenuBar::QzMenuBar(QWidget* window) : QMenuBar(window), application(AddApplicationMenu(*this)) {
    setNativeMenuBar(false);
    hide();  // a window may have several bars, and shows the one that its layout is given
    TakeOverRest();
}

// The toolkit would open the rest in an event loop of its own, which nothing but an answer ends.
void QzMenuBar::TakeOverRest() {
    auto* const button = findChild<QToolButton*>(RestButtonName);
    if (button == nullptr) {
        return;
    }
    rest = new QzMenu({}, this);
    rest->SetOpener(button);
    button->setMenu(rest);
    disconnect(button, &QToolButton::pressed, nullptr, nullptr);
    connect(button, &QToolButton::pressed, this, [this] { OpenRest(); });
    connect(rest, &QMenu::triggered, this, &QMenuBar::triggered);
    connect(rest, &QMenu::aboutToHide, button, [button] { button->setDown(false); });
}

void QzMenuBar::OpenRest() {
    const QWidget* const button = findChild<QToolButton*>(RestButtonName);
    const QPoint corner = button->mapToGlobal(button->rect().bottomRight());
    rest->popup(corner - QPoint(rest->sizeHint().width() - 1, -1));
}

bool QzMenuBar::HasKeys(const QKeySequence& keys) const {
    const QList<QAction*> actions = findChildren<QAction*>();
    return !keys.isEmpty() &&
           std::any_of(actions.begin(), actions.end(), [&keys](const QAction* action) {
               return action->isEnabled() && action->shortcut() == keys;
           });
}

void QzMenuBar::EnableApplicationItem(std::int64_t number) {
    if (number == AboutItem) {
        application.About->setEnabled(true);
    }
    if (number != PreferencesItem) {
        return;
    }
    application.Preferences->setEnabled(true);
    for (QAction* const action : findChildren<QAction*>()) {
        if (action != application.Preferences &&
            action->shortcut() == application.Preferences->shortcut()) {
            GiveUpKeys(*action);
        }
    }
}

bool QzMenuBar::TakesKey(const QKeyEvent& event) {
    if (!isVisible() || !isEnabled() || event.isAutoRepeat()) {
        return false;
    }
    if (event.keyCombination() == QKeyCombination(Qt::Key_F10)) {
        TakeKeyboard();
        return true;
    }
    const QChar letter = LetterOf(event);
    return (event.modifiers() & Qt::AltModifier) != 0 && OpenByLetter(letter);
}

bool QzMenuBar::TakesApplicationKey(const QKeyEvent& event) {
    const QKeySequence keys(event.keyCombination());
    for (QAction* const action : application.Menu->actions()) {
        if (action->isEnabled() && action->shortcut() == keys) {
            action->trigger();
            return true;
        }
    }
    return false;
}

bool QzMenuBar::OpenByLetter(QChar letter) {
    QAction* const title = NextByLetter(actions(), activeAction(), letter).Action;
    if (title == nullptr) {
        return false;
    }
    ForgetAlt();
    if (title->menu() == nullptr || !title->menu()->isVisible()) {
        Open(*title);
    }
    return true;
}

void QzMenuBar::Open(QAction& title) {
    auto* const menu = dynamic_cast<QzMenu*>(title.menu());
    if (menu == nullptr) {
        title.trigger();
        return;
    }
    if (actionGeometry(&title).isNull() && rest != nullptr) {
        OpenRest();
        rest->setActiveAction(&title);
    } else {
        setActiveAction(&title);
    }
    menu->SelectFirst();
}

// The toolkit goes to its bar when Alt is pressed and released and nothing comes between.
void QzMenuBar::TakeKeyboard() {
    QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
    QMenuBar::eventFilter(window(), &press);
    QMenuBar::eventFilter(window(), &release);
}

// What Alt was pressed for is done: its release is not to take the keyboard to the bar.
void QzMenuBar::ForgetAlt() {
    QShortcutEvent done(QKeySequence(), 0);
    QMenuBar::eventFilter(window(), &done);
}

bool QzMenuBar::eventFilter(QObject* object, QEvent* event) {
    if (!isEnabled() && event->type() == QEvent::ShortcutOverride) {
        return false;
    }
    return QMenuBar::eventFilter(object, event);
}

void QzMenuBar::changeEvent(QEvent* event) {
    QMenuBar::changeEvent(event);
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        ForgetAlt();
    }
}

void QzMenuBar::hideEvent(QHideEvent* event) {
    QMenuBar::hideEvent(event);
    ClosePopupsOf(*this);
}

void QzMenuBar::initStyleOption(QStyleOptionMenuItem* option, const QAction* action) const {
    QMenuBar::initStyleOption(option, action);
    // The style shows the title of an open menu only, so that nobody would see where the keys go.
    if (hasFocus() && action == activeAction()) {
        option->state |= QStyle::State_Selected | QStyle::State_Sunken;
    }
}

void QzMenuBar::keyPressEvent(QKeyEvent* event) {
    const QChar letter = LetterOf(*event);
    if (letter.isNull()) {
        QMenuBar::keyPressEvent(event);
        return;
    }
    OpenByLetter(letter);
}

}  // namespace rotavel
