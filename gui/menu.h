#pragma once

#include <cstdint>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// Numbered menu bars, one a window. Every bar starts with the application menu (About, Preferences,
// Services, Hide, Hide Others, Show All, Quit), titled with the program's name. Choosing an item
// posts MenuChosen with its number and its window's.
//
// A bar is built from front to back: MenuCreate, then titles, each followed by its items. In every
// text "&" is left out. A text with a tab is a title and a shortcut: tokens joined by "+", of which
// CMD (the Control key where there is no Command key), SHIFT, ALT and CTRL are modifiers and F1 to
// F12 or a single character the key. Where two items of a bar have one shortcut the first has it.

// Numbers of the application menu's own items. Adding an item with one of them adds none but
// enables the application menu's (Quit always is enabled), whose events then name this window.
inline constexpr std::int64_t PreferencesItem = -2;
inline constexpr std::int64_t AboutItem = -3;
inline constexpr std::int64_t QuitItem = -4;

// Puts a new menu bar on a window and makes it the one being built (a bar that holds the number is
// freed first). Returns the automatic number for AnyNumber, else non-zero; 0 on failure.
std::int64_t MenuCreate(std::int64_t number, NativeWindow* window);

void MenuTitle(std::u16string_view text);
// Items before any title are dropped. The image may be null.
void MenuItem(std::int64_t number, std::u16string_view text, NativeImage* image = nullptr);
void MenuSeparator();
void MenuOpenSubmenu(std::u16string_view text);
// Goes back to the menu that the open submenu lies in; from a title's menu that is the bar itself,
// and behind the bar there is none: items are then dropped until the next title.
void MenuCloseSubmenu();

// Makes keys, written as in an item's text ("CTRL+SHIFT+S"), choose a menu item of a number of the
// window's while it has the keyboard. They come before menus and gadgets.
void WindowAddShortcut(WindowNumber window, std::u16string_view keys, std::int64_t menuItem);

// Frees a menu bar; AnyNumber frees all. Where it was on show, a bar with nothing but the
// application menu takes its place.
void FreeMenu(std::int64_t number);

}  // namespace rotavel
