#include "gui/menu.h"

#include <algorithm>
#include <memory>

#include <QMenuBar>
#include <QPixmap>
#include <QPointer>

#include "gui/menus/application_menu.h"
#include "gui/menus/menu_bars.h"
#include "gui/menus/shortcut_text.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/toolkit/text.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

struct MenuRecord;

// Stands for a menu record towards the items of its bar, and goes with the record.
class QzMenuObject final : public QObject {
  public:
    QzMenuObject(QMenuBar* bar, const MenuRecord* menu);

  private:
    const MenuRecord* const Menu;
};

struct MenuRecord {
    QPointer<QzWindow> Window;
    QPointer<QMenuBar> Bar;  // owned by the window while it is installed there
    ApplicationMenu Application = {};
    std::unique_ptr<QzMenuObject> Object;
};

QzMenuObject::QzMenuObject(QMenuBar* bar, const MenuRecord* menu) : Menu(menu) {
    connect(bar, &QMenuBar::triggered, this, [this](const QAction* item) {
        // The application menu's items carry no number: they have actions of their own.
        if (item->data().isValid()) {
            QzMenuDelegate::Shared().EventHandler(item, WindowNumberOf(Menu->Window));
        }
    });
}

NumberedObjects<MenuRecord> registry;

// The bar being built, and the menu, or the bar itself, that new items go into.
MenuRecord* building = nullptr;
QPointer<QWidget> currentMenu;

constexpr const char* PlainBarName = "plain";

QString Title(std::u16string_view text) {
    return ToQString(text).remove('&');
}

QMenuBar* MakeBar(QzWindow* window) {
    auto* const bar = new QMenuBar(window);
    bar->setNativeMenuBar(false);
    return bar;
}

// The window's bar with nothing but the application menu, made at the first need.
QMenuBar* PlainBar(QzWindow* window) {
    auto* bar = window->findChild<QMenuBar*>(PlainBarName, Qt::FindDirectChildrenOnly);
    if (bar == nullptr) {
        bar = MakeBar(window);
        bar->setObjectName(PlainBarName);
        AddApplicationMenu(*bar);
    }
    return bar;
}

// Whether a bar has a command with this shortcut already.
bool HasShortcut(const QMenuBar& bar, const QKeySequence& keys) {
    const QList<QAction*> actions = bar.findChildren<QAction*>();
    return std::any_of(actions.begin(), actions.end(),
                       [&keys](const QAction* action) { return action->shortcut() == keys; });
}

void FreeOne(std::int64_t number, const MenuRecord& record) {
    if (building == &record) {
        building = nullptr;
        currentMenu = nullptr;
    }
    QMenuBar* const bar = record.Bar;
    QzWindow* const window = record.Window;
    registry.Remove(number);
    if (bar == nullptr) {
        return;
    }
    if (window != nullptr && window->Layout().MenuBar() == bar) {
        window->Layout().SetMenuBar(PlainBar(window));
    }
    Retire(bar);  // the choice of one of its items may be under way
}

// About and Preferences are there for a program that asks for them; Quit always is.
void EnableApplicationItem(std::int64_t number) {
    if (number == AboutItem) {
        building->Application.About->setEnabled(true);
    } else if (number == PreferencesItem) {
        building->Application.Preferences->setEnabled(true);
    }
}

// Number and record of the first menu bar of a window; a null record when it has none.
std::pair<std::int64_t, MenuRecord*> FirstOf(const QzWindow* window) {
    auto next = registry.First();
    while (next.second != nullptr && next.second->Window != window) {
        next = registry.After(next.first);
    }
    return next;
}

// What windows mean to menu bars.
class MenuObserver final : public WindowObserver {
  public:
    void WindowBecameKey(QzWindow& window) override {
        const MenuRecord* const record = FirstOf(&window).second;
        if (record != nullptr) {
            window.Layout().SetMenuBar(record->Bar);
            QzMenuDelegate::Shared().SetWindowID(WindowNumberOf(&window));
        }
    }
    void WindowCloses(QzWindow& window, WindowNumber) override {
        const auto [number, record] = FirstOf(&window);
        if (record != nullptr) {
            record->Window = nullptr;  // no other bar takes its place: the window goes
            FreeOne(number, *record);
        }
    }
};

}  // namespace

WindowObserver& MenusAsObserver() {
    static MenuObserver observer;
    return observer;
}

std::int64_t MenuCreate(std::int64_t number, NativeWindow* handle) {
    QzWindow* const window = FromHandle(handle);
    if (window == nullptr || number < AnyNumber) {
        return 0;
    }
    if (number != AnyNumber) {
        FreeMenu(number);
    }
    const auto [id, record] = registry.Create(number);
    QMenuBar* const bar = MakeBar(window);
    *record = {window, bar, AddApplicationMenu(*bar), std::make_unique<QzMenuObject>(bar, record)};
    const bool isKey = window == QzWindow::ChosenKeyWindow();
    if (isKey || FirstOf(window).second == record) {
        window->Layout().SetMenuBar(bar);
    }
    if (isKey) {
        QzMenuDelegate::Shared().SetWindowID(WindowNumberOf(window));
    }
    building = record;
    currentMenu = nullptr;
    return CreationResult(number, id, bar);
}

void MenuTitle(std::u16string_view text) {
    if (building != nullptr && building->Bar != nullptr) {
        currentMenu = building->Bar;
        MenuOpenSubmenu(text);
    }
}

void MenuItem(std::int64_t number, std::u16string_view text, NativeImage* image) {
    if (building == nullptr || building->Bar == nullptr) {
        return;
    }
    if (number == PreferencesItem || number == AboutItem || number == QuitItem) {
        QzMenuDelegate::Shared().SetWindowID(WindowNumberOf(building->Window));
        EnableApplicationItem(number);
        return;
    }
    if (currentMenu == nullptr) {
        return;
    }
    const ItemText item = ParseItemText(ToQString(text));
    const bool isTaken = !item.Shortcut.isEmpty() && HasShortcut(*building->Bar, item.Shortcut);
    auto* const action = new QAction(item.Title, currentMenu);
    currentMenu->addAction(action);
    action->setShortcut(item.Shortcut);
    if (isTaken) {
        // The first in the bar has the keys; two with equal rights would be none to the toolkit.
        action->setShortcutContext(Qt::WidgetShortcut);
    }
    if (image != nullptr) {
        action->setIcon(QPixmap::fromImage(*FromHandle(image)));
    }
    action->setData(QVariant::fromValue<qlonglong>(number));
}

void MenuSeparator() {
    if (currentMenu != nullptr) {
        auto* const separator = new QAction(currentMenu);
        separator->setSeparator(true);
        currentMenu->addAction(separator);
    }
}

void MenuOpenSubmenu(std::u16string_view text) {
    if (currentMenu != nullptr) {
        auto* const menu = new QMenu(Title(text), currentMenu);
        menu->setSeparatorsCollapsible(false);
        currentMenu->addAction(menu->menuAction());
        currentMenu = menu;
    }
}

void MenuCloseSubmenu() {
    if (currentMenu != nullptr) {
        currentMenu = currentMenu == building->Bar ? nullptr : currentMenu->parentWidget();
    }
}

void WindowAddShortcut(WindowNumber window, std::u16string_view keys, std::int64_t menuItem) {
    if (WindowRecord* const record = WindowRegistry().Find(window)) {
        record->Shortcuts.emplace_back(ParseShortcut(ToQString(keys)), menuItem);
    }
}

void FreeMenu(std::int64_t number) {
    if (number == AnyNumber) {
        for (auto next = registry.First(); next.second != nullptr; next = registry.First()) {
            FreeOne(next.first, *next.second);
        }
    } else if (const MenuRecord* const record = registry.Find(number)) {
        FreeOne(number, *record);
    }
}

}  // namespace rotavel
