#include "gui/application.h"

#include <array>
#include <memory>

#include "gui/application/native_loop.h"
#include "gui/application/qz_application.h"
#include "gui/application/termination_signals.h"
#include "gui/event_queue.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/menu.h"
#include "gui/status_bar.h"
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
    CatchTerminationSignals();
}

void GuiStop() {
    WindowDestroy(AnyNumber);
    FreeGadget(AnyNumber);
    FreeMenu(AnyNumber);
    FreeFont(AnyNumber);
    FlushDeferredDeletes();
    ReleaseTerminationSignals();
    ReleaseEventQueue();
    application.reset();
}

void BringToFront() {
    BringWindowsToFront();
}

}  // namespace rotavel
