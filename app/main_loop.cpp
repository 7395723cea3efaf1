#include "app/main_loop.h"

#include <cstdint>
#include <string>

#include "app/current_motorcycle.h"
#include "app/gear_calculation.h"
#include "app/gear_commands.h"
#include "app/main_window.h"
#include "app/speed_chart.h"
#include "gui/event_loop.h"
#include "gui/event_queue.h"
#include "gui/gadget.h"
#include "gui/menu.h"
#include "gui/requester.h"
#include "text/number_text.h"

namespace rotavel {

namespace {

constexpr std::int32_t RatioDecimals = 4;

bool IsOfGear(std::int64_t gadget, std::int64_t firstGearGadget) {
    return gadget >= firstGearGadget &&
           gadget < firstGearGadget + static_cast<std::int64_t>(GearCount);
}

void ShowAbout() {
    MessageRequester(u"About", std::u16string(ProgramTitle) + u"\n\n" + CopyrightText + u"\n\n" +
                                   u"Because some Guzzis don't have a revolution counter :(\n");
}

void ChooseMenuItem(std::int64_t item, const std::vector<MakerRecord>& makers) {
    if (item == QuitMenuItem || item == QuitItem) {
        PostProgramEvent(CloseRequested, MainWindow, 0);
    } else if (item == AboutMenuItem) {
        ShowAbout();
    } else if (item >= FirstMotorcycleMenuItem) {
        if (const auto choice = FindMotorcycle(makers, item)) {
            ChooseMotorcycle(*choice);
        }
    }
}

// An inch width ("3.25") goes without a percent height.
void WidthChanged() {
    const bool inches = GetGadgetText(TyreWidthField).find(u'.') != std::u16string::npos;
    if (inches) {
        SetGadgetText(PercentHeightField, u"");
    }
    DisableGadget(PercentHeightField, inches ? 1 : 0);
}

// Writes driven / driving teeth into a ratio field. A division by zero is shown as what it is.
void UpdateRatio(std::int64_t drivingField, std::int64_t drivenField, std::int64_t ratioField) {
    const auto driving = static_cast<double>(TextToInteger(GetGadgetText(drivingField)));
    const auto driven = static_cast<double>(TextToInteger(GetGadgetText(drivenField)));
    SetGadgetText(ratioField, NumberToText(driven / driving, RatioDecimals));
}

void FieldChanged(std::int64_t gadget) {
    if (gadget == SpeedUnitBox) {
        CalcSpeeds();
    } else if (gadget == TyreWidthField) {
        WidthChanged();
    } else if (gadget == PrimaryDrivingField || gadget == PrimaryDrivenField) {
        UpdateRatio(PrimaryDrivingField, PrimaryDrivenField, PrimaryRatioField);
    } else if (IsOfGear(gadget, GearDrivingField)) {
        const std::int64_t gear = gadget - GearDrivingField;
        UpdateRatio(gadget, GearDrivenField + gear, GearRatioField + gear);
    } else if (IsOfGear(gadget, GearDrivenField)) {
        const std::int64_t gear = gadget - GearDrivenField;
        UpdateRatio(GearDrivingField + gear, gadget, GearRatioField + gear);
    } else if (IsOfGear(gadget, GearRatioField)) {
        ForgetCurrentMotorcycle();
    } else if (gadget == FinalDrivingField || gadget == FinalDrivenField) {
        UpdateRatio(FinalDrivingField, FinalDrivenField, FinalRatioField);
    }
}

void UseGadget(std::int64_t gadget, std::int64_t type) {
    if (type == Change) {
        FieldChanged(gadget);
    }
    if (IsOfGear(gadget, CalcRpmButton)) {
        CalcRpmForGear(gadget);
    } else if (gadget == CalcSpeedButton) {
        CalcSpeeds();
    } else if (gadget == GraphicButton) {
        ShowSpeedChart();
    }
}

}  // namespace

void RunMainLoop(const std::vector<MakerRecord>& makers) {
    bool QuitRequested = false;
    while (!QuitRequested) {
        const std::int64_t kind = WaitForEventBlocking();
        // A session that ends asks for the same as "Quit", but names no window.
        const bool sessionEnds = kind == MenuChosen && CurrentEventObject() == QuitItem;
        if (kind > 0 && CurrentEventWindow() != MainWindow && !sessionEnds) {
            HandleChartEvent();
            continue;
        }
        switch (kind) {
            case MenuChosen:
                ChooseMenuItem(CurrentEventObject(), makers);
                break;
            case GadgetActivity:
                UseGadget(CurrentEventObject(), CurrentEventType());
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
