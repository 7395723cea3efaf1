#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include <QObject>
#include <QPointer>

#include "gui/menus/menu_builder.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_observer.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

struct MenuRecord;

// Stands for a menu record towards the items of its bar, and goes with the record.
class QzMenuObject final : public QObject {
  public:
    explicit QzMenuObject(const MenuRecord* menu);

  private:
    const MenuRecord* const Menu;
};

// What the layer knows of one menu bar.
struct MenuRecord {
    QPointer<QzWindow> Window;
    QPointer<QzMenuBar> Bar;  // a child of the window
    std::unique_ptr<QzMenuObject> Object;
};

// The menu bars by number: which is on which window, and which one is the program's.
class MenuBars final : public WindowObserver {
  public:
    static MenuBars& Shared();

    // Makes a bar for a window. Returns what MenuCreate does.
    std::int64_t Create(std::int64_t number, QzWindow& window);
    void Free(std::int64_t number);
    void FreeAll();

    // Of the bar made last.
    MenuBuilder& Builder() { return builder; }
    // What serves the application menu's keys in a window without a bar of its own: the bar of the
    // window that had the keyboard last, of those that have one, else one that is not seen.
    QzMenuBar& MainBarFor(QzWindow& window) const;

    void WindowBecameKey(QzWindow& window) override;
    void WindowCloses(QzWindow& window, WindowNumber number) override;

  private:
    std::pair<std::int64_t, MenuRecord*> FirstOf(const QzWindow& window) const;
    void MakeMain(QzMenuBar* bar, const QzWindow& window);

    NumberedObjects<MenuRecord> registry;
    MenuBuilder builder{nullptr};
    QPointer<QzMenuBar> mainBar;
};

}  // namespace rotavel
