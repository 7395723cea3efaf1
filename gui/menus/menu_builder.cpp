#include "gui/menus/menu_builder.h"

#include "gui/menus/shortcuts.h"

namespace rotavel {

void MenuBuilder::AddTitle(const QString& title) {
    place = bar;
    OpenSubmenu(title);
}

void MenuBuilder::AddEntry(const MenuEntry& entry) {
    if (place == nullptr) {
        return;
    }
    auto* const menu = dynamic_cast<QzMenu*>(place.data());
    if (menu != nullptr && entry.Keys.isEmpty()) {
        menu->AddLater(entry);
        return;
    }
    if (menu != nullptr) {
        menu->Complete();
    }
    const bool isTaken = bar->HasKeys(entry.Keys);
    QAction* const action = MakeAction(entry, place);
    if (isTaken) {
        GiveUpKeys(*action);
    }
    place->addAction(action);
}

void MenuBuilder::OpenSubmenu(const QString& title) {
    if (place == nullptr) {
        return;
    }
    if (auto* const menu = dynamic_cast<QzMenu*>(place.data())) {
        menu->Complete();
    }
    auto* const submenu = new QzMenu(title, place);
    place->addAction(submenu->menuAction());
    place = submenu;
}

void MenuBuilder::CloseSubmenu() {
    if (place != nullptr) {
        place = place == bar ? nullptr : place->parentWidget();
    }
}

}  // namespace rotavel
