#pragma once

#include <cstdint>
#include <string_view>

#include "gui/handles.h"
#include "gui/numbers.h"

namespace rotavel {

// Numbered status bars: a strip along the bottom of a window's content, with fields side by side.
// In a window that scrolls it stays at the bottom, its fields no wider than the window has room
// for.

inline constexpr std::uint32_t StatusCentred = 4;
inline constexpr std::uint32_t StatusRight = 8;  // wins over centred

// Puts a status bar without fields on a window (a bar that holds the number is destroyed first).
// Returns the automatic number for AnyNumber, else non-zero; 0 when it cannot be made.
std::int64_t StatusBarCreate(std::int64_t number, NativeWindow* window);

// Adds a field to the newest status bar, behind the fields it has. Width in pixels; IgnoreValue
// takes an equal share of what the other fields leave.
void StatusBarAddField(std::int64_t width);

// Sets the text of a field, counted from 0. Flags align it; without a flag it stays as it was, left
// at first.
void StatusBarSetText(std::int64_t number, std::int64_t field, std::u16string_view text,
                      std::uint32_t flags = 0);

// 24 pixels if the status bar exists, else 0.
std::int64_t StatusBarHeight(std::int64_t number);

// Takes a status bar off its window; AnyNumber all.
void StatusBarDestroy(std::int64_t number);

}  // namespace rotavel
