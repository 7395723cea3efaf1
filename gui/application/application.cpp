#include "gui/application.h"

#include <array>
#include <memory>

#include "gui/application/qz_application.h"
#include "gui/application/termination_signals.h"
#include "gui/events/event_posting.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/menu.h"
#include "gui/menus/menu_bars.h"
#include "gui/status_bar.h"
#include "gui/toolkit/native_events.h"
#include "gui/toolkit/retired_objects.h"
#include "gui/window.h"
#include "gui/windows/window_list.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

namespace {

std::unique_ptr<QzApplication> application;

}  // namespace

void GuiStart() {
    // The program has no command line, so the toolkit gets to see none either.
    static std::array<char, 8> name = {"Rotavel"};
    static std::array<char*, 2> arguments = {name.data(), nullptr};
    static int argumentCount = 1;
    application = std::make_unique<QzApplication>(argumentCount, arguments.data());
    SetWakeHook(&WakeNativeLoop);
    // Gadgets go before the menus of a window that closes.
    SetWindowObservers({&GadgetsAsObserver(), &MenusAsObserver()});
    CatchTerminationSignals();
}

void GuiStop() {
    ReleaseEventQueue();  // no binding is to run from here on
    WindowDestroy(AnyNumber);
    FreeGadget(AnyNumber);
    FreeMenu(AnyNumber);
    FreeFont(AnyNumber);
    DeleteRetiredObjects();
    ReleaseTerminationSignals();
    ReleaseEventQueue();
    SetWakeHook(nullptr);
    application.reset();
}

void BringToFront() {
    BringWindowsToFront();
}

}  // namespace rotavel
