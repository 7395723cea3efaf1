#pragma once

#include <string>
#include <vector>

#include "app/motorcycle_records.h"
#include "app/speed_chart.h"

namespace rotavel {

// What the program holds from start-up to shutdown.
struct Program {
    std::u16string SettingsPath;  // of the settings file
    std::vector<MakerRecord> Makers;
    SpeedChart Chart;
};

}  // namespace rotavel
