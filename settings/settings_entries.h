#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "runtime/block_pool.h"

namespace rotavel {

enum class SettingsEntryKind : std::uint8_t { Group, Comment, Key };

// One line of a settings file: a group header, a comment or a key with its value. Its texts are
// UTF-8, end in a zero byte that the lengths do not count, and may hold zero bytes of their own.
// SettingsEntries alone makes and changes entries.
class SettingsEntry {
  public:
    bool IsGroup() const { return kind == SettingsEntryKind::Group; }
    bool IsComment() const { return kind == SettingsEntryKind::Comment; }
    bool IsKey() const { return kind == SettingsEntryKind::Key; }

    // The text of a key, empty in an entry that is none.
    std::string_view Key() const { return {key, keyLength}; }
    // A group's name, a comment's text or a key's value.
    std::string_view Value() const { return {value, valueLength}; }

    SettingsEntry* Next() const { return next; }

  private:
    friend class SettingsEntries;

    static constexpr unsigned LengthBits = 30;

    SettingsEntry* next;
    char* key;
    char* value;
    // Packed, since reading a large file spends its time on filling memory.
    std::uint32_t keyLength : LengthBits;
    SettingsEntryKind kind : 2;
    std::uint32_t valueLength : LengthBits;
    bool isWritten : 1;
    bool isOwner : 1;  // of both texts; otherwise they lie in the text that was read
};

// The most bytes a settings text may have. A larger one counts as a shortage of memory.
inline constexpr std::size_t LargestSettingsText = (std::size_t{1} << 30) - 1;

// The lines of a settings file in order, and the text that most of them point into. Knows nothing
// of the syntax. A group is named by its header, null stands for the lines before the first one.
// Names and keys are compared ignoring case for ASCII letters only. Where memory is short a
// function throws std::bad_alloc and, unless it says otherwise, has changed nothing.
class SettingsEntries {
  public:
    SettingsEntries() = default;
    SettingsEntries(const SettingsEntries&) = delete;
    SettingsEntries& operator=(const SettingsEntries&) = delete;
    ~SettingsEntries() { Release(); }

    void Swap(SettingsEntries& other);

    SettingsEntry* First() const { return first; }

    // Each of these returns null when there is none.
    SettingsEntry* NextGroup(const SettingsEntry* group) const;
    // Of several groups of that name the one with this number, or the last one when that is higher.
    SettingsEntry* FindGroup(std::string_view name, std::size_t number = 1) const;
    SettingsEntry* FindKey(const SettingsEntry* group, std::string_view key) const;

    // The group here that has the same name, and number among those of that name, as a group of
    // another list.
    SettingsEntry* FindCounterpart(const SettingsEntries& other, const SettingsEntry* group) const;

    // Takes over the text that the entries appended next point into.
    void AdoptText(std::unique_ptr<char[]> newText) { text = std::move(newText); }

    // Appends an entry whose texts lie in the adopted text. Parsing spends its time here, hence
    // inline.
    void AppendFromText(SettingsEntryKind kind, char* key, std::size_t keyLength, char* value,
                        std::size_t valueLength) {
        SettingsEntry* const entry = Take(kind, key, keyLength, value, valueLength);
        (last == nullptr ? first : last->next) = entry;
        last = entry;
    }

    // Sets a key of a group of this list, in this spelling, or adds it as the group's last line.
    void Write(SettingsEntry* group, std::string_view key, std::string_view value);

    // Adds a group with a key at the end of the list and returns it.
    SettingsEntry* WriteNewGroup(std::string_view name, std::string_view key,
                                 std::string_view value);

    // Writes here what was written in another list since it was made or ForgetWrites was called.
    // Where memory is short some of it is written.
    void RepeatWrites(const SettingsEntries& other);
    void ForgetWrites();

    // Frees the entries and every text.
    void Release();

  private:
    // Gives up an entry that never came into the list.
    struct Discarder {
        SettingsEntries* Entries;
        void operator()(SettingsEntry* entry) const;
    };
    struct WrittenKey {
        SettingsEntry* Group;
        SettingsEntry* Key;
    };
    using NewEntry = std::unique_ptr<SettingsEntry, Discarder>;

    SettingsEntry* Take(SettingsEntryKind kind, char* key, std::size_t keyLength, char* value,
                        std::size_t valueLength) {
        SettingsEntry* const entry = pool.Take();
        if (entry == nullptr) {
            throw std::bad_alloc();
        }
        entry->next = nullptr;
        entry->key = key;
        entry->value = value;
        // The mask changes no length; it tells the compiler that they fit.
        entry->keyLength = keyLength & LargestSettingsText;
        entry->kind = kind;
        entry->valueLength = valueLength & LargestSettingsText;
        entry->isWritten = false;
        entry->isOwner = false;
        return entry;
    }
    NewEntry Make(SettingsEntryKind kind, std::string_view key, std::string_view value);
    SettingsEntry* FirstOf(const SettingsEntry* group) const;
    SettingsEntry* LastOf(SettingsEntry* group) const;
    void InsertAfter(SettingsEntry* place, NewEntry entry);
    void Rewrite(SettingsEntry* group, SettingsEntry& entry, std::string_view key,
                 std::string_view value);
    void RememberWrite(SettingsEntry* group, SettingsEntry& entry);
    static void FreeTexts(const SettingsEntry& entry);

    std::unique_ptr<char[]> text;
    BlockPool<SettingsEntry> pool;
    SettingsEntry* first = nullptr;
    SettingsEntry* last = nullptr;
    std::vector<WrittenKey> writes;  // each key once, in the order in which they came
};

}  // namespace rotavel
