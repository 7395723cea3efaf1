#pragma once

#include "app/program.h"

namespace rotavel {

// Waits for events and carries out the commands they stand for, until the main window is to close.
void RunMainLoop(Program& program);

}  // namespace rotavel
