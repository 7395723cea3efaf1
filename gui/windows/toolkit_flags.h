#pragma once

#include <cstdint>

#include <Qt>

class QWidget;

namespace rotavel {

// The toolkit's window type and title bar for the flags of WindowCreate.
Qt::WindowFlags ToolkitFlags(std::uint32_t flags, bool hasParent);

// The buttons of a title bar.
inline constexpr Qt::WindowFlags TitleBarButtons =
    Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint;

// Gives a window, also one on the screen, these of them.
void SetTitleBarButtons(QWidget& window, Qt::WindowFlags buttons);

}  // namespace rotavel
