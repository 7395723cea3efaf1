#include "settings/settings_store.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>
#include <optional>
#include <utility>

#include "runtime/raw_file.h"
#include "settings/settings_entries.h"
#include "settings/settings_text.h"
#include "text/number_text.h"
#include "text/text.h"
#include "text/utf.h"

namespace rotavel {

namespace {

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

struct SettingsStore {
    RawFile File;
    std::optional<std::string> CreationPath;  // set when there was no file to open
    bool Modified = false;
    bool ReadOnly = false;
    SettingsEncoding Encoding = SettingsEncoding::None;
    SettingsEntries Entries;
    SettingsEntry* CurrentGroup = nullptr;    // null for the keys before the first group
    std::optional<std::string> PendingGroup;  // selected, but not in the list yet
    std::uint32_t Flags = 0;
};

SettingsStore store;

bool IsStoreOpen() {
    return store.File.IsOpen() || store.CreationPath.has_value();
}

// Hands the text in `block`, which has room for the padding, to the parser.
bool ParseBlock(std::unique_ptr<char[]> block, std::size_t start, std::size_t length) {
    char* const text = block.get() + start;
    store.Entries.AdoptText(std::move(block), start + length + SettingsTextPadding);
    return ParseSettingsText(text, length, store.Entries);
}

// Reads and parses the open file. False when that could not be done to the end.
bool Load() {
    const std::optional<std::uint64_t> fileSize = store.File.Size();
    if (!fileSize || *fileSize > LargestSettingsText) {
        return false;
    }
    const auto size = static_cast<std::size_t>(*fileSize);
    std::unique_ptr<char[]> block(new (std::nothrow) char[size + SettingsTextPadding]);
    const auto got = block == nullptr ? std::nullopt : store.File.Read(block.get(), size);
    if (!got) {
        return false;
    }
    const std::string_view content(block.get(), *got);
    if (content.starts_with(Utf8Mark)) {
        store.Encoding = SettingsEncoding::Utf8;
        return ParseBlock(std::move(block), Utf8Mark.size(), content.size() - Utf8Mark.size());
    }
    if (content.empty()) {
        return true;
    }
    const std::size_t length = Utf8LengthOfLatin1(content.data(), content.size());
    if (length > LargestSettingsText) {
        return false;
    }
    if (length > content.size()) {
        std::unique_ptr<char[]> converted(new (std::nothrow) char[length + SettingsTextPadding]);
        if (converted == nullptr) {
            return false;
        }
        Latin1ToUtf8(content.data(), content.size(), converted.get());
        block = std::move(converted);
    }
    store.Encoding = SettingsEncoding::Utf8;
    return ParseBlock(std::move(block), 0, length);
}

// The first entry after the current group's header, or the list's first entry without one.
SettingsEntry* FirstOfCurrentGroup() {
    return store.CurrentGroup == nullptr ? store.Entries.First() : store.CurrentGroup->Next;
}

SettingsEntry* NextGroupFrom(SettingsEntry* entry) {
    while (entry != nullptr && !entry->IsGroup()) {
        entry = entry->Next;
    }
    return entry;
}

SettingsEntry* FindKey(std::string_view key) {
    if (store.PendingGroup) {
        return nullptr;
    }
    for (SettingsEntry* entry = FirstOfCurrentGroup(); entry != nullptr && !entry->IsGroup();
         entry = entry->Next) {
        if (!entry->IsComment() && EqualsIgnoringCase(entry->KeyText(), key)) {
            return entry;
        }
    }
    return nullptr;
}

// Adds a key at the end of the current group, which is the pending one where there is one.
bool AddKey(std::string_view key, std::string_view value) {
    SettingsEntry* const entry = store.Entries.MakeKey(key, value);
    if (entry == nullptr) {
        return false;
    }
    if (store.PendingGroup) {
        SettingsEntry* const group = store.Entries.MakeGroup(*store.PendingGroup);
        if (group == nullptr) {
            store.Entries.Discard(entry);
            return false;
        }
        store.Entries.InsertAfter(store.Entries.Last(), group);
        store.CurrentGroup = group;
        store.PendingGroup.reset();
    }
    SettingsEntry* place = store.CurrentGroup;
    for (SettingsEntry* following = FirstOfCurrentGroup();
         following != nullptr && !following->IsGroup(); following = following->Next) {
        place = following;
    }
    store.Entries.InsertAfter(place, entry);
    return true;
}

bool WriteValue(std::string_view key, std::string_view value) {
    SettingsEntry* const entry = FindKey(key);
    const bool isWritten =
        entry == nullptr ? AddKey(key, value) : store.Entries.ReplaceValue(entry, value);
    if (!isWritten) {
        return false;
    }
    if (entry != nullptr) {
        key.copy(entry->KindOrKey, entry->KeyLength);  // differs in letter case at most
    }
    store.Modified = true;
    return true;
}

}  // namespace

bool SettingsOpen(std::u16string_view path, std::uint32_t flags) {
    SettingsClose();
    const std::string filename = ToUtf8(path);
    store.Flags = flags;
    if (!store.File.OpenForUpdate(filename)) {
        store.ReadOnly = store.File.OpenForReading(filename);
    }
    if (!store.File.IsOpen()) {
        store.Encoding = SettingsEncoding::Utf8;
        store.CreationPath = filename;
        return false;
    }
    // What could not be read whole must not be replaced by its part.
    store.ReadOnly = !Load() || store.ReadOnly;
    return true;
}

bool SettingsOpenDefault(std::u16string_view path) {
    return SettingsOpen(path, 0);
}

void SettingsClose() {
    SettingsFlush();
    store.File.Close();
    store.Entries.Release();
    store.CurrentGroup = nullptr;
    store.PendingGroup.reset();
    store.CreationPath.reset();
    store.Modified = false;
    store.ReadOnly = false;
    store.Encoding = SettingsEncoding::None;
    store.Flags = 0;
}

bool SettingsFlush() {
    if (!store.Modified) {
        return false;
    }
    if (store.ReadOnly) {
        store.File.Close();
        return false;
    }
    if (!store.File.IsOpen() && !(store.CreationPath && store.File.Create(*store.CreationPath))) {
        return false;
    }
    const SettingsBytes text = ComposeSettingsText(store.Entries, store.Encoding, store.Flags);
    if (text.Block == nullptr || !store.File.Replace({text.Block.get(), text.Length})) {
        return false;
    }
    store.Modified = false;
    return true;
}

bool SettingsSelectGroup(std::u16string_view name) {
    if (!IsStoreOpen()) {
        store.PendingGroup.reset();
        return false;
    }
    if (name.empty()) {
        return SettingsRewindGroups();
    }
    std::string wanted = ToUtf8(name);
    SettingsEntry* group = NextGroupFrom(store.Entries.First());
    while (group != nullptr && !EqualsIgnoringCase(group->ValueText(), wanted)) {
        group = NextGroupFrom(group->Next);
    }
    if (group == nullptr) {
        store.PendingGroup = std::move(wanted);
        return false;
    }
    store.CurrentGroup = group;
    store.PendingGroup.reset();
    return true;
}

bool SettingsRewindGroups() {
    store.CurrentGroup = nullptr;
    store.PendingGroup.reset();
    return IsStoreOpen();
}

bool SettingsNextGroup() {
    SettingsEntry* const group = NextGroupFrom(FirstOfCurrentGroup());
    if (group == nullptr) {
        return false;
    }
    store.CurrentGroup = group;
    return true;
}

std::u16string SettingsGroupName() {
    if (store.CurrentGroup == nullptr) {
        return {};
    }
    return ToUtf16(store.CurrentGroup->ValueText());
}

std::u16string SettingsReadString(std::u16string_view key, std::u16string_view defaultText) {
    const SettingsEntry* const entry = FindKey(ToUtf8(key));
    if (entry == nullptr) {
        return std::u16string(defaultText);
    }
    std::string_view value = entry->ValueText();
    value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
    return ToUtf16(value);
}

std::int64_t SettingsReadInteger(std::u16string_view key, std::int64_t defaultValue) {
    const SettingsEntry* const entry = FindKey(ToUtf8(key));
    return entry == nullptr ? defaultValue : std::strtoll(entry->Value, nullptr, 10);
}

double SettingsReadNumber(std::u16string_view key, double defaultValue) {
    const SettingsEntry* const entry = FindKey(ToUtf8(key));
    return entry == nullptr ? defaultValue : BytesToNumber(entry->Value);
}

bool SettingsWriteString(std::u16string_view key, std::u16string_view value) {
    try {
        return WriteValue(ToUtf8(key), ToUtf8(value));
    } catch (const std::bad_alloc&) {
        return false;
    }
}

bool SettingsWriteInteger(std::u16string_view key, std::int64_t value) {
    return SettingsWriteString(key, IntegerToText(value));
}

}  // namespace rotavel
