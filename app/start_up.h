#pragma once

namespace rotavel {

// The whole run of the program, from reading the settings file to writing it back. Returns the exit
// status, always 0.
int RunProgram();

}  // namespace rotavel
