#pragma once

#include <cstdint>
#include <string_view>

#include "runtime/raw_file.h"
#include "settings/settings_entries.h"
#include "settings/settings_text.h"

namespace rotavel {

// Tells the content of a file from any other content it may have later.
std::uint64_t FingerprintOf(std::string_view content);

// A settings file as it was read, and what was written since. Where memory is short the functions
// throw std::bad_alloc.
struct SettingsDocument {
    SettingsEntries Entries;
    SettingsEncoding Encoding = SettingsEncoding::None;
    std::uint64_t Fingerprint = FingerprintOf({});  // of the file's content
};

// Reads the whole of an open file. The block has SettingsTextPadding bytes more than were read.
// Returns 0, or the value of errno that says why the file could not be read; `content` is then as
// it was.
int ReadSettingsFile(RawFile& file, SettingsBytes& content);

// Takes a file's content apart into an empty document, which keeps what was found until then where
// memory is short.
void ParseSettingsFile(SettingsBytes content, SettingsDocument& document);

// Takes the present content of a document's file apart into another, empty document and repeats
// there what was written in the first one.
void MergeSettings(const SettingsDocument& written, std::string_view content,
                   SettingsDocument& merged);

}  // namespace rotavel
