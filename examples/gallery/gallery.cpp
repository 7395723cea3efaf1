// One window with every kind of gadget in every form, a menu and a requester, and second windows of
// several kinds, written on the public headers of gui/ and draw/ alone. Prints each event it takes
// but Repaint, one a line: kind, object, window, type and a text, which is a drop's or the
// gadget's.

#include <array>
#include <cinttypes>
#include <cstdio>
#include <string>

#include "draw/image.h"
#include "draw/vector_drawing.h"
#include "gui/application.h"
#include "gui/button_gadget.h"
#include "gui/canvas_gadget.h"
#include "gui/combo_box_gadget.h"
#include "gui/drag_and_drop.h"
#include "gui/event_loop.h"
#include "gui/event_queue.h"
#include "gui/font.h"
#include "gui/gadget.h"
#include "gui/image_gadget.h"
#include "gui/menu.h"
#include "gui/numbers.h"
#include "gui/requester.h"
#include "gui/status_bar.h"
#include "gui/string_gadget.h"
#include "gui/text_gadget.h"
#include "gui/window.h"
#include "text/utf.h"

namespace {

using namespace rotavel;

enum Window : std::int64_t { GalleryWindow, PlainWindow, PopupWindow };

enum Item : std::int64_t {
    AskItem = 1,
    DisableItem,
    OpenItem,
    OpenZoomedItem,
    OpenMiniaturizedItem,
    CloseItem,
    PopupItem,
    HideItem,
    QuitGalleryItem,
    ShortcutItem = 20,
};

struct Field {
    std::int64_t Number;
    std::u16string_view Caption;
    std::u16string_view Text;
    std::uint32_t Flags;
};

constexpr std::array Fields = {
    Field{1, u"plain", u"any text", 0},
    Field{2, u"password", u"secret", StringPassword},
    Field{3, u"read-only", u"select me", StringReadOnly},
    Field{4, u"upper case", u"as set", StringUpperCase},
    Field{5, u"lower case", u"As Set", StringLowerCase},
    Field{6, u"both cases", u"As Set", StringUpperCase | StringLowerCase},
    Field{7, u"digits", u"55 ", StringNumeric},
    Field{8, u"borderless", u"no frame", StringBorderless},
    Field{9, u"three at most", u"longer", 0},
};

struct Label {
    std::int64_t Number;
    std::u16string_view Text;
    std::uint32_t Flags;
};

constexpr std::array Labels = {
    Label{20, u"left", 0},
    Label{21, u"right", TextRight},
    Label{22, u"centred", TextCentred},
    Label{23, u"right wins", TextRight | TextCentred},
    Label{24, u"bordered", TextBordered},
    Label{25, u"disabled", 0},
};

struct ComboBox {
    std::int64_t Number;
    std::uint32_t Flags;
};

constexpr std::array ComboBoxes = {
    ComboBox{30, 0},
    ComboBox{31, ComboBoxLowerCase},
    ComboBox{32, ComboBoxUpperCase},
    ComboBox{33, ComboBoxImages},
    ComboBox{34, ComboBoxEditable},
};

constexpr std::int64_t Button = 40;
constexpr std::int64_t DisabledButton = 41;
constexpr std::int64_t PlainImage = 50;
constexpr std::int64_t SunkenImage = 51;
constexpr std::int64_t Canvas = 60;
constexpr std::int64_t ButtonOnCanvas = 61;
constexpr std::int64_t DisableButton = 70;

std::int64_t MakePicture(std::int64_t side) {
    const std::int64_t picture = ImageCreate(AnyNumber, side, side);
    if (VectorBegin(ImageVectorTarget(picture))) {
        const auto edge = static_cast<double>(side);
        VectorSetColour(ColourRGBA(250, 200, 60, 255));
        PathAddBox(0, 0, edge, edge);
        PathFill();
        VectorSetColour(ColourRGBA(40, 40, 120, 255));
        PathMoveTo(0, 0);
        PathLineTo(edge, edge);
        PathMoveTo(edge, 0);
        PathLineTo(0, edge);
        PathStroke(3, StrokeRoundEnd);
        VectorEnd();
    }
    return picture;
}

void CreateFields() {
    std::int64_t y = 10;
    for (const Field& field : Fields) {
        TextGadgetCreate(field.Number + 100, 10, y, 90, 20, field.Caption, TextRight);
        StringGadgetCreate(field.Number, 110, y, 90, 20, field.Text, field.Flags);
        y += 28;
    }
    SetGadgetAttribute(9, StringMaximumLength, 3);
    SetGadgetColor(1, GadgetBackColor, ColourRGBA(255, 255, 200, 255));
    SetGadgetColor(1, GadgetFrontColor, ColourRGBA(0, 0, 160, 255));
    GadgetToolTip(1, u"Drop a text here");
    EnableGadgetDrop(1, true);
}

void CreateLabelsAndButtons() {
    std::int64_t y = 10;
    for (const Label& label : Labels) {
        TextGadgetCreate(label.Number, 220, y, 90, 20, label.Text, label.Flags);
        y += 28;
    }
    DisableGadget(25, true);
    ButtonGadgetCreate(Button, 220, y, 90, 20, u"Press & see");
    ButtonGadgetCreate(DisabledButton, 220, y + 28, 90, 20, u"disabled");
    DisableGadget(DisabledButton, true);
}

void CreateComboBoxes(NativeImage* picture) {
    std::int64_t y = 10;
    for (const ComboBox& box : ComboBoxes) {
        ComboBoxGadgetCreate(box.Number, 330, y, 110, 22, box.Flags);
        for (const std::u16string_view item : {u"First", u"Second", u"Third"}) {
            AddGadgetItem(box.Number, -1, item, item == u"Second" ? picture : nullptr);
        }
        SetGadgetState(box.Number, 1);
        y += 28;
    }
}

void CreatePictures() {
    const std::int64_t small = MakePicture(16);
    CreateComboBoxes(ImageHandle(small));
    const std::int64_t picture = MakePicture(48);
    ImageGadgetCreate(PlainImage, 330, 160, 48, 48, ImageHandle(picture));
    ImageGadgetCreate(SunkenImage, 390, 160, 48, 48, ImageHandle(picture), ImageSunken);
    ImageFree(picture);
    ImageFree(small);
    CanvasGadgetCreate(Canvas, 330, 222, 110, 60);
    SetGadgetAttribute(Canvas, CanvasCursor, CursorCrossHair);
    OpenGadgetList(Canvas);
    ButtonGadgetCreate(ButtonOnCanvas, 10, 10, 70, 20, u"On canvas");
    CloseGadgetList();
}

void CreateMenu() {
    MenuCreate(0, WindowNativeHandle(GalleryWindow));
    MenuItem(AboutItem, u"");
    MenuItem(PreferencesItem, u"");
    MenuTitle(u"&Gallery");
    MenuItem(AskItem, u"&Ask...\tCTRL+SHIFT+A");
    MenuItem(DisableItem, u"Disable this window\tF5");
    MenuOpenSubmenu(u"Other windows");
    MenuItem(OpenItem, u"Open\tCMD+O");
    MenuItem(OpenZoomedItem, u"Open zoomed\tF7");
    MenuItem(OpenMiniaturizedItem, u"Open miniaturized\tF8");
    MenuItem(CloseItem, u"Close");
    MenuItem(PopupItem, u"Popup beside this one\tF9");
    MenuCloseSubmenu();
    MenuItem(HideItem, u"Hide the plain field");
    MenuSeparator();
    MenuItem(QuitGalleryItem, u"Quit");
    WindowAddShortcut(GalleryWindow, u"ALT+F6", ShortcutItem);
}

void CreateStatusBar() {
    StatusBarCreate(0, WindowNativeHandle(GalleryWindow));
    StatusBarAddField(100);
    StatusBarAddField(IgnoreValue);
    StatusBarAddField(80);
    StatusBarSetText(0, 0, u"left");
    StatusBarSetText(0, 1, u"what is left, centred", StatusCentred);
    StatusBarSetText(0, 2, u"right", StatusRight);
}

void OpenPlainWindow(std::uint32_t flags) {
    WindowCreate(PlainWindow, 20, 40, 200, 120, u"Resizable",
                 WindowResizable | WindowMaximizeBox | WindowMinimizeBox | flags);
    ButtonGadgetCreate(DisableButton, 10, 10, 180, 20, u"Disable or enable the gallery");
}

void DisableOrEnableGallery() {
    WindowDisable(GalleryWindow, !WindowIsDisabled(GalleryWindow));
}

void ChooseItem(std::int64_t item) {
    switch (item) {
        case AskItem:
            std::printf("answer %" PRId64 "\n",
                        MessageRequester(u"A question", u"Is everything to be seen?",
                                         MessageYesNoCancel | MessageWarning));
            break;
        case DisableItem:
            WindowDisable(GalleryWindow, true);
            break;
        case OpenItem:
            OpenPlainWindow(0);
            break;
        case OpenZoomedItem:
            OpenPlainWindow(WindowStartZoomed);
            break;
        case OpenMiniaturizedItem:
            OpenPlainWindow(WindowStartMiniaturized);
            break;
        case CloseItem:
            WindowDestroy(PlainWindow);
            break;
        case PopupItem:
            WindowCreate(PopupWindow,
                         WindowGetX(GalleryWindow) + WindowGetWidth(GalleryWindow, OuterFrame),
                         WindowGetY(GalleryWindow), 60, 60, u"", WindowBorderless,
                         WindowNativeHandle(GalleryWindow));
            break;
        case HideItem:
            HideGadget(1, 1);
            break;
        case QuitGalleryItem:
        case QuitItem:
            PostProgramEvent(CloseRequested, GalleryWindow, 0);
            break;
        default:
            break;
    }
}

std::u16string EventText() {
    return CurrentEventKind() == GadgetActivity ? GetGadgetText(CurrentEventObject())
                                                : EventDropText();
}

void PrintEvent(std::int64_t kind) {
    std::printf("%" PRId64 " %" PRId64 " %" PRId64 " %" PRId64 " %s\n", kind, CurrentEventObject(),
                CurrentEventWindow(), CurrentEventType(), ToUtf8(EventText()).c_str());
}

void RunGallery() {
    for (;;) {
        const std::int64_t kind = WaitForEventBlocking();
        if (kind <= 0 || kind == Repaint) {
            continue;
        }
        PrintEvent(kind);
        if (kind == CloseRequested && CurrentEventWindow() == GalleryWindow) {
            return;
        }
        if (kind == CloseRequested) {
            WindowDestroy(CurrentEventWindow());
        } else if (kind == MenuChosen) {
            ChooseItem(CurrentEventObject());
        } else if (kind == GadgetActivity && CurrentEventObject() == DisableButton) {
            DisableOrEnableGallery();
        }
    }
}

}  // namespace

int main() {
    std::setvbuf(stdout, nullptr, _IOLBF, BUFSIZ);
    GuiStart();
    FontLoad(0, u"Arial", 8);
    SetGadgetFont(AnyNumber, 0);
    WindowCreate(GalleryWindow, 0, 0, 460, 330, u"Gallery",
                 WindowMinimizeBox | WindowScreenCentred | WindowResizable);
    EnableWindowDrop(GalleryWindow, 1);
    CreateMenu();
    CreateFields();
    CreateLabelsAndButtons();
    CreatePictures();
    CreateStatusBar();
    ActivateGadget(1);
    RunGallery();
    GuiStop();
    return 0;
}
