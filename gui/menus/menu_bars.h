#pragma once

#include "gui/windows/window_observer.h"

namespace rotavel {

// Puts a window's menu bar on it when it gets the keyboard and frees the bar when it closes.
WindowObserver& MenusAsObserver();

}  // namespace rotavel
