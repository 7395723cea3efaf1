#pragma once

#include <string>
#include <string_view>

namespace rotavel {

// Conversion between program text (UTF-16) and UTF-8. Every input is allowed: a surrogate without
// its partner, and each longest run of bytes that begins a sequence but does not complete one,
// becomes one U+FFFD. Zero characters are characters like any other.
std::string ToUtf8(std::u16string_view text);
std::u16string ToUtf16(std::string_view bytes);

}  // namespace rotavel
