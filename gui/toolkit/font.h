#pragma once

#include <cstdint>

#include <QFont>

namespace rotavel {

// The font of a number as gadgets use it; the system's own for a number that is not loaded.
QFont FontForGadgets(std::int64_t number);

// The font number that new gadgets and status bar fields get, AnyNumber for none.
std::int64_t DefaultGadgetFont();
void SetDefaultGadgetFont(std::int64_t number);

}  // namespace rotavel
