#pragma once

#include <cstdint>

#include <QPointer>

#include "gui/menus/qz_menu.h"
#include "gui/menus/qz_menu_bar.h"

namespace rotavel {

// Fills a menu bar from front to back: knows where the next item goes.
class MenuBuilder {
  public:
    explicit MenuBuilder(QzMenuBar* filledBar) : bar(filledBar) {}

    // Null when the bar has gone.
    QzMenuBar* Bar() const { return bar; }

    // Without a bar, and the others where no menu is open, what is added is dropped.
    void AddTitle(const QString& title);
    void AddEntry(const MenuEntry& entry);
    void OpenSubmenu(const QString& title);
    void CloseSubmenu();

  private:
    QPointer<QzMenuBar> bar;
    QPointer<QWidget> place;  // the menu, or the bar itself, that new entries go into
};

}  // namespace rotavel
