#include "gui/gadget.h"

#include <QFocusFrame>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include "gui/button_gadget.h"
#include "gui/canvas_gadget.h"
#include "gui/event_loop.h"
#include "gui/events/event_posting.h"
#include "gui/font.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/image_gadget.h"
#include "gui/string_gadget.h"
#include "gui/text_gadget.h"
#include "gui/toolkit/handle.h"
#include "gui/window.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/qz_window.h"
#include "tests/support/gui_test.h"

namespace rotavel {
namespace {

using namespace tests;

class GadgetTest : public GuiTest {
  protected:
    GadgetTest() { WindowCreate(0, 100, 100, 300, 200); }
};

TEST_F(GadgetTest, LivesFromItsCreationUntilItIsFreed) {
    const std::int64_t handle = StringGadgetCreate(5, 0, 0, 50, 20, u"first");
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(View(5)));
    StringGadgetCreate(5, 0, 0, 50, 20, u"second");
    const std::int64_t automatic = ButtonGadgetCreate(AnyNumber, 0, 0, 50, 20, u"Bed && <b>");
    EXPECT_EQ(GetGadgetText(5) + GetGadgetText(automatic), u"secondBed && <b>");
    EXPECT_EQ(ButtonGadgetCreate(-2, 0, 0, 50, 20, u"x"), 0);
    FreeGadget(5);
    FreeGadget(5);
    delete View(automatic);
    EXPECT_FALSE(GadgetExists(automatic)) << "a record never outlives its view";
    // Operations on a number that is not open do nothing.
    ActivateGadget(5);
    ResizeGadget(5, 1, 2, 3, 4);
    SetGadgetText(5, u"x");
    EXPECT_EQ(GetGadgetText(5) + GetGadgetItemText(5, 0), u"");
    EXPECT_EQ(AddGadgetItem(5, -1, u"x") + GetGadgetState(5) + GadgetWidth(5), 0);
    // A label serves neither state nor items.
    TextGadgetCreate(5, 0, 0, 50, 20);
    SetGadgetState(5, 1);
    SetGadgetItemState(5, 0, 1);
    SetGadgetItemAttribute(5, 0, 1, 1);
    SetGadgetItemColor(5, 0, GadgetFrontColor, 1);
    EXPECT_EQ(AddGadgetItem(5, -1, u"item") + AddGadgetColumn(5, 0, u"column", 50), 0);
    RemoveGadgetColumn(5, 0);
    EXPECT_EQ(GetGadgetText(5), u"");
    EXPECT_EQ(GetGadgetState(5) + CountGadgetItems(5) + GetGadgetItemState(5, 0), 0);
    EXPECT_EQ(GetGadgetItemAttribute(5, 0, 1) + GetGadgetItemColor(5, 0, GadgetFrontColor), 0);
    FreeGadget(AnyNumber);
    EXPECT_FALSE(GadgetExists(5));
}

TEST_F(GadgetTest, MayGoInTheMiddleOfItsOwnEvent) {
    ButtonGadgetCreate(1, 0, 0, 50, 20, u"B");
    StringGadgetCreate(2, 0, 30, 50, 20);
    ForgetEvents();
    BindEvent([] { FreeGadget(1); }, GadgetActivity, 0, 1);
    BindEvent([] { WindowDestroy(0); }, GadgetActivity, 0, 2, Change);
    Click(1);
    EXPECT_FALSE(GadgetExists(1));
    Click(2);
    Type("x");
    EXPECT_FALSE(WindowExists(0));
}

TEST_F(GadgetTest, CanBeTakenOverUnderAnotherKind) {
    class Functions final : public QzGadgetFunctions {
        void EventHandler() override { SendEvent(77); }
    };
    static std::int64_t type;
    BindEvent([] { type = CurrentEventType(); }, GadgetActivity);
    ButtonGadgetCreate(5, 0, 0, 50, 20, u"B");
    GadgetRecord& record = *GadgetRegistry().Find(5);
    QzGadgetFunctions::Reuse(std::make_unique<Functions>(), record, CanvasKind);
    ForgetEvents();
    Click(5);
    EXPECT_EQ(type, 77);
    SetGadgetState(5, 7);
    EXPECT_EQ(GetGadgetState(5), 1) << "a button is on or off";
    EXPECT_EQ(record.Kind, CanvasKind);
}

TEST_F(GadgetTest, NumberThatACallbackReopensIsLeftToIt) {
    static std::int64_t reopened;
    static constexpr auto reopen = [] {
        UnbindWindowEvents(0);
        WaitForEvent(0);
        reopened = StringGadgetCreate(1, 0, 0, 50, 20, u"callback's");
    };
    const auto focusField = [] {
        StringGadgetCreate(1, 0, 0, 50, 20, u"first");
        ActivateGadget(1);
        ForgetEvents();
        reopened = 0;
    };
    focusField();
    BindEvent(reopen, GadgetActivity, 0, 1, LostFocus);
    EXPECT_EQ(StringGadgetCreate(1, 0, 0, 50, 20, u"second"), 0);
    EXPECT_NE(reopened, 0);
    EXPECT_EQ(GetGadgetText(1), u"callback's");
    focusField();
    BindEvent(reopen, GadgetActivity, 0, 1, LostFocus);
    FreeGadget(1);
    ForgetEvents();
    EXPECT_EQ(GetGadgetText(1), u"callback's");
    focusField();
    BindEvent(reopen, GadgetActivity, 0, 1, LostFocus);
    DisableGadget(1, true);
    EXPECT_TRUE(View(1)->isEnabled());

    // A view that is gone to the program does not speak for the gadget that has its number.
    BindEvent(reopen, GadgetActivity, 0, 1, Change);
    ActivateGadget(1);
    QWidget* const gone = View(1);
    Type("x");
    ForgetEvents();
    ActivateGadget(1);
    EXPECT_EQ(Taken(), "Focus 1");
    EXPECT_NE(View(1), gone);
}

TEST_F(GadgetTest, FreesWhatItContains) {
    const auto createBox = [] {
        CanvasGadgetCreate(5, 0, 0, 100, 50);
        OpenGadgetList(5);
        StringGadgetCreate(6, 0, 0, 50, 20);
        StringGadgetCreate(4, 0, 25, 50, 20);
        CloseGadgetList();
        ActivateGadget(6);
        ForgetEvents();
    };
    createBox();
    StringGadgetCreate(7, 0, 60, 50, 20);
    BindEvent([] { ActivateGadget(6); }, GadgetActivity, 0, 6, LostFocus);
    OpenGadgetList(5);
    FreeGadget(5);
    EXPECT_FALSE(GadgetExists(4) || GadgetExists(5) || GadgetExists(6));
    EXPECT_EQ(Taken(), "LostFocus 6, Focus 6, LostFocus 6, Focus 6") << "nobody got the keyboard";
    TextGadgetCreate(1, 0, 0, 10, 10);
    EXPECT_EQ(View(1)->parentWidget(), Native(0)->ContentView());
    UnbindWindowEvents(0);
    createBox();
    BindEvent(
        [] {
            WindowDestroy(0);
            WaitForEvent(0);
        },
        GadgetActivity, 0, 6, LostFocus);
    FreeGadget(5);
    EXPECT_FALSE(WindowExists(0) || GadgetExists(5));
}

TEST_F(GadgetTest, DisabledWithTheKeyboardGivesItUp) {
    StringGadgetCreate(1, 0, 0, 50, 20);
    StringGadgetCreate(3, 60, 0, 50, 20);
    TextGadgetCreate(4, 120, 0, 50, 20);
    ActivateGadget(1);
    ForgetEvents();
    ActivateGadget(4);
    EXPECT_EQ(Taken(), "") << "a label takes no keys";
    DisableGadget(1, 1);
    EXPECT_EQ(Taken(), "LostFocus 1");
    WindowDisable(0, 1);
    ButtonGadgetCreate(2, 0, 30, 50, 20, u"B");
    Click(2);
    EXPECT_EQ(Taken(), "") << "the window is disabled, also for a gadget that comes later";
}

TEST_F(GadgetTest, IsPlacedInTheCurrentContainer) {
    auto* const box = new QWidget(Native(0)->ContentView());
    box->move(40, 30);
    QzGadgetList& list = *QzGadgetList::CurrentList();
    list.Push(ToHandle<NativeView>(box));
    StringGadgetCreate(1, 5, 6, 70, 20);
    using Place = std::pair<std::int64_t, std::int64_t>;
    const auto place = [](int mode) { return Place(GadgetX(1, mode), GadgetY(1, mode)); };
    EXPECT_EQ(place(InContainer), Place(5, 6));
    EXPECT_EQ(place(InWindow), Place(45, 36));
    EXPECT_EQ(place(OnScreen),
              Place(WindowGetX(0, InnerContent) + 45, WindowGetY(0, InnerContent) + 36));
    ResizeGadget(1, IgnoreValue, IgnoreValue, 80, IgnoreValue);
    ResizeGadget(1, 7, IgnoreValue, IgnoreValue, 25);
    EXPECT_EQ(View(1)->geometry(), QRect(7, 6, 80, 25));

    const auto container = [] {
        return TextGadgetCreate(3, 0, 0, 10, 10) == 0 ? nullptr : View(3)->parentWidget();
    };
    list.PushNoView();
    EXPECT_EQ(container(), nullptr);
    list.Pop();
    EXPECT_EQ(container(), box);
    list.Pop();
    list.Set(ToHandle<NativeView>(box));
    EXPECT_EQ(container(), box);
    list.Pop();
    EXPECT_EQ(container(), Native(0)->ContentView()) << "where an empty stack leads";
    WindowCreate(1, 0, 0, 50, 50, u"", WindowOutsideGadgetList);
    EXPECT_EQ(container(), Native(0)->ContentView());
    EXPECT_EQ(QzGadgetList::SetWindow(WindowNativeHandle(1)), WindowNativeHandle(0));
    EXPECT_EQ(container(), Native(1)->ContentView());
    EXPECT_EQ(GadgetRegistry().Find(3)->Window, 1);
}

TEST_F(GadgetTest, TakesTheFontThatIsTheDefaultAtItsCreation) {
    FontLoad(4, u"Arial", 11.5);
    SetGadgetFont(AnyNumber, 4);
    TextGadgetCreate(1, 0, 0, 50, 20);
    SetGadgetFont(AnyNumber, AnyNumber);
    TextGadgetCreate(2, 0, 0, 50, 20);
    EXPECT_EQ(View(1)->font().pointSizeF(), 11.5);
    EXPECT_EQ(GetGadgetFont(1), 4);
    SetGadgetFont(1, AnyNumber);
    EXPECT_EQ(View(1)->font(), View(2)->font());
    EXPECT_EQ(GetGadgetFont(1), AnyNumber);
}

TEST_F(GadgetTest, ActivatingGivesAndTakesTheKeyboard) {
    StringGadgetCreate(1, 0, 0, 50, 20);
    StringGadgetCreate(2, 60, 0, 50, 20);
    DisableGadget(2, 1);
    WindowCreate(1, 0, 0, 50, 50);
    ForgetEvents();
    ActivateGadget(1);
    ForgetEvents();
    EXPECT_EQ(KeyWindowNumber(), 0);
    ActivateGadget(2);
    Type("a");
    EXPECT_EQ(Taken(), "Change 1") << "a disabled field does not get the keyboard";
    ActivateGadget(AnyNumber);
    Type("b");
    EXPECT_EQ(Taken(), "LostFocus 1");
    EXPECT_EQ(GetGadgetText(1), u"a");
}

TEST_F(GadgetTest, HasColours) {
    StringGadgetCreate(1, 0, 0, 100, 20);
    TextGadgetCreate(2, 0, 30, 100, 20);
    for (const std::int64_t gadget : {1, 2}) {
        const auto middle = [gadget] { return View(gadget)->grab().toImage().pixelColor(50, 10); };
        for (const std::int64_t type : {GadgetFrontColor, GadgetBackColor}) {
            const std::int64_t own = GetGadgetColor(gadget, type);
            SetGadgetColor(gadget, type, 0xFF00FF00);
            EXPECT_EQ(GetGadgetColor(gadget, type), 0xFF00FF00);
            EXPECT_EQ(middle() == QColor(Qt::green), type == GadgetBackColor);
            SetGadgetColor(gadget, type, NoGadgetColor);
            EXPECT_EQ(GetGadgetColor(gadget, type), own);
            EXPECT_NE(middle(), QColor(Qt::green));
        }
    }
    DisableGadget(2, 1);
    EXPECT_NE(GetGadgetColor(2, GadgetFrontColor), 0xFF00FF00);
    DisableGadget(2, 0);
    EXPECT_EQ(GetGadgetColor(2, GadgetFrontColor), 0xFF00FF00)
        << "a label keeps the colour set last";
}

TEST_F(GadgetTest, ButtonIsPressedByKeys) {
    ButtonGadgetCreate(1, 0, 0, 50, 20, u"B");
    ActivateGadget(1);
    ForgetEvents();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_B}) {
        Press(key);
        EXPECT_EQ(Taken(), key == Qt::Key_B ? "" : "Press 1");
    }
}

TEST_F(GadgetTest, CanvasFollowsThePointerWhileItsWindowHasTheKeyboard) {
    static std::string told;
    CanvasGadgetCreate(1, 10, 10, 50, 40);
    ForgetEvents();
    BindEvent([] { told += " ELM"[CurrentEventType() - CanvasMouseEnter + 1]; }, GadgetActivity, 0,
              1);
    const struct {
        QPointF To;  // in the content
        Qt::MouseButtons Pressed;
        void (*Before)();
        std::string Told;
        int X, Y;
    } steps[] = {
        {{5, 5}, {}, nullptr, "", 0, 0},
        {{10.75, 12.5}, {}, nullptr, "EM", 0, 2},
        {{59.75, 49.75}, Qt::LeftButton, nullptr, "M", 49, 39},
        {{60, 49}, {}, nullptr, "L", 49, 39},
        {{20, 20}, Qt::LeftButton, nullptr, "", 49, 39},
        {{20, 21}, {}, nullptr, "EM", 10, 11},
        {{20, 21}, {}, [] { WindowCreate(1, 500, 400, 50, 50); }, "L", 10, 11},
        {{22, 20}, {}, [] { WindowActivate(0); }, "EM", 12, 10},
        {{23, 20}, {}, [] { DisableGadget(1, true); }, "L", 12, 10},
        {{24, 20}, {}, [] { DisableGadget(1, false); }, "EM", 14, 10},
        {{24, 20}, {}, [] { HideGadget(1, true); }, "L", 14, 10},
        {{26, 20}, {}, [] { HideGadget(1, false); }, "EM", 16, 10},
    };
    for (const auto& step : steps) {
        told.clear();
        if (step.Before != nullptr) {
            step.Before();
            ForgetEvents();
        }
        const QPointF place = step.To + Native(0)->ContentView()->pos();
        qt_handleMouseEvent(Native(0)->windowHandle(), place, place, step.Pressed, Qt::NoButton,
                            QEvent::MouseMove, {}, 0);
        ForgetEvents();
        EXPECT_EQ(told, step.Told) << step.To.x();
        EXPECT_EQ(GetGadgetAttribute(1, CanvasMouseX), step.X);
        EXPECT_EQ(GetGadgetAttribute(1, CanvasMouseY), step.Y);
    }
}

TEST_F(GadgetTest, ArrowKeysAreThePointerOfACanvasThatHasTheKeyboard) {
    static std::string told;
    CanvasGadgetCreate(1, 10, 10, 51, 41);
    StringGadgetCreate(2, 10, 60, 50, 20, u"");
    const QImage before = View(1)->grab().toImage();
    const QImage around = Native(0)->ContentView()->grab().toImage();
    ActivateGadget(1);
    ForgetEvents();
    EXPECT_EQ(View(1)->grab().toImage(), before);
    EXPECT_NE(Native(0)->ContentView()->grab().toImage(), around) << "the focus is to be seen";
    BindEvent([] { told += " ELM"[CurrentEventType() - CanvasMouseEnter + 1]; }, GadgetActivity, 0,
              1);
    const struct {
        Qt::Key Key;
        void (*Before)();
        std::string Told;
        int X, Y;
    } steps[] = {
        {Qt::Key_Up, nullptr, "EM", 25, 20},
        {Qt::Key_Up, nullptr, "M", 25, 19},
        {Qt::Key_A, nullptr, "", 25, 19},
        {Qt::Key_Up, [] { ActivateGadget(2); }, "L", 25, 19},
        {Qt::Key_Left, [] { ActivateGadget(1); }, "EM", 25, 19},
        {Qt::Key_Left, nullptr, "M", 24, 19},
        {Qt::Key_Left, [] { HideGadget(1, true); }, "L", 24, 19},
        {Qt::Key_Left,
         [] {
             HideGadget(1, false);
             ActivateGadget(1);
         },
         "EM", 24, 19},
        {Qt::Key_Left, [] { DisableGadget(1, true); }, "L", 24, 19},
    };
    for (const auto& step : steps) {
        told.clear();
        if (step.Before != nullptr) {
            step.Before();
            ForgetEvents();
        }
        Press(step.Key);
        ForgetEvents();
        EXPECT_EQ(told, step.Told);
        EXPECT_EQ(GetGadgetAttribute(1, CanvasMouseX), step.X);
        EXPECT_EQ(GetGadgetAttribute(1, CanvasMouseY), step.Y);
    }
    DisableGadget(1, false);
    ActivateGadget(1);
    EXPECT_EQ(View(1)->grab().toImage(), before);
    Press(Qt::Key_Left);
    EXPECT_NE(View(1)->grab().toImage(), before) << "the place is to be seen";
    EXPECT_EQ(FromHandle(CanvasBitmap(1))->pixelColor(24, 19), QColor(Qt::white));
    FreeGadget(1);
    ForgetEvents();
    EXPECT_EQ(Native(0)->ContentView()->findChild<QFocusFrame*>(), nullptr);
}

TEST_F(GadgetTest, ImageGadgetTakesTheImagesSize) {
    QImage red(30, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    ImageGadgetCreate(1, 0, 0, 10, 10);
    SetGadgetImage(1, ToHandle<NativeImage>(&red));
    EXPECT_EQ(View(1)->size(), QSize(30, 20));
    red.fill(Qt::blue);
    EXPECT_EQ(View(1)->grab().toImage().pixelColor(15, 10), QColor(Qt::red)) << "it is copied";
    SetGadgetImage(1, nullptr);
    EXPECT_NE(View(1)->grab().toImage().pixelColor(15, 10), QColor(Qt::red));
    ButtonGadgetCreate(2, 0, 0, 10, 10, u"B");
    SetGadgetImage(2, ToHandle<NativeImage>(&red));
    EXPECT_EQ(GetGadgetState(2), 0);
}

}  // namespace
}  // namespace rotavel
