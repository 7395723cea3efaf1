#pragma once

#include <cstdint>

class QAction;
class QMenu;
class QMenuBar;

namespace rotavel {

// Turns choices in menus into events. One serves every menu bar.
class QzMenuDelegate {
  public:
    static QzMenuDelegate& Shared();

    // The window that the application menu's events name, -1 for none.
    void SetWindowID(std::int64_t id) { WindowID = id; }

    void Preferences() const;
    void About() const;
    void Terminate() const;
    // An item of the program's own was chosen; `window` is the number of its bar's window.
    void EventHandler(const QAction* item, std::int64_t window) const;

  private:
    std::int64_t WindowID = -1;
};

// An application menu and those of its items that the program can enable.
struct ApplicationMenu {
    QMenu* Menu;
    QAction* About;
    QAction* Preferences;
};

// Makes the application menu the first menu of a new bar.
ApplicationMenu AddApplicationMenu(QMenuBar& bar);

}  // namespace rotavel
