#include "settings/settings_entries.h"

#include <algorithm>

#include "text/text.h"

namespace rotavel {

namespace {

// A zero-terminated copy.
std::unique_ptr<char[]> CopyText(std::string_view source) {
    if (source.size() > LargestSettingsText) {
        throw std::bad_alloc();
    }
    auto copy = std::make_unique_for_overwrite<char[]>(source.size() + 1);
    *std::copy(source.begin(), source.end(), copy.get()) = '\0';
    return copy;
}

// The first group header from `entry` on.
SettingsEntry* SkipToGroup(SettingsEntry* entry) {
    while (entry != nullptr && !entry->IsGroup()) {
        entry = entry->Next();
    }
    return entry;
}

}  // namespace

void SettingsEntries::Discarder::operator()(SettingsEntry* entry) const {
    FreeTexts(*entry);
    Entries->pool.Give(entry);
}

void SettingsEntries::Swap(SettingsEntries& other) {
    text.swap(other.text);
    pool.Swap(other.pool);
    std::swap(first, other.first);
    std::swap(last, other.last);
    writes.swap(other.writes);
}

SettingsEntry* SettingsEntries::FirstOf(const SettingsEntry* group) const {
    return group == nullptr ? first : group->next;
}

SettingsEntry* SettingsEntries::LastOf(SettingsEntry* group) const {
    SettingsEntry* found = group;
    for (SettingsEntry* entry = FirstOf(group); entry != nullptr && !entry->IsGroup();
         entry = entry->next) {
        found = entry;
    }
    return found;
}

SettingsEntry* SettingsEntries::NextGroup(const SettingsEntry* group) const {
    return SkipToGroup(FirstOf(group));
}

SettingsEntry* SettingsEntries::FindGroup(std::string_view name, std::size_t number) const {
    SettingsEntry* found = nullptr;
    for (SettingsEntry* group = NextGroup(nullptr); group != nullptr && number > 0;
         group = NextGroup(group)) {
        if (EqualsIgnoringCase(group->Value(), name)) {
            found = group;
            --number;
        }
    }
    return found;
}

SettingsEntry* SettingsEntries::FindKey(const SettingsEntry* group, std::string_view key) const {
    for (SettingsEntry* entry = FirstOf(group); entry != nullptr && !entry->IsGroup();
         entry = entry->next) {
        if (entry->IsKey() && EqualsIgnoringCase(entry->Key(), key)) {
            return entry;
        }
    }
    return nullptr;
}

SettingsEntry* SettingsEntries::FindCounterpart(const SettingsEntries& other,
                                                const SettingsEntry* group) const {
    if (group == nullptr) {
        return nullptr;
    }
    std::size_t number = 1;
    for (const SettingsEntry* before = other.NextGroup(nullptr);
         before != group && before != nullptr; before = other.NextGroup(before)) {
        number += EqualsIgnoringCase(before->Value(), group->Value()) ? 1 : 0;
    }
    return FindGroup(group->Value(), number);
}

SettingsEntries::NewEntry SettingsEntries::Make(SettingsEntryKind kind, std::string_view key,
                                                std::string_view value) {
    std::unique_ptr<char[]> ownKey = CopyText(key);
    std::unique_ptr<char[]> ownValue = CopyText(value);
    SettingsEntry* const entry = Take(kind, ownKey.get(), key.size(), ownValue.get(), value.size());
    ownKey.release();
    ownValue.release();
    entry->isOwner = true;
    return NewEntry(entry, {this});
}

void SettingsEntries::InsertAfter(SettingsEntry* place, NewEntry entry) {
    SettingsEntry*& link = place == nullptr ? first : place->next;
    entry->next = link;
    link = entry.release();
    if (link->next == nullptr) {
        last = link;
    }
}

// To be called when nothing but this can fail any more.
void SettingsEntries::RememberWrite(SettingsEntry* group, SettingsEntry& entry) {
    if (!entry.isWritten) {
        writes.push_back({group, &entry});
        entry.isWritten = true;
    }
}

void SettingsEntries::Rewrite(SettingsEntry* group, SettingsEntry& entry, std::string_view key,
                              std::string_view value) {
    if (value.size() > entry.valueLength) {
        std::unique_ptr<char[]> ownKey = CopyText(key);
        std::unique_ptr<char[]> ownValue = CopyText(value);
        RememberWrite(group, entry);
        FreeTexts(entry);
        entry.key = ownKey.release();
        entry.value = ownValue.release();
        entry.isOwner = true;
    } else {
        RememberWrite(group, entry);
        key.copy(entry.key, entry.keyLength);  // differs in letter case at most
        *std::copy(value.begin(), value.end(), entry.value) = '\0';
    }
    entry.valueLength = value.size() & LargestSettingsText;
}

void SettingsEntries::Write(SettingsEntry* group, std::string_view key, std::string_view value) {
    if (SettingsEntry* const entry = FindKey(group, key)) {
        Rewrite(group, *entry, key, value);
    } else {
        NewEntry line = Make(SettingsEntryKind::Key, key, value);
        RememberWrite(group, *line);
        InsertAfter(LastOf(group), std::move(line));
    }
}

SettingsEntry* SettingsEntries::WriteNewGroup(std::string_view name, std::string_view key,
                                              std::string_view value) {
    NewEntry header = Make(SettingsEntryKind::Group, {}, name);
    NewEntry line = Make(SettingsEntryKind::Key, key, value);
    SettingsEntry* const group = header.get();
    RememberWrite(group, *line);
    InsertAfter(last, std::move(header));
    InsertAfter(group, std::move(line));
    return group;
}

void SettingsEntries::RepeatWrites(const SettingsEntries& other) {
    const SettingsEntry* group = nullptr;
    SettingsEntry* target = nullptr;
    for (const WrittenKey& write : other.writes) {
        if (write.Group != group) {
            group = write.Group;
            target = FindCounterpart(other, group);
        }
        if (group != nullptr && target == nullptr) {
            target = WriteNewGroup(group->Value(), write.Key->Key(), write.Key->Value());
        } else {
            Write(target, write.Key->Key(), write.Key->Value());
        }
    }
}

void SettingsEntries::ForgetWrites() {
    for (const WrittenKey& write : writes) {
        write.Key->isWritten = false;
    }
    writes.clear();
}

void SettingsEntries::FreeTexts(const SettingsEntry& entry) {
    if (entry.isOwner) {
        delete[] entry.key;
        delete[] entry.value;
    }
}

void SettingsEntries::Release() {
    for (const SettingsEntry* entry = first; entry != nullptr; entry = entry->next) {
        FreeTexts(*entry);
    }
    first = nullptr;
    last = nullptr;
    writes.clear();
    pool.Release();
    text.reset();
}

}  // namespace rotavel
