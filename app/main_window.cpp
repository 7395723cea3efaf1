#include "app/main_window.h"

#include <string>

#include "gui/button_gadget.h"
#include "gui/combo_box_gadget.h"
#include "gui/gadget.h"
#include "gui/menu.h"
#include "gui/string_gadget.h"
#include "gui/text_gadget.h"
#include "gui/window.h"

namespace rotavel {

namespace {

constexpr std::int64_t WindowWidth = 450;
constexpr std::int64_t WindowHeight = 500;
constexpr std::int64_t RowHeight = 20;
constexpr std::int64_t GearRowTop = 100;
constexpr std::int64_t GearRowStep = 30;

enum class Kind { Label, Entry, Choice, Button };

struct GadgetRow {
    std::int64_t Number;
    Kind GadgetKind;
    std::int64_t X;
    std::int64_t Y;
    std::int64_t Width;
    std::u16string_view Text;
    std::uint32_t Flags;
};

constexpr std::array TopRows = {
    GadgetRow{0, Kind::Label, 10, 10, 80, u"Rear wheel", TextRight},
    GadgetRow{TyreWidthField, Kind::Entry, 100, 10, 50, u"", 0},
    GadgetRow{2, Kind::Label, 160, 10, 10, u"/", 0},
    GadgetRow{PercentHeightField, Kind::Entry, 180, 10, 30, u"", StringNumeric},
    GadgetRow{4, Kind::Label, 220, 10, 10, u"-", 0},
    GadgetRow{RimDiameterField, Kind::Entry, 230, 10, 30, u"", StringNumeric},
    GadgetRow{48, Kind::Label, 10, 50, 80, u"Primary", TextRight},
    GadgetRow{PrimaryDrivingField, Kind::Entry, 100, 50, 40, u"", StringNumeric},
    GadgetRow{PrimaryDrivenField, Kind::Entry, 150, 50, 40, u"", StringNumeric},
    GadgetRow{PrimaryRatioField, Kind::Entry, 200, 50, 50, u"", 0},
    GadgetRow{6, Kind::Label, 10, 80, 80, u"gear", TextRight},
    GadgetRow{8, Kind::Label, 100, 80, 40, u"gw 1", TextCentred},
    GadgetRow{9, Kind::Label, 150, 80, 40, u"gw 2", TextCentred},
    GadgetRow{10, Kind::Label, 200, 80, 50, u"ratio", TextCentred},
    GadgetRow{SpeedUnitBox, Kind::Choice, 260, 75, 50, u"", 0},
};

// The row of first gear; each further gear's stands GearRowStep lower, its numbers one higher.
constexpr std::array GearRow = {
    GadgetRow{12, Kind::Label, 10, GearRowTop, 80, u"", TextRight},
    GadgetRow{GearDrivingField, Kind::Entry, 100, GearRowTop, 40, u"", StringNumeric},
    GadgetRow{GearDrivenField, Kind::Entry, 150, GearRowTop, 40, u"", StringNumeric},
    GadgetRow{GearRatioField, Kind::Entry, 200, GearRowTop, 50, u"", 0},
    GadgetRow{GearSpeedField, Kind::Entry, 260, GearRowTop, 50, NoSpeedText, 0},
    GadgetRow{CalcRpmButton, Kind::Button, 320, GearRowTop, 70, u"Calc rpm", 0},
};

constexpr std::array<std::u16string_view, GearCount> GearNames = {u"1st", u"2nd", u"3rd",
                                                                  u"4th", u"5th", u"6th"};

constexpr std::array BottomRows = {
    GadgetRow{52, Kind::Label, 10, 290, 80, u"Final drive", TextRight},
    GadgetRow{FinalDrivingField, Kind::Entry, 100, 290, 40, u"", StringNumeric},
    GadgetRow{FinalDrivenField, Kind::Entry, 150, 290, 40, u"", StringNumeric},
    GadgetRow{FinalRatioField, Kind::Entry, 200, 290, 50, u"", 0},
    GadgetRow{56, Kind::Label, 10, 330, 80, u"Max RPM", TextRight},
    GadgetRow{MaxRpmField, Kind::Entry, 100, 330, 50, u"", StringNumeric},
    GadgetRow{58, Kind::Label, 100, 370, 50, u"rpm", TextCentred},
    GadgetRow{59, Kind::Label, 10, 390, 80, u"@", TextRight},
    GadgetRow{RpmField, Kind::Entry, 100, 390, 50, u"", StringNumeric},
    GadgetRow{CalcSpeedButton, Kind::Button, 160, 390, 80, u"Calc speed", 0},
    GadgetRow{GraphicButton, Kind::Button, 100, 420, 140, u"Graphic", 0},
};

void CreateGadget(const GadgetRow& row) {
    switch (row.GadgetKind) {
        case Kind::Label:
            TextGadgetCreate(row.Number, row.X, row.Y, row.Width, RowHeight, row.Text, row.Flags);
            break;
        case Kind::Entry:
            StringGadgetCreate(row.Number, row.X, row.Y, row.Width, RowHeight, row.Text, row.Flags);
            break;
        case Kind::Choice:
            ComboBoxGadgetCreate(row.Number, row.X, row.Y, row.Width, RowHeight, row.Flags);
            break;
        case Kind::Button:
            ButtonGadgetCreate(row.Number, row.X, row.Y, row.Width, RowHeight, row.Text, row.Flags);
            break;
    }
}

void CreateGearRow(std::size_t gear) {
    for (GadgetRow row : GearRow) {
        row.Number = GadgetOfGear(row.Number, gear);
        row.Y += static_cast<std::int64_t>(gear) * GearRowStep;
        row.Text = row.GadgetKind == Kind::Label ? GearNames[gear] : row.Text;
        CreateGadget(row);
    }
}

void CreateGadgets() {
    for (const GadgetRow& row : TopRows) {
        CreateGadget(row);
    }
    for (const std::u16string_view unit : UnitTexts) {
        AddGadgetItem(SpeedUnitBox, -1, unit);
    }
    for (std::size_t gear = 0; gear < GearCount; ++gear) {
        CreateGearRow(gear);
    }
    for (const GadgetRow& row : BottomRows) {
        CreateGadget(row);
    }
}

void CreateMotorcycleMenu(std::vector<MakerRecord>& makers) {
    std::int64_t item = FirstMotorcycleMenuItem;
    MenuOpenSubmenu(u"Motorcycle");
    for (MakerRecord& maker : makers) {
        MenuOpenSubmenu(maker.Name);
        for (MotorcycleRecord& motorcycle : maker.Models) {
            motorcycle.MenuItem = item++;
            MenuItem(motorcycle.MenuItem, motorcycle.Model);
        }
        MenuCloseSubmenu();
    }
    MenuCloseSubmenu();
}

void CreateMenu(std::vector<MakerRecord>& makers) {
    MenuCreate(MainMenu, WindowNativeHandle(MainWindow));
    MenuTitle(u"File");
    CreateMotorcycleMenu(makers);
    MenuSeparator();
    MenuItem(QuitMenuItem, u"Quit");
    MenuTitle(u"Help");
    MenuItem(AboutMenuItem, u"About");
}

}  // namespace

void OpenMainWindow(std::vector<MakerRecord>& makers) {
    const std::u16string title = std::u16string(ProgramTitle) + u" " + CopyrightText;
    WindowCreate(MainWindow, 0, 0, WindowWidth, WindowHeight, title,
                 WindowMinimizeBox | WindowScreenCentred);
    CreateMenu(makers);
    CreateGadgets();
}

}  // namespace rotavel
