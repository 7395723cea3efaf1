#include "settings/settings_store.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <new>
#include <optional>
#include <string>
#include <utility>

#include "runtime/raw_file.h"
#include "settings/settings_document.h"
#include "settings/settings_entries.h"
#include "settings/settings_text.h"
#include "text/number_text.h"
#include "text/utf.h"

namespace rotavel {

namespace {

// Where reads and writes go.
struct SettingsPlace {
    SettingsEntry* Group = nullptr;      // null for the keys before the first group
    std::optional<std::string> Pending;  // selected, but not in the list yet
};

struct SettingsStore {
    RawFile File;
    std::optional<std::string> Path;  // set while the store is open
    bool Modified = false;
    int NoRewriteReason = 0;  // why the file must not be rewritten, a value of errno
    int SaveError = 0;        // why the last flush saved nothing, a value of errno
    SettingsDocument Document;
    SettingsPlace Place;
    std::uint32_t Flags = 0;
};

constexpr int SaveTries = 3;

SettingsStore store;

// Runs a public operation. Where memory is short its result is the failure value, which is 0, false
// or empty for all of them.
template <typename Operation>
auto Guarded(Operation operation) noexcept -> decltype(operation()) {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return {};
    }
}

// Reads and parses the open file. A value of errno when that could not be done to the end.
int Load() {
    SettingsBytes content;
    const int error = ReadSettingsFile(store.File, content);
    if (error == 0) {
        ParseSettingsFile(std::move(content), store.Document);
    }
    return error;
}

bool Open(std::u16string_view path, std::uint32_t flags) {
    const std::string& filename = store.Path.emplace(ToUtf8(path));
    store.Flags = flags;
    int error = 0;
    if (!store.File.OpenForUpdate(filename)) {
        error = store.File.Error();
        store.File.OpenForReading(filename);
    }
    if (!store.File.IsOpen()) {
        store.Document.Encoding = SettingsEncoding::Utf8;
        return false;
    }
    // What could not be read whole, for want of memory too, must not be replaced by its part.
    store.NoRewriteReason = ENOMEM;
    const int loadError = Load();
    store.NoRewriteReason = error != 0 ? error : loadError;
    return true;
}

// The place in another list that stands for the store's.
SettingsPlace PlaceIn(const SettingsEntries& entries) {
    SettingsPlace place = store.Place;
    place.Group = entries.FindCounterpart(store.Document.Entries, store.Place.Group);
    if (!place.Pending && store.Place.Group != nullptr && place.Group == nullptr) {
        place.Pending = store.Place.Group->Value();
    }
    if (SettingsEntry* const group = place.Pending ? entries.FindGroup(*place.Pending) : nullptr) {
        place = {group, std::nullopt};
    }
    return place;
}

void FinishSave(RawFile& file, std::string_view content) {
    store.Document.Fingerprint = FingerprintOf(content);
    store.Document.Entries.ForgetWrites();
    store.File.Swap(file);
    store.Modified = false;
}

SettingsBytes Compose(const SettingsDocument& document) {
    return ComposeSettingsText(document.Entries, document.Encoding, store.Flags);
}

int SaveNew() {
    RawFile file;
    const SettingsBytes text = Compose(store.Document);
    if (!file.Create(*store.Path, text.View(), &store.File)) {
        return file.Error();
    }
    FinishSave(file, text.View());
    return 0;
}

// Rewrites the file at the path. What others have put into it since it was read stays there.
int SaveOver(RawFile& file) {
    SettingsBytes old;
    if (const int error = ReadSettingsFile(file, old)) {
        return error;
    }
    SettingsDocument merged;
    SettingsPlace place;
    // An emptied file has lost what it held, like one that is gone.
    const bool isChanged =
        old.Length != 0 && FingerprintOf(old.View()) != store.Document.Fingerprint;
    if (isChanged) {
        MergeSettings(store.Document, old.View(), merged);
        place = PlaceIn(merged.Entries);
    }
    const SettingsBytes text = Compose(isChanged ? merged : store.Document);
    // What would not change is left alone, and with it the file's time of change.
    const Replacement outcome =
        text.View() == old.View() ? Replacement::Done : file.Replace(text.View(), old.View());
    const int error = file.Error();
    if (outcome == Replacement::Refused) {
        return error;
    }
    if (isChanged) {
        store.Document.Entries.Swap(merged.Entries);
        store.Document.Encoding = merged.Encoding;
        std::swap(store.Place, place);
    }
    if (outcome == Replacement::Mixed) {
        // What the file held is whole in the store alone now: the next try replaces the mixture.
        ReadSettingsFile(file, old);
        store.Document.Fingerprint = FingerprintOf(old.View());
        return error;
    }
    file.Unlock();
    FinishSave(file, text.View());
    return 0;
}

// Returns 0, or the value of errno that says why nothing was saved.
int Save() {
    if (store.NoRewriteReason != 0) {
        store.File.Close();
        store.Path.reset();
        return store.NoRewriteReason;
    }
    if (!store.Path) {
        return ENOENT;
    }
    int error = EEXIST;
    // Between two steps of ours an editor may put another file in the place of this one.
    for (int tries = 0; tries < SaveTries && error == EEXIST; ++tries) {
        RawFile file;
        if (!file.OpenForUpdate(*store.Path)) {
            error = file.Error() == ENOENT ? SaveNew() : file.Error();
        } else if (file.Lock(); file.IsAt(*store.Path)) {
            error = SaveOver(file);
        }
    }
    // The path leads nowhere any more, for a folder on it was renamed or moved. The file is still
    // open, and may be elsewhere.
    if (error == ENOENT && store.File.IsLinked()) {
        const struct Unlocking {
            ~Unlocking() { store.File.Unlock(); }
        } unlocking;
        store.File.Lock();
        error = SaveOver(store.File);
    }
    return error;
}

SettingsEntry* FindKey(std::u16string_view key) {
    return store.Place.Pending ? nullptr
                               : store.Document.Entries.FindKey(store.Place.Group, ToUtf8(key));
}

bool Write(std::string_view key, std::string_view value) {
    SettingsEntries& entries = store.Document.Entries;
    if (store.Place.Pending) {
        store.Place = {entries.WriteNewGroup(*store.Place.Pending, key, value), std::nullopt};
    } else {
        entries.Write(store.Place.Group, key, value);
    }
    store.Modified = true;
    return true;
}

bool SelectGroup(std::string name) {
    SettingsEntry* const group = store.Document.Entries.FindGroup(name);
    if (group == nullptr) {
        store.Place.Pending = std::move(name);
        return false;
    }
    store.Place = {group, std::nullopt};
    return true;
}

}  // namespace

bool SettingsOpen(std::u16string_view path, std::uint32_t flags) {
    SettingsClose();
    return Guarded([&] { return Open(path, flags); });
}

bool SettingsOpenDefault(std::u16string_view path) {
    return SettingsOpen(path, 0);
}

void SettingsClose() {
    SettingsFlush();
    store.File.Close();
    store.Path.reset();
    store.Modified = false;
    store.NoRewriteReason = 0;
    store.Document.Entries.Release();
    store.Document.Encoding = SettingsEncoding::None;
    store.Document.Fingerprint = FingerprintOf({});
    store.Place = {};
    store.Flags = 0;
}

bool SettingsFlush() {
    if (!store.Modified) {
        store.SaveError = 0;
        return false;
    }
    store.SaveError = ENOMEM;
    return Guarded([] {
        store.SaveError = Save();
        return store.SaveError == 0;
    });
}

int SettingsSaveError() {
    return store.SaveError;
}

bool SettingsSelectGroup(std::u16string_view name) {
    if (!store.Path) {
        store.Place.Pending.reset();
        return false;
    }
    if (name.empty()) {
        return SettingsRewindGroups();
    }
    return Guarded([&] { return SelectGroup(ToUtf8(name)); });
}

bool SettingsRewindGroups() {
    store.Place = {};
    return store.Path.has_value();
}

bool SettingsNextGroup() {
    SettingsEntry* const group = store.Document.Entries.NextGroup(store.Place.Group);
    if (group == nullptr) {
        return false;
    }
    store.Place.Group = group;
    return true;
}

std::u16string SettingsGroupName() {
    if (store.Place.Group == nullptr) {
        return {};
    }
    return Guarded([] { return ToUtf16(store.Place.Group->Value()); });
}

std::u16string SettingsReadString(std::u16string_view key, std::u16string_view defaultText) {
    return Guarded([&] {
        const SettingsEntry* const entry = FindKey(key);
        if (entry == nullptr) {
            return std::u16string(defaultText);
        }
        std::string_view value = entry->Value();
        value.remove_prefix(std::min(value.find_first_not_of(" \t"), value.size()));
        return ToUtf16(value);
    });
}

std::int64_t SettingsReadInteger(std::u16string_view key, std::int64_t defaultValue) {
    return Guarded([&]() -> std::int64_t {
        const SettingsEntry* const entry = FindKey(key);
        return entry == nullptr ? defaultValue : std::strtoll(entry->Value().data(), nullptr, 10);
    });
}

double SettingsReadNumber(std::u16string_view key, double defaultValue) {
    return Guarded([&] {
        const SettingsEntry* const entry = FindKey(key);
        return entry == nullptr ? defaultValue : BytesToNumber(entry->Value().data());
    });
}

bool SettingsWriteString(std::u16string_view key, std::u16string_view value) {
    return Guarded([&] { return Write(ToUtf8(key), ToUtf8(value)); });
}

bool SettingsWriteInteger(std::u16string_view key, std::int64_t value) {
    return Guarded([&] { return SettingsWriteString(key, IntegerToText(value)); });
}

}  // namespace rotavel
