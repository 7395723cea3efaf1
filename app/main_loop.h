#pragma once

#include <vector>

#include "app/motorcycle_records.h"

namespace rotavel {

// Waits for events and carries out the commands they stand for, until the main window is to close.
void RunMainLoop(const std::vector<MakerRecord>& makers);

}  // namespace rotavel
