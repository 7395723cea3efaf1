#pragma once

#include <string_view>

#include <QDeadlineTimer>
#include <QTimer>
#include <QWindow>

#include "gui/menus/message_box.h"
#include "layer.h"

// A window with everything on it, and what a program may do in the middle of a callback.

namespace rotavel::tests {

// The gadgets of window 0; window 1 is hidden until it is wanted.
enum : GadgetNumber { Button = 1, Field, List, EditList, Canvas, Image, OtherField, Inner };

inline constexpr std::uint32_t Posted = FirstUnmergedKind;
inline constexpr std::u16string_view Again = u"again";  // on what was created anew

inline NativeWindow* stage = nullptr;  // window 0 as it was put up
inline bool hasArrived = false;        // what a deed posted
inline int patienceMs = 2000;          // of Await

template <typename Condition>
bool Await(Condition holds) {
    for (const QDeadlineTimer patience(patienceMs); !holds() && !patience.hasExpired();) {
        WaitForEvent(10);
    }
    return holds();
}

inline void Drain() {
    while (WaitForEvent(0) != 0) {
    }
}

// Puts everything up anew; true when the window then takes a key for its button.
inline bool SetStage() {
    WindowDestroy(AnyNumber);
    WindowCreate(1, 400, 0, 100, 50, u"Other", WindowHidden);
    WindowCreate(0, 0, 0, 360, 240, u"Stage", WindowResizable | WindowMinimizeBox);
    stage = WindowNativeHandle(0);
    MenuCreate(0, stage);
    MenuTitle(u"File");
    MenuItem(6, u"Six\tF6");
    WindowAddShortcut(0, u"F5", 5);
    StatusBarCreate(0, stage);
    StatusBarAddField(IgnoreValue);
    StatusBarSetText(0, 0, u"Status");
    ButtonGadgetCreate(Button, 10, 10, 80, 20, u"Push");
    StringGadgetCreate(Field, 10, 40, 80, 20);
    StringGadgetCreate(OtherField, 110, 40, 80, 20);
    ComboBoxGadgetCreate(List, 10, 70, 80, 20);
    ComboBoxGadgetCreate(EditList, 110, 70, 80, 20, ComboBoxEditable);
    for (const GadgetNumber each : {List, EditList}) {
        AddGadgetItem(each, -1, u"one");
        AddGadgetItem(each, -1, u"two");
    }
    CanvasGadgetCreate(Canvas, 10, 100, 80, 60);
    ImageGadgetCreate(Image, 110, 100, 80, 60);
    ActivateGadget(Button);
    ForgetEvents();
    if (KeyWindowNumber() != 0) {
        return false;
    }
    Press(Qt::Key_Space);
    return Taken() == "Press 1";
}

// What a deed is done to.
inline struct {
    WindowNumber Window;
    GadgetNumber Gadget;
} target;

struct Deed {
    const char* Name;
    void (*Do)();
    bool (*Holds)() = [] { return true; };  // once everything has settled
};

// Each may be done to what is not there, too.
inline const Deed deeds[] = {
    {"frees the gadget", [] { FreeGadget(target.Gadget); },
     [] { return !GadgetExists(target.Gadget); }},
    {"frees all gadgets", [] { FreeGadget(AnyNumber); }},
    {"creates the gadget anew", [] { ButtonGadgetCreate(target.Gadget, 10, 10, 60, 20, Again); },
     [] {
         return WindowNativeHandle(0) == stage ? GetGadgetText(target.Gadget) == Again
                                               : !GadgetExists(target.Gadget);
     }},
    {"puts a gadget into the gadget",
     [] {
         OpenGadgetList(target.Gadget);
         StringGadgetCreate(Inner, 0, 0, 30, 20);
         CloseGadgetList();
     }},
    {"changes window and gadget",
     [] {
         WindowSetBounds(target.Window, 30, 40, 300, 200);
         WindowGetX(target.Window, InnerContent);
         SetGadgetText(target.Gadget, u"text");
         AddGadgetItem(target.Gadget, 0, u"item");
         RemoveGadgetItem(target.Gadget, 1);
     }},
    {"hides the gadget", [] { HideGadget(target.Gadget, true); }},
    {"disables the gadget", [] { DisableGadget(target.Gadget, true); }},
    {"activates another gadget", [] { ActivateGadget(OtherField); }},
    {"destroys the window", [] { WindowDestroy(target.Window); },
     [] { return !WindowExists(target.Window); }},
    {"destroys all windows and waits",
     [] {
         WindowDestroy(AnyNumber);
         WaitForEvent(0);
     }},
    {"opens the window anew",
     [] {
         WindowCreate(target.Window, 0, 0, 200, 100);
         ButtonGadgetCreate(Button, 10, 10, 60, 20, Again);
     },
     [] { return Native(target.Window)->isVisible() && GetGadgetText(Button) == Again; }},
    {"hides the window", [] { WindowShow(target.Window, Hidden); }},
    {"disables the window", [] { WindowDisable(target.Window, true); }},
    {"shows and enables all",
     [] {
         WindowDisable(target.Window, false);
         WindowShow(target.Window, Shown, WindowScreenCentred);
         HideGadget(target.Gadget, false);
         DisableGadget(target.Gadget, false);
     }},
    {"opens windows above it",
     [] {
         NativeWindow* const parent = WindowNativeHandle(target.Window);
         WindowCreate(2, 0, 0, 100, 50, u"", WindowStartZoomed, parent);
         WindowCreate(3, 0, 0, 100, 50, u"", WindowBorderless, WindowNativeHandle(2));
     }},
    {"replaces the menu", [] { MenuCreate(0, WindowNativeHandle(target.Window)); }},
    {"frees menu and status bar",
     [] {
         FreeMenu(0);
         StatusBarDestroy(0);
     }},
    {"waits",
     [] {
         WaitForEvent(0);
         WaitForEvent(2);
     }},
    {"destroys the window under a requester",
     [] {
         QTimer timer;
         QObject::connect(&timer, &QTimer::timeout, [window = target.Window] {
             WindowDestroy(window);
             DismissMessageBoxes();
         });
         timer.start(1);
         MessageRequester(u"Title", u"Text");
     },
     [] { return !WindowExists(target.Window); }},
    {"posts", [] { PostProgramEvent(Posted, -1); }, [] { return hasArrived; }},
};

}  // namespace rotavel::tests
