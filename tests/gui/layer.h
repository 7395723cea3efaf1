#pragma once

// What the tests of the layer see of it, and of its inside.

#include "gui/button_gadget.h"
#include "gui/canvas_gadget.h"
#include "gui/combo_box_gadget.h"
#include "gui/event_loop.h"
#include "gui/events/event_posting.h"
#include "gui/gadget.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/image_gadget.h"
#include "gui/menu.h"
#include "gui/requester.h"
#include "gui/status_bar.h"
#include "gui/string_gadget.h"
#include "gui/text_gadget.h"
#include "gui/toolkit/handle.h"
#include "gui/window.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_record.h"
#include "tests/support/gui_test.h"
