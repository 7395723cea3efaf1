#include "gui/menus/application_menu.h"

#include <functional>

#include <QCoreApplication>
#include <QFileInfo>
#include <QMenuBar>

#include "gui/events/event_posting.h"
#include "gui/menu.h"
#include "gui/menus/qz_menu.h"
#include "gui/windows/window_list.h"

namespace rotavel {

namespace {

QString ApplicationName() {
    return QFileInfo(QCoreApplication::applicationFilePath()).fileName();
}

// Without an action: an item that other platforms have and this one has nothing for.
QAction* AddCommand(QMenu& menu, const QString& title, const QKeySequence& keys = {},
                    const std::function<void()>& action = {}) {
    QAction* const item = menu.addAction(title);
    item->setShortcut(keys);
    item->setEnabled(action != nullptr);
    if (action) {
        QObject::connect(item, &QAction::triggered, item, action);
    }
    return item;
}

}  // namespace

QzMenuDelegate& QzMenuDelegate::Shared() {
    static QzMenuDelegate shared;
    return shared;
}

void QzMenuDelegate::Preferences() const {
    QueueEvent(MenuChosen, PreferencesItem, WindowID, 0);
}

void QzMenuDelegate::About() const {
    QueueEvent(MenuChosen, AboutItem, WindowID, 0);
}

void QzMenuDelegate::Terminate() const {
    QueueEvent(MenuChosen, QuitItem, WindowID, 0);
}

void QzMenuDelegate::EventHandler(const QAction* item, std::int64_t window) const {
    QueueEvent(MenuChosen, item->data().toLongLong(), window, 0);
}

ApplicationMenu AddApplicationMenu(QMenuBar& bar) {
    const QString title = ApplicationName().replace('&', "&&");
    auto& menu = *new QzMenu(title, &bar);
    bar.addMenu(&menu);
    QzMenuDelegate& delegate = QzMenuDelegate::Shared();

    QAction* const about =
        AddCommand(menu, "About " + title, {}, [&delegate] { delegate.About(); });
    menu.addSeparator();
    QAction* const preferences =
        AddCommand(menu, QStringLiteral("Preferences\u2026"), Qt::CTRL | Qt::Key_Comma,
                   [&delegate] { delegate.Preferences(); });
    menu.addSeparator();
    AddCommand(menu, "Services");
    menu.addSeparator();
    AddCommand(menu, "Hide " + title, Qt::CTRL | Qt::Key_H, &MiniaturizeWindows);
    AddCommand(menu, "Hide Others", Qt::CTRL | Qt::ALT | Qt::Key_H);
    AddCommand(menu, "Show All", {}, &DeminiaturizeWindows);
    menu.addSeparator();
    AddCommand(menu, "Quit " + title, Qt::CTRL | Qt::Key_Q, [&delegate] { delegate.Terminate(); });

    about->setEnabled(false);
    preferences->setEnabled(false);
    return {&menu, about, preferences};
}

}  // namespace rotavel
