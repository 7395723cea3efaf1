#pragma once

namespace rotavel {

// The group [Settings]: the values on show when the program last ended.

// Puts them into the main window's gadgets and the current motorcycle's names.
void RestoreLastValues();

// Writes what the window shows now, as it stands, into the group.
void SaveLastValues();

}  // namespace rotavel
