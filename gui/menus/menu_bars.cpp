#include "gui/menus/menu_bars.h"

#include <vector>

#include "gui/menus/application_menu.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

constexpr const char* PlainBarName = "plain";

// The window's bar with nothing but the application menu, made at the first need.
QzMenuBar* PlainBar(QzWindow& window) {
    auto* bar = dynamic_cast<QzMenuBar*>(
        window.findChild<QMenuBar*>(PlainBarName, Qt::FindDirectChildrenOnly));
    if (bar == nullptr) {
        bar = new QzMenuBar(&window);
        bar->setObjectName(PlainBarName);
    }
    return bar;
}

}  // namespace

QzMenuObject::QzMenuObject(const MenuRecord* menu) : Menu(menu) {
    connect(Menu->Bar, &QMenuBar::triggered, this, [this](const QAction* item) {
        // The application menu's items carry no number: they have actions of their own.
        if (item->data().isValid()) {
            QzMenuDelegate::Shared().EventHandler(item, WindowNumberOf(Menu->Window));
        }
    });
}

MenuBars& MenuBars::Shared() {
    static MenuBars shared;
    return shared;
}

std::int64_t MenuBars::Create(std::int64_t number, QzWindow& window) {
    const auto [id, record] = registry.Create(number);
    if (record == nullptr) {
        return 0;  // a callback has taken the number meanwhile
    }
    auto* const bar = new QzMenuBar(&window);
    record->Window = &window;
    record->Bar = bar;
    record->Object = std::make_unique<QzMenuObject>(record);
    builder = MenuBuilder(bar);
    const bool isKey = QzWindow::ChosenKeyWindow() == &window;
    if (isKey) {
        MakeMain(bar, window);
    }
    if (isKey || FirstOf(window).second == record) {
        window.Layout().SetMenuBar(bar);  // last: a callback may free this one
    }
    return CreationResult(number, id, bar);
}

void MenuBars::Free(std::int64_t number) {
    const MenuRecord* const record = registry.Find(number);
    if (record == nullptr) {
        return;
    }
    QzMenuBar* const bar = record->Bar;
    QzWindow* const window = record->Window;
    registry.Remove(number);
    if (bar == nullptr) {
        return;
    }
    if (mainBar == bar) {
        mainBar = nullptr;
    }
    if (window != nullptr && window->Layout().MenuBar() == bar) {
        window->Layout().SetMenuBar(PlainBar(*window));
    }
    Retire(bar);  // the choice of one of its items may be under way
}

void MenuBars::FreeAll() {
    std::vector<std::int64_t> numbers;  // those of now: a callback may make others
    registry.ForEach([&](std::int64_t number, const MenuRecord&) { numbers.push_back(number); });
    for (const std::int64_t number : numbers) {
        Free(number);
    }
}

QzMenuBar& MenuBars::MainBarFor(QzWindow& window) const {
    return mainBar != nullptr ? *mainBar : *PlainBar(window);
}

void MenuBars::WindowBecameKey(QzWindow& window) {
    if (const MenuRecord* const record = FirstOf(window).second) {
        MakeMain(record->Bar, window);
        window.Layout().SetMenuBar(record->Bar);
    }
}

void MenuBars::WindowCloses(QzWindow& window, WindowNumber) {
    const auto [number, record] = FirstOf(window);
    if (record != nullptr) {
        record->Window = nullptr;  // no other bar takes its place: the window goes
        Free(number);
    }
}

void MenuBars::MakeMain(QzMenuBar* bar, const QzWindow& window) {
    mainBar = bar;
    QzMenuDelegate::Shared().SetWindowID(WindowNumberOf(&window));
}

// Number and record of the first menu bar of a window; a null record when it has none.
std::pair<std::int64_t, MenuRecord*> MenuBars::FirstOf(const QzWindow& window) const {
    auto next = registry.First();
    while (next.second != nullptr && next.second->Window != &window) {
        next = registry.After(next.first);
    }
    return next;
}

}  // namespace rotavel
