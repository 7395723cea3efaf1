#pragma once

#include <vector>

#include "app/motorcycle_records.h"
#include "app/speed_chart.h"

namespace rotavel {

// What the program holds from start-up to shutdown.
struct Program {
    std::vector<MakerRecord> Makers;
    SpeedChart Chart;
};

}  // namespace rotavel
