#pragma once

#include <cstdint>

class QWidget;

namespace rotavel {

// Has what is dropped on a view posted as `kind` for `object`, or leaves it to the view again.
void TakeDrops(QWidget& view, bool takes, std::uint32_t kind, std::int64_t object);

}  // namespace rotavel
