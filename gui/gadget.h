#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "gui/handles.h"

namespace rotavel {

// What can be done with a gadget (a control inside a window) of any kind, by its number. Each kind
// has a header with its creation function, flags and what these operations mean to it; an operation
// that a kind does not serve does nothing and returns 0 or an empty text, as does every operation
// on a number that is not open.
//
// A creation function takes a number (0 and up, or AnyNumber; a gadget that holds the number is
// freed first), a position in the current container and a size, all in pixels, and returns the
// automatic number, else non-zero; 0 when there is no window to put the gadget in.

bool GadgetExists(std::int64_t number);

// Frees a gadget; AnyNumber frees all.
void FreeGadget(std::int64_t number);

// Gives a gadget's window and then the gadget the keyboard, unless the window is disabled;
// AnyNumber takes the keyboard from every gadget of the key window.
void ActivateGadget(std::int64_t number);

void DisableGadget(std::int64_t number, int state);
void HideGadget(std::int64_t number, int state);
void GadgetToolTip(std::int64_t number, std::u16string_view text);

// Position in the gadget's container (mode 0), on the screen (1) or in its window's content (2).
inline constexpr int InContainer = 0;
inline constexpr int OnScreen = 1;
inline constexpr int InWindow = 2;
std::int64_t GadgetX(std::int64_t number, int mode = InContainer);
std::int64_t GadgetY(std::int64_t number, int mode = InContainer);
std::int64_t GadgetWidth(std::int64_t number);
std::int64_t GadgetHeight(std::int64_t number);
// IgnoreValue keeps a value.
void ResizeGadget(std::int64_t number, std::int64_t x, std::int64_t y, std::int64_t width,
                  std::int64_t height);

void SetGadgetText(std::int64_t number, std::u16string_view text);
std::u16string GetGadgetText(std::int64_t number);
void SetGadgetState(std::int64_t number, std::int64_t state);
std::int64_t GetGadgetState(std::int64_t number);
void SetGadgetAttribute(std::int64_t number, std::int64_t attribute, std::int64_t value);
std::int64_t GetGadgetAttribute(std::int64_t number, std::int64_t attribute);

// Sets the font (a number of font.h, or AnyNumber for the system's own) of a gadget or, for gadget
// AnyNumber, of every gadget created from now on.
void SetGadgetFont(std::int64_t number, std::int64_t font);
// The number of the font set, AnyNumber for none or when the number is not open.
std::int64_t GetGadgetFont(std::int64_t number);

// Colours are 32-bit RGBA, red in the lowest byte; NoColour stands for the kind's own.
inline constexpr std::int64_t NoColour = -1;
inline constexpr std::int64_t FrontColour = 1;
inline constexpr std::int64_t BackColour = 2;
void SetGadgetColor(std::int64_t number, std::int64_t type, std::int64_t colour);
std::int64_t GetGadgetColor(std::int64_t number, std::int64_t type);

// Items are counted from 0; position -1 appends. Adding returns non-zero when an item was added.
std::int64_t AddGadgetItem(std::int64_t number, std::int64_t position, std::u16string_view text,
                           NativeImage* image = nullptr, std::uint32_t flags = 0);
void RemoveGadgetItem(std::int64_t number, std::int64_t item);
void ClearGadgetItems(std::int64_t number);
std::int64_t CountGadgetItems(std::int64_t number);
void SetGadgetItemText(std::int64_t number, std::int64_t item, std::u16string_view text,
                       std::int64_t column = 0);
std::u16string GetGadgetItemText(std::int64_t number, std::int64_t item, std::int64_t column = 0);
void SetGadgetItemData(std::int64_t number, std::int64_t item, std::int64_t value);
std::int64_t GetGadgetItemData(std::int64_t number, std::int64_t item);
void SetGadgetItemImage(std::int64_t number, std::int64_t item, NativeImage* image);
void SetGadgetItemState(std::int64_t number, std::int64_t item, std::int64_t state);
std::int64_t GetGadgetItemState(std::int64_t number, std::int64_t item);
void SetGadgetItemAttribute(std::int64_t number, std::int64_t item, std::int64_t attribute,
                            std::int64_t value, std::int64_t column = 0);
std::int64_t GetGadgetItemAttribute(std::int64_t number, std::int64_t item, std::int64_t attribute,
                                    std::int64_t column = 0);
void SetGadgetItemColor(std::int64_t number, std::int64_t item, std::int64_t type,
                        std::int64_t colour, std::int64_t column = 0);
std::int64_t GetGadgetItemColor(std::int64_t number, std::int64_t item, std::int64_t type,
                                std::int64_t column = 0);
std::int64_t AddGadgetColumn(std::int64_t number, std::int64_t position, std::u16string_view title,
                             std::int64_t width);
void RemoveGadgetColumn(std::int64_t number, std::int64_t column);

// Makes a gadget that can hold others the container of the gadgets created next, until
// CloseGadgetList.
void OpenGadgetList(std::int64_t number, std::int64_t item = 0);
void CloseGadgetList();

}  // namespace rotavel
