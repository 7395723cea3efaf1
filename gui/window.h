#pragma once

#include <cstdint>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// Numbered top-level windows. Sizes are those of the content area, the part below the menu bar that
// holds the gadgets; positions are those of the outer frame on the screen. All are whole pixels
// with the origin at the top left. An operation on a number that is not open does nothing and
// returns 0.
//
// A window that its screen has no room for is as large as fits, with the frame on the screen, and
// scrolls: by bars, wheel, keys, and by itself when the pointer nears an edge that cuts the gadget
// under it. Its content keeps the size that was asked for. When the screen becomes another, its
// windows are fitted anew.

inline constexpr std::uint32_t WindowHidden = 1;  // not shown until WindowShow
inline constexpr std::uint32_t WindowResizable = 2;
inline constexpr std::uint32_t WindowCloseBox = 4;
inline constexpr std::uint32_t WindowMaximizeBox = 16;  // with a close box, resizable
inline constexpr std::uint32_t WindowMinimizeBox = 32;  // with a close box
inline constexpr std::uint32_t WindowScreenCentred = 64;
inline constexpr std::uint32_t WindowBorderless = 128;    // no title bar, no boxes
inline constexpr std::uint32_t WindowOwnerCentred = 256;  // over the parent or the key window
inline constexpr std::uint32_t WindowStartZoomed = 512;   // resizable
inline constexpr std::uint32_t WindowStartMiniaturized = 1024;
inline constexpr std::uint32_t WindowOutsideGadgetList = 4096;  // new gadgets go elsewhere
inline constexpr std::uint32_t WindowNotActivated = 8192;

// Modes of the measuring operations.
inline constexpr int OuterFrame = 0;
inline constexpr int InnerContent = 1;

// Opens a window under `number` (AnyNumber for an automatic one; a window that holds the number is
// destroyed first) and, unless it is to stay hidden, shows it: it appears, whole, when the program
// next waits or asks for its frame. An x or y of IgnoreValue centres it on the screen. A parent
// keeps it above that window; a borderless window with a parent is a popup that never takes the
// keyboard, and stands elsewhere on the screen, clear of the pointer, where it would reach beyond.
// Returns the automatic number, else non-zero; 0 when it cannot be made (a side below 1 or above
// 32767 pixels, or more than 64 Mi pixels in all).
std::int64_t WindowCreate(WindowNumber number, std::int64_t x, std::int64_t y, std::int64_t width,
                          std::int64_t height, std::u16string_view title = {},
                          std::uint32_t flags = WindowCloseBox, NativeWindow* parent = nullptr);

// Closes a window with its gadgets, menu and waiting events and, if it had the keyboard, hands that
// back to the window that had it before. AnyNumber closes all.
void WindowDestroy(WindowNumber number);

// Shows or hides a window. Flags: WindowScreenCentred, WindowOwnerCentred, WindowNotActivated.
enum WindowVisibility : bool { Shown = false, Hidden = true };
void WindowShow(WindowNumber number, WindowVisibility hide, std::uint32_t flags = 0);

// Brings a visible window to the front and gives it the keyboard.
void WindowActivate(WindowNumber number);

// Raises the program's windows and activates the one that had the keyboard last. Before the first
// window is open there is nothing to do: a new window comes to the front by itself.
void BringToFront();

// Disables (`state` true) or enables a window: disabled it takes no click, key, menu command or
// shortcut, and the boxes of its title bar are off. Enabling gives back what was enabled before.
void WindowDisable(WindowNumber number, bool state);
bool WindowIsDisabled(WindowNumber number);

// Position and size of the outer frame or the content area.
std::int64_t WindowGetX(WindowNumber number, int mode = OuterFrame);
std::int64_t WindowGetY(WindowNumber number, int mode = OuterFrame);
std::int64_t WindowGetWidth(WindowNumber number, int mode = InnerContent);
std::int64_t WindowGetHeight(WindowNumber number, int mode = InnerContent);

// Moves the frame to x, y and gives the content area a size; IgnoreValue keeps a value.
void WindowSetBounds(WindowNumber number, std::int64_t x, std::int64_t y, std::int64_t width,
                     std::int64_t height);

// Calls `callback` with `userValue` every `milliseconds` (1 and up) for as long as the window is
// open, while the program waits. It may do what a callback of event_queue.h may.
using TimerCallback = void (*)(void* userValue);
void WindowAddTimer(WindowNumber number, int milliseconds, TimerCallback callback, void* userValue);

// The native window, or null.
NativeWindow* WindowNativeHandle(WindowNumber number);
bool WindowExists(WindowNumber number);

}  // namespace rotavel
