#pragma once

namespace rotavel {

// The values on show when the program last ended, kept in the current group of the settings store.

// Puts them into the main window's gadgets and the current motorcycle's names.
void RestoreLastValues();

// Writes what the window shows now, as it stands, into the group "Settings".
void SaveLastValues();

}  // namespace rotavel
