#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "settings/byte_scan.h"
#include "settings/settings_entries.h"

namespace rotavel {

// What is known of a file's encoding. Utf8 is the code page number of UTF-8, and such a text is
// written with a byte-order mark.
enum class SettingsEncoding : std::uint32_t { None = 0, Utf8 = 65001 };

// A block of bytes.
struct SettingsBytes {
    std::unique_ptr<char[]> Block;
    std::size_t Length = 0;

    std::string_view View() const { return {Block.get(), Length}; }
};

// The bytes that a text handed to ParseSettingsText has to have behind it: a zero byte to end its
// last piece and what a byte search reads beyond.
inline constexpr std::size_t SettingsTextPadding = 1 + ByteScanPadding;

// The length of ISO 8859-1 text in UTF-8.
std::size_t Utf8LengthOfLatin1(const char* bytes, std::size_t length);

// Converts ISO 8859-1 to UTF-8; `target` has room for Utf8LengthOfLatin1.
void Latin1ToUtf8(const char* bytes, std::size_t length, char* target);

// Appends the entries of a settings text to the list. They point into the text, which is cut into
// zero-terminated pieces for them; SettingsTextPadding bytes behind it are set to zero. Every text
// is a settings text. Throws std::bad_alloc where memory is short; the entries found until then
// stay.
void ParseSettingsText(char* text, std::size_t length, SettingsEntries& entries);

// The text of a file with these entries, in the layout of `flags`, with "\n" as the line end.
// Throws std::bad_alloc where memory is short.
SettingsBytes ComposeSettingsText(const SettingsEntries& entries, SettingsEncoding encoding,
                                  std::uint32_t flags);

}  // namespace rotavel
