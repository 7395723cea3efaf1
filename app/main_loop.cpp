#include "app/main_loop.h"

#include <cstdint>
#include <string>
#include <vector>

#include "app/current_motorcycle.h"
#include "app/gear_commands.h"
#include "app/inch_width_rule.h"
#include "app/main_window.h"
#include "app/teeth_ratios.h"
#include "gui/event_loop.h"
#include "gui/event_queue.h"
#include "gui/menu.h"
#include "gui/requester.h"

namespace rotavel {

namespace {

void ShowAbout() {
    MessageRequester(u"About", std::u16string(ProgramTitle) + u"\n\n" + CopyrightText + u"\n\n" +
                                   u"Because some Guzzis don't have a revolution counter :(\n");
}

void ChooseMenuItem(std::int64_t item, const std::vector<MakerRecord>& makers) {
    if (item == QuitMenuItem || item == QuitItem) {
        PostProgramEvent(CloseRequested, MainWindow);
    } else if (item == AboutMenuItem) {
        ShowAbout();
    } else if (const auto choice = FindMotorcycle(makers, item)) {
        ChooseMotorcycle(*choice);
    }
}

void FieldChanged(std::int64_t gadget) {
    if (gadget == SpeedUnitBox) {
        CalcSpeeds();
    } else if (gadget == TyreWidthField) {
        ApplyTypedWidth();
    } else if (GearOfGadget(GearRatioField, gadget)) {
        ForgetCurrentMotorcycle();
    } else {
        UpdateRatioFromTeeth(gadget);
    }
}

void UseGadget(std::int64_t gadget, std::int64_t type, SpeedChart& chart) {
    if (type == Change) {
        FieldChanged(gadget);
    }
    if (const auto gear = GearOfGadget(CalcRpmButton, gadget)) {
        CalcRpmForGear(*gear);
    } else if (gadget == CalcSpeedButton) {
        CalcSpeeds();
    } else if (gadget == GraphicButton) {
        ShowSpeedChart(chart);
    }
}

}  // namespace

void RunMainLoop(Program& program) {
    bool QuitRequested = false;
    while (!QuitRequested) {
        const std::int64_t kind = WaitForEventBlocking();
        if (kind <= 0) {
            continue;  // what happened is no event
        }
        // A session that ends asks for "Quit" too, but names no window.
        const bool isQuit = kind == MenuChosen && CurrentEventObject() == QuitItem;
        if (CurrentEventWindow() != MainWindow && !isQuit) {
            HandleChartEvent(program.Chart);
            continue;
        }
        switch (kind) {
            case MenuChosen:
                ChooseMenuItem(CurrentEventObject(), program.Makers);
                break;
            case GadgetActivity:
                UseGadget(CurrentEventObject(), CurrentEventType(), program.Chart);
                break;
            case CloseRequested:
                QuitRequested = true;
                break;
            default:
                break;
        }
    }
}

}  // namespace rotavel
