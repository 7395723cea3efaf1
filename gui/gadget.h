#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// What can be done with a gadget (a control inside a window) of any kind, by its number. Each kind
// has a header with its creation function, flags and what these operations mean to it; an operation
// that a kind does not serve does nothing and returns 0 or an empty text, as does every operation
// on a number that is not open; only GetGadgetFont returns AnyNumber then.
//
// A creation function takes a number (0 and up, or AnyNumber, -1, for an automatic one; a gadget
// that holds the number is freed first), a position in the current container and a size, all in
// pixels, and returns the automatic number, else non-zero; 0 when there is no window to put the
// gadget in, or a callback to what freeing posts has taken the number.
//
// A gadget belongs to the window that is current when it is created (gadget_list.h), also when the
// container lies in another: its events name that window, and it is freed when that one closes.
// Freeing a gadget frees those that it contains.
//
// Each operation may post events, whose callbacks run at once (BindEvent). A callback may free any
// gadget, its own too, close any window, create gadgets under numbers just freed, wait for events
// and open a requester: the operation that posted then finds what is left, and does nothing to what
// is not. Native objects of what is gone are deleted by the program's outermost wait.

bool GadgetExists(GadgetNumber number);

// Frees a gadget; AnyNumber frees all.
void FreeGadget(GadgetNumber number);

// Gives a gadget's window and then the gadget the keyboard, unless the window is disabled; a gadget
// that takes no keys leaves it where it is in the window. AnyNumber takes the keyboard from every
// gadget of the key window.
void ActivateGadget(GadgetNumber number);

// `state` true disables, or hides. A gadget that is disabled with the keyboard gives it to none.
void DisableGadget(GadgetNumber number, bool state);
void HideGadget(GadgetNumber number, bool state);
void GadgetToolTip(GadgetNumber number, std::u16string_view text);

// What a screen reader calls the gadget; an empty text leaves that to the gadget's own text.
void GadgetName(GadgetNumber number, std::u16string_view text);

// Position in the gadget's container (mode 0), on the screen (1) or in its window's content (2).
inline constexpr int InContainer = 0;
inline constexpr int OnScreen = 1;
inline constexpr int InWindow = 2;
std::int64_t GadgetX(GadgetNumber number, int mode = InContainer);
std::int64_t GadgetY(GadgetNumber number, int mode = InContainer);
std::int64_t GadgetWidth(GadgetNumber number);
std::int64_t GadgetHeight(GadgetNumber number);
// IgnoreValue keeps a value.
void ResizeGadget(GadgetNumber number, std::int64_t x, std::int64_t y, std::int64_t width,
                  std::int64_t height);

void SetGadgetText(GadgetNumber number, std::u16string_view text);
std::u16string GetGadgetText(GadgetNumber number);
void SetGadgetState(GadgetNumber number, std::int64_t state);
std::int64_t GetGadgetState(GadgetNumber number);
void SetGadgetAttribute(GadgetNumber number, std::int64_t attribute, std::int64_t value);
std::int64_t GetGadgetAttribute(GadgetNumber number, std::int64_t attribute);

// Sets the font (a number of font.h, or AnyNumber for the system's own) of a gadget or, for gadget
// AnyNumber, of every gadget created from now on.
void SetGadgetFont(GadgetNumber number, std::int64_t font);
// The number of the font set, AnyNumber for none.
std::int64_t GetGadgetFont(GadgetNumber number);

// Colours are 32-bit RGBA, red in the lowest byte; NoGadgetColor stands for the kind's own.
inline constexpr std::int64_t NoGadgetColor = -1;
inline constexpr std::int64_t GadgetFrontColor = 1;
inline constexpr std::int64_t GadgetBackColor = 2;
void SetGadgetColor(GadgetNumber number, std::int64_t type, std::int64_t colour);
std::int64_t GetGadgetColor(GadgetNumber number, std::int64_t type);

// Items are counted from 0; position -1 appends. Adding returns non-zero when an item was added.
std::int64_t AddGadgetItem(GadgetNumber number, std::int64_t position, std::u16string_view text,
                           NativeImage* image = nullptr, std::uint32_t flags = 0);
void RemoveGadgetItem(GadgetNumber number, std::int64_t item);
void ClearGadgetItems(GadgetNumber number);
std::int64_t CountGadgetItems(GadgetNumber number);
void SetGadgetItemText(GadgetNumber number, std::int64_t item, std::u16string_view text,
                       std::int64_t column = 0);
std::u16string GetGadgetItemText(GadgetNumber number, std::int64_t item, std::int64_t column = 0);
void SetGadgetItemData(GadgetNumber number, std::int64_t item, std::int64_t value);
std::int64_t GetGadgetItemData(GadgetNumber number, std::int64_t item);
void SetGadgetItemImage(GadgetNumber number, std::int64_t item, NativeImage* image);
void SetGadgetItemState(GadgetNumber number, std::int64_t item, std::int64_t state);
std::int64_t GetGadgetItemState(GadgetNumber number, std::int64_t item);
void SetGadgetItemAttribute(GadgetNumber number, std::int64_t item, std::int64_t attribute,
                            std::int64_t value, std::int64_t column = 0);
std::int64_t GetGadgetItemAttribute(GadgetNumber number, std::int64_t item, std::int64_t attribute,
                                    std::int64_t column = 0);
void SetGadgetItemColor(GadgetNumber number, std::int64_t item, std::int64_t type,
                        std::int64_t colour, std::int64_t column = 0);
std::int64_t GetGadgetItemColor(GadgetNumber number, std::int64_t item, std::int64_t type,
                                std::int64_t column = 0);
std::int64_t AddGadgetColumn(GadgetNumber number, std::int64_t position, std::u16string_view title,
                             std::int64_t width);
void RemoveGadgetColumn(GadgetNumber number, std::int64_t column);

// Makes a gadget that can hold others the container of the gadgets created next, until
// CloseGadgetList.
void OpenGadgetList(GadgetNumber number, std::int64_t item = 0);
void CloseGadgetList();

}  // namespace rotavel
