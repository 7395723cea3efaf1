#pragma once

#include <string_view>

namespace rotavel {

// The rule that an inch width ("3.25") goes without a percent height, kept in the main window's
// fields. A width is taken for inches by its "." while it is being typed, where "1" may be on its
// way to 180, and by being below 10 when it is calculated with.

// The width was typed: with a "." the percent field is emptied and disabled, else it is enabled.
void ApplyTypedWidth();

// The width was found to be inches as it is calculated with: shows it as `width` ("3" as "3.00")
// and disables the percent field, which keeps its text.
void ShowInchWidth(std::u16string_view width);

}  // namespace rotavel
