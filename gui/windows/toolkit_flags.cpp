#include "gui/windows/toolkit_flags.h"

#include <QWidget>
#include <QWindow>

#include "gui/window.h"

namespace rotavel {

Qt::WindowFlags ToolkitFlags(std::uint32_t flags, bool hasParent) {
    if ((flags & WindowBorderless) != 0) {
        // Beside its parent a borderless window has to be popup-like: only such a surface can be
        // placed where the program wants it on every platform.
        return hasParent ? Qt::ToolTip | Qt::WindowDoesNotAcceptFocus
                         : Qt::Window | Qt::FramelessWindowHint;
    }
    Qt::WindowFlags native =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint;
    native.setFlag(Qt::WindowCloseButtonHint,
                   (flags & (WindowCloseBox | WindowMaximizeBox | WindowMinimizeBox)) != 0);
    native.setFlag(Qt::WindowMinimizeButtonHint,
                   (flags & (WindowMinimizeBox | WindowStartMiniaturized)) != 0);
    native.setFlag(Qt::WindowMaximizeButtonHint,
                   (flags & (WindowResizable | WindowMaximizeBox | WindowStartZoomed)) != 0);
    return native;
}

void SetTitleBarButtons(QWidget& window, Qt::WindowFlags buttons) {
    if (!window.windowFlags().testFlag(Qt::WindowTitleHint)) {
        return;
    }
    // The toolkit would hide the window to change these; the window manager takes the new set from
    // the native window as it is.
    window.overrideWindowFlags((window.windowFlags() & ~TitleBarButtons) | buttons);
    if (window.windowHandle() != nullptr) {
        window.windowHandle()->setFlags(window.windowFlags());
    }
}

}  // namespace rotavel
