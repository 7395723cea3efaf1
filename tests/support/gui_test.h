#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <string>

#include "gui/event_queue.h"

class QWidget;

namespace rotavel {
class QzWindow;
}

namespace rotavel::tests {

// A test that drives widgets on the toolkit's offscreen platform, where no display is needed, or on
// the one that ROTAVEL_TEST_PLATFORM names. The toolkit is started once for the whole test program;
// each test leaves it without windows.
class GuiTest : public testing::Test {
  protected:
    void TearDown() override;
};

// Lets everything native happen that is due and takes every event. Returns those that tell of input
// (menus, gadgets, clicks, close boxes) or of where windows are (moved, resized, zoomed), each as
// "name object", with "@window" for a gadget or menu of another window than 0.
std::string Taken();
std::string TakenGeometry();
void ForgetEvents();

QzWindow* Native(std::int64_t window);
QWidget* View(std::int64_t gadget);
// The window that has the keyboard, -1 for none.
std::int64_t KeyWindowNumber();

// Input as it arrives from the windowing system: keys go where the keyboard focus is, a click to
// what is topmost at the place. Keys have a space between them, and names as in "Ctrl+Shift+Z".
void Press(const char* keys);
void Click(std::int64_t gadget);
// What the title bar's close box and Alt+F4 ask for.
void AskToClose(std::int64_t window);
// A window's menu bar as "title(item,-,submenu(item,),),"; "-" is a separator.
std::string MenuOutline(std::int64_t window);

}  // namespace rotavel::tests
