#pragma once

#include <cstddef>
#include <cstdint>

#include "app/gear_calculation.h"

namespace rotavel {

// The commands that calculate: each reads the main window's fields afresh and writes its results
// back into them. With fields that give nothing to calculate with they change no result.

// Fills `target` from the window. Writes an inch width, unless the field is empty, back as it is
// looked up ("3,5" as "3.50") and disables the percent field for it.
GearMask ReadGearInputs(GearInputs& target);

// The unit that the speed-unit box shows.
SpeedUnit UnitOnShow();

// "Calc speed": the road speed of every gear at the typed engine speed.
void CalcSpeeds();

// "Calc rpm" of one gear, counted from 0: the engine speed for the road speed typed into the gear's
// field.
void CalcRpmForGear(std::size_t gear);

}  // namespace rotavel
