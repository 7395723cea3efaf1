#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "runtime/block_pool.h"

namespace rotavel {

// One line of a settings file: a group header, a comment or a key with its value. Its texts are
// UTF-8, end in a zero byte that the lengths do not count, and may hold zero bytes of their own.
struct SettingsEntry {
    SettingsEntry* Next;
    char* KindOrKey;  // GroupMarker, CommentMarker or the text of the key
    char* Value;      // group name, comment or value
    std::uint32_t KeyLength;
    std::uint32_t ValueLength;

    bool IsGroup() const;
    bool IsComment() const;
    std::string_view KeyText() const { return {KindOrKey, KeyLength}; }
    std::string_view ValueText() const { return {Value, ValueLength}; }
};

// Stand in for the key of an entry that is not a key.
inline char GroupMarker[] = "";
inline char CommentMarker[] = "";

// The most bytes a settings text may have. A larger one counts as a shortage of memory.
inline constexpr std::size_t LargestSettingsText = std::size_t{1} << 30;

// The lines of a settings file in order, and the text that most of them point into. Entries made
// later own their texts. Knows nothing of the syntax. Where memory is short a function returns
// false or null and has changed nothing.
class SettingsEntries {
  public:
    SettingsEntries() = default;
    SettingsEntries(const SettingsEntries&) = delete;
    SettingsEntries& operator=(const SettingsEntries&) = delete;
    ~SettingsEntries() { Release(); }

    SettingsEntry* First() const { return first; }
    SettingsEntry* Last() const { return last; }

    // Takes over the text, `size` bytes, that the entries appended next point into.
    void AdoptText(std::unique_ptr<char[]> newText, std::size_t size);

    // Appends an entry whose key (or marker) and value lie in the adopted text. Parsing spends
    // its time here, hence inline.
    bool AppendFromText(char* kindOrKey, std::size_t keyLength, char* value,
                        std::size_t valueLength) {
        SettingsEntry* const entry = pool.Take();
        if (entry == nullptr) {
            return false;
        }
        *entry = {.Next = nullptr,
                  .KindOrKey = kindOrKey,
                  .Value = value,
                  .KeyLength = static_cast<std::uint32_t>(keyLength),
                  .ValueLength = static_cast<std::uint32_t>(valueLength)};
        (last == nullptr ? first : last->Next) = entry;
        last = entry;
        return true;
    }

    // Make an entry with texts of its own that is in the list only after InsertAfter.
    SettingsEntry* MakeGroup(std::string_view name);
    SettingsEntry* MakeKey(std::string_view key, std::string_view value);
    void Discard(SettingsEntry* entry);

    // Puts an entry behind `place`, or at the head of the list when `place` is null.
    void InsertAfter(SettingsEntry* place, SettingsEntry* entry);

    // Gives an entry another value, in the old value's storage when it fits there.
    bool ReplaceValue(SettingsEntry* entry, std::string_view value);

    // Frees the entries and every text.
    void Release();

  private:
    SettingsEntry* Make(char* kindOrKey, std::size_t keyLength, std::string_view value);
    void FreeOwned(char* bytes) const;

    std::unique_ptr<char[]> text;
    std::size_t textSize = 0;
    BlockPool<SettingsEntry> pool;
    SettingsEntry* first = nullptr;
    SettingsEntry* last = nullptr;
};

inline bool SettingsEntry::IsGroup() const {
    return KindOrKey == GroupMarker;
}

inline bool SettingsEntry::IsComment() const {
    return KindOrKey == CommentMarker;
}

}  // namespace rotavel
