#include "gui/menu.h"

#include <QPixmap>

#include "gui/menus/application_menu.h"
#include "gui/menus/menu_bars.h"
#include "gui/menus/shortcuts.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/text.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

QString Title(std::u16string_view text) {
    return ToQString(text).remove('&');
}

}  // namespace

std::int64_t MenuCreate(std::int64_t number, NativeWindow* handle) {
    QzWindow* const window = FromHandle(handle);
    if (window == nullptr) {
        return 0;
    }
    if (number != AnyNumber) {
        FreeMenu(number);
    }
    return MenuBars::Shared().Create(number, *window);
}

void MenuTitle(std::u16string_view text) {
    MenuBars::Shared().Builder().AddTitle(Title(text));
}

void MenuItem(std::int64_t number, std::u16string_view text, NativeImage* image) {
    MenuBuilder& builder = MenuBars::Shared().Builder();
    if (builder.Bar() == nullptr) {
        return;
    }
    if (number == PreferencesItem || number == AboutItem || number == QuitItem) {
        QzMenuDelegate::Shared().SetWindowID(WindowNumberOf(builder.Bar()));
        builder.Bar()->EnableApplicationItem(number);
        return;
    }
    const ItemText item = ParseItemText(ToQString(text));
    const QIcon icon = image == nullptr ? QIcon() : QIcon(QPixmap::fromImage(*FromHandle(image)));
    builder.AddEntry({number, item.Title, item.Shortcut, icon});
}

void MenuSeparator() {
    MenuEntry separator;
    separator.IsSeparator = true;
    MenuBars::Shared().Builder().AddEntry(separator);
}

void MenuOpenSubmenu(std::u16string_view text) {
    MenuBars::Shared().Builder().OpenSubmenu(Title(text));
}

void MenuCloseSubmenu() {
    MenuBars::Shared().Builder().CloseSubmenu();
}

void FreeMenu(std::int64_t number) {
    if (number == AnyNumber) {
        MenuBars::Shared().FreeAll();
    } else {
        MenuBars::Shared().Free(number);
    }
}

}  // namespace rotavel
