#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/settings_flags.h"

namespace rotavel {

// The settings store: one INI file of groups and keys, held in memory from SettingsOpen to
// SettingsClose and rewritten as a whole when a write has changed it. There is one store, for use
// from one thread. Names and keys are compared ignoring case for ASCII letters only, and the first
// match wins. The store shows no messages and throws nothing: where memory is short an operation
// returns 0, false or an empty text and, unless it says otherwise, changes nothing.

// Closes what was open and opens the file at `path`, to be rewritten in the layout of `flags`
// (settings_flags.h). False when no file could be opened: the store is then empty, and the first
// flush creates the file where there is none. Also false where memory is short. A file that could
// not be read whole is never rewritten; what was read of it can be used.
bool SettingsOpen(std::u16string_view path, std::uint32_t flags);

// The same with no flags.
bool SettingsOpenDefault(std::u16string_view path);

// Flushes, then empties the store.
void SettingsClose();

// Rewrites the file at the path when there were writes since the last time, and returns when the
// text has reached the disk. Whatever others have put into that file, or in its place, since it was
// read stays in it, with the store's writes added; a file that has gone is made again from all that
// the store holds, and one whose folder was renamed is rewritten where it is. False when there was
// nothing to write or it failed: the file then stays as it was, and so do the writes for another
// try. A file that could be opened for reading only is closed by this and keeps its content.
bool SettingsFlush();

// Why the last flush, SettingsClose's included, could not save what was written: a value of errno.
// 0 when it did, or when there was nothing to save.
int SettingsSaveError();

// Makes the group of that name the current one; the empty name stands for the keys before the
// first group. False when there is no such group: reads then find no key, and the next write adds
// the group at the end.
bool SettingsSelectGroup(std::u16string_view name);

// Visit all groups in file order: rewind, then each SettingsNextGroup makes the next group current
// until it returns false. Rewinding returns false when no store is open. A group that was selected
// and not found stays selected for reads and writes until the next rewind or select.
bool SettingsRewindGroups();
bool SettingsNextGroup();

// The current group's name, empty before the first group.
std::u16string SettingsGroupName();

// The value of a key of the current group, or the default when there is no such key. The text is
// without the spaces and tabs at its start. The integer is scanned like "%lld" and saturates, the
// number as by BytesToNumber; a value that is none gives 0, not the default.
std::u16string SettingsReadString(std::u16string_view key, std::u16string_view defaultText);
std::int64_t SettingsReadInteger(std::u16string_view key, std::int64_t defaultValue);
double SettingsReadNumber(std::u16string_view key, double defaultValue);

// Set a key of the current group, in the caller's spelling, or add it as the group's last line.
// Values are stored as they are, without quoting.
bool SettingsWriteString(std::u16string_view key, std::u16string_view value);
bool SettingsWriteInteger(std::u16string_view key, std::int64_t value);

}  // namespace rotavel
