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
    std::u16string_view Name = u"";  // for screen readers and as the tool tip; labels have none
};

constexpr std::array TopRows = {
    GadgetRow{0, Kind::Label, 10, 10, 80, u"Rear wheel", TextRight},
    GadgetRow{TyreWidthField, Kind::Entry, 100, 10, 50, u"", 0, u"Rear tyre, width"},
    GadgetRow{2, Kind::Label, 160, 10, 10, u"/", 0},
    GadgetRow{PercentHeightField, Kind::Entry, 180, 10, 30, u"", StringNumeric,
              u"Rear tyre, height in percent of the width"},
    GadgetRow{4, Kind::Label, 220, 10, 10, u"-", 0},
    GadgetRow{RimDiameterField, Kind::Entry, 230, 10, 30, u"", StringNumeric,
              u"Rear tyre, rim diameter in inches"},
    GadgetRow{48, Kind::Label, 10, 50, 80, u"Primary", TextRight},
    GadgetRow{PrimaryDrivingField, Kind::Entry, 100, 50, 40, u"", StringNumeric,
              u"Primary drive, teeth of the driving wheel"},
    GadgetRow{PrimaryDrivenField, Kind::Entry, 150, 50, 40, u"", StringNumeric,
              u"Primary drive, teeth of the driven wheel"},
    GadgetRow{PrimaryRatioField, Kind::Entry, 200, 50, 50, u"", 0, u"Primary drive, ratio"},
    GadgetRow{6, Kind::Label, 10, 80, 80, u"gear", TextRight},
    GadgetRow{8, Kind::Label, 100, 80, 40, u"gw 1", TextCentred},
    GadgetRow{9, Kind::Label, 150, 80, 40, u"gw 2", TextCentred},
    GadgetRow{10, Kind::Label, 200, 80, 50, u"ratio", TextCentred},
    GadgetRow{SpeedUnitBox, Kind::Choice, 260, 75, 50, u"", 0, u"Unit of speed"},
};

// The row of first gear; each further gear's stands GearRowStep lower, its numbers one higher. A
// `*` in a name stands for the gear in words.
constexpr std::array GearRow = {
    GadgetRow{12, Kind::Label, 10, GearRowTop, 80, u"", TextRight},
    GadgetRow{GearDrivingField, Kind::Entry, 100, GearRowTop, 40, u"", StringNumeric,
              u"* gear, teeth of the driving wheel"},
    GadgetRow{GearDrivenField, Kind::Entry, 150, GearRowTop, 40, u"", StringNumeric,
              u"* gear, teeth of the driven wheel"},
    GadgetRow{GearRatioField, Kind::Entry, 200, GearRowTop, 50, u"", 0, u"* gear, ratio"},
    GadgetRow{GearSpeedField, Kind::Entry, 260, GearRowTop, 50, NoSpeedText, 0,
              u"Road speed in * gear"},
    GadgetRow{CalcRpmButton, Kind::Button, 320, GearRowTop, 70, u"Calc rpm", 0,
              u"Calculate the engine speed for * gear"},
};

constexpr std::array<std::u16string_view, GearCount> GearNames = {u"1st", u"2nd", u"3rd",
                                                                  u"4th", u"5th", u"6th"};
constexpr std::array<std::u16string_view, GearCount> SpokenGearNames = {
    u"first", u"second", u"third", u"fourth", u"fifth", u"sixth"};

constexpr std::array BottomRows = {
    GadgetRow{52, Kind::Label, 10, 290, 80, u"Final drive", TextRight},
    GadgetRow{FinalDrivingField, Kind::Entry, 100, 290, 40, u"", StringNumeric,
              u"Final drive, teeth of the driving wheel"},
    GadgetRow{FinalDrivenField, Kind::Entry, 150, 290, 40, u"", StringNumeric,
              u"Final drive, teeth of the driven wheel"},
    GadgetRow{FinalRatioField, Kind::Entry, 200, 290, 50, u"", 0, u"Final drive, ratio"},
    GadgetRow{56, Kind::Label, 10, 330, 80, u"Max RPM", TextRight},
    GadgetRow{MaxRpmField, Kind::Entry, 100, 330, 50, u"", StringNumeric,
              u"Maximum engine speed in turns a minute"},
    GadgetRow{58, Kind::Label, 100, 370, 50, u"rpm", TextCentred},
    GadgetRow{59, Kind::Label, 10, 390, 80, u"@", TextRight},
    GadgetRow{RpmField, Kind::Entry, 100, 390, 50, u"", StringNumeric,
              u"Engine speed in turns a minute"},
    GadgetRow{CalcSpeedButton, Kind::Button, 160, 390, 80, u"Calc speed", 0,
              u"Calculate the road speed in every gear"},
    GadgetRow{GraphicButton, Kind::Button, 100, 420, 140, u"Graphic", 0,
              u"Show a chart of road speed against engine speed"},
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
    if (!row.Name.empty()) {
        GadgetName(row.Number, row.Name);
        GadgetToolTip(row.Number, row.Name);
    }
}

// A name of GearRow for one gear, with a capital letter in front.
std::u16string NameInGear(std::u16string_view name, std::size_t gear) {
    std::u16string spoken(name);
    const std::size_t mark = spoken.find(u'*');
    if (mark != std::u16string::npos) {
        spoken.replace(mark, 1, SpokenGearNames[gear]);
    }
    if (mark == 0) {
        spoken[0] = static_cast<char16_t>(spoken[0] - u'a' + u'A');
    }
    return spoken;
}

void CreateGearRow(std::size_t gear) {
    for (GadgetRow row : GearRow) {
        const std::u16string name = NameInGear(row.Name, gear);
        row.Number = GadgetOfGear(row.Number, gear);
        row.Y += static_cast<std::int64_t>(gear) * GearRowStep;
        row.Text = row.GadgetKind == Kind::Label ? GearNames[gear] : row.Text;
        row.Name = name;
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
