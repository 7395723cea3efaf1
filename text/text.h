#pragma once

#include <string>
#include <string_view>

namespace rotavel {

// The text without the blanks (U+0020 only) at both of its ends.
std::u16string_view TrimBlanks(std::u16string_view text);

// The text with every `from` replaced by `to`.
std::u16string ReplaceCharacter(std::u16string_view text, char16_t from, char16_t to);

// Compares two UTF-8 texts, taking the ASCII letters A-Z and a-z as equal and nothing else.
bool EqualsIgnoringCase(std::string_view left, std::string_view right);

}  // namespace rotavel
