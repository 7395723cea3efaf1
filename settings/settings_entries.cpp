#include "settings/settings_entries.h"

#include <algorithm>
#include <functional>
#include <new>
#include <utility>

namespace rotavel {

namespace {

// A zero-terminated copy, null when memory is short.
char* CopyText(std::string_view source) {
    if (source.size() > LargestSettingsText) {
        return nullptr;
    }
    char* const copy = new (std::nothrow) char[source.size() + 1];
    if (copy != nullptr) {
        *std::copy(source.begin(), source.end(), copy) = '\0';
    }
    return copy;
}

}  // namespace

void SettingsEntries::AdoptText(std::unique_ptr<char[]> newText, std::size_t size) {
    text = std::move(newText);
    textSize = size;
}

SettingsEntry* SettingsEntries::MakeGroup(std::string_view name) {
    return Make(GroupMarker, 0, name);
}

SettingsEntry* SettingsEntries::MakeKey(std::string_view key, std::string_view value) {
    char* const ownKey = CopyText(key);
    if (ownKey == nullptr) {
        return nullptr;
    }
    SettingsEntry* const entry = Make(ownKey, key.size(), value);
    if (entry == nullptr) {
        FreeOwned(ownKey);
    }
    return entry;
}

SettingsEntry* SettingsEntries::Make(char* kindOrKey, std::size_t keyLength,
                                     std::string_view value) {
    char* const ownValue = CopyText(value);
    SettingsEntry* const entry = ownValue == nullptr ? nullptr : pool.Take();
    if (entry == nullptr) {
        FreeOwned(ownValue);
        return nullptr;
    }
    *entry = {.Next = nullptr,
              .KindOrKey = kindOrKey,
              .Value = ownValue,
              .KeyLength = static_cast<std::uint32_t>(keyLength),
              .ValueLength = static_cast<std::uint32_t>(value.size())};
    return entry;
}

void SettingsEntries::Discard(SettingsEntry* entry) {
    FreeOwned(entry->KindOrKey);
    FreeOwned(entry->Value);
    pool.Give(entry);
}

void SettingsEntries::InsertAfter(SettingsEntry* place, SettingsEntry* entry) {
    SettingsEntry*& link = place == nullptr ? first : place->Next;
    entry->Next = link;
    link = entry;
    if (entry->Next == nullptr) {
        last = entry;
    }
}

bool SettingsEntries::ReplaceValue(SettingsEntry* entry, std::string_view value) {
    if (value.size() > entry->ValueLength) {
        char* const ownValue = CopyText(value);
        if (ownValue == nullptr) {
            return false;
        }
        FreeOwned(entry->Value);
        entry->Value = ownValue;
    } else {
        *std::copy(value.begin(), value.end(), entry->Value) = '\0';
    }
    entry->ValueLength = static_cast<std::uint32_t>(value.size());
    return true;
}

void SettingsEntries::FreeOwned(char* bytes) const {
    constexpr std::less<> before;
    const bool isInText = !before(bytes, text.get()) && before(bytes, text.get() + textSize);
    if (!isInText && bytes != GroupMarker && bytes != CommentMarker) {
        delete[] bytes;
    }
}

void SettingsEntries::Release() {
    for (const SettingsEntry* entry = first; entry != nullptr; entry = entry->Next) {
        FreeOwned(entry->KindOrKey);
        FreeOwned(entry->Value);
    }
    first = nullptr;
    last = nullptr;
    pool.Release();
    text.reset();
    textSize = 0;
}

}  // namespace rotavel
