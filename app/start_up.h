#pragma once

#include <string>
#include <string_view>

#include "app/program.h"

namespace rotavel {

// The whole run of the program, from its start to its end. Returns the exit status, always 0.
int RunProgram();

// What goes before and after the main loop, once the GUI layer has started.

// Opens the settings file, written first if there is none, and the main window with the values
// shown last. False when there is no settings file that can be opened: the user has been told, and
// nothing is open.
bool StartUp(Program& program, const std::u16string& settingsPath);

// Saves the values on show and closes the settings file, which rewrites it. Where that fails, path
// and reason go to standard error.
void ShutDown(const Program& program);

// The path of an executable's settings file.
std::u16string SettingsPath(std::u16string_view executable);

}  // namespace rotavel
