#pragma once

#include <cstdint>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// Numbered menu bars, one a window. Every bar starts with the application menu (About, Preferences,
// Services, Hide, Hide Others, Show All, Quit), titled with the program's name. Choosing an item
// posts MenuChosen with its number and its window's. A callback bound to that event may do
// anything: by then the menu is closed, so it may free the bar (which leaves the screen at once),
// destroy the window, wait or open a requester.
//
// A bar is built from front to back: MenuCreate, then titles, each followed by its items. In every
// text "&" is left out. A text with a tab is a title and a shortcut: tokens joined by "+", of which
// CMD (the Control key where there is no Command key), SHIFT, ALT and CTRL are modifiers and F1 to
// F12 or a single character the key. Where two items of a bar have one shortcut the first has it,
// of those that can be chosen: Ctrl with a comma is the program's own while Preferences is
// disabled.
//
// Alt with the first letter of a title opens its menu, F10 takes the keyboard to the bar; in an
// open menu the first letter of an item chooses it. Where several have one letter it goes from one
// to the next. Disabling a window closes its open menu. A window without a bar answers to the
// shortcuts of the application menu of the window that had the keyboard before it, even if that is
// disabled.

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

// Frees a menu bar; AnyNumber frees all. Where it was on show, its open menu closes and a bar with
// nothing but the application menu takes its place. Its events that wait in the queue stay there.
void FreeMenu(std::int64_t number);

}  // namespace rotavel
