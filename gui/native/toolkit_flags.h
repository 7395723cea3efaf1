#pragma once

#include <cstdint>

#include <Qt>

namespace rotavel {

// The toolkit's window type and title bar for the flags of WindowCreate.
Qt::WindowFlags ToolkitFlags(std::uint32_t flags, bool hasParent);

}  // namespace rotavel
