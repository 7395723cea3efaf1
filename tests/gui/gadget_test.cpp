#include <QFocusFrame>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

class GadgetTest : public GuiTest {
  protected:
    GadgetTest() { WindowCreate(0, 100, 100, 300, 200); }

    static QWidget* Container(std::int64_t gadget) { return View(gadget)->parentWidget(); }
    static QWidget* Content(std::int64_t window) { return Native(window)->ContentView(); }
};

TEST_F(GadgetTest, LivesFromItsCreationUntilItIsFreed) {
    const std::int64_t handle = StringGadgetCreate(5, 0, 0, 50, 20, u"first");
    EXPECT_EQ(handle, reinterpret_cast<std::intptr_t>(View(5)));
    StringGadgetCreate(5, 0, 0, 50, 20, u"second");
    const std::int64_t automatic = ButtonGadgetCreate(AnyNumber, 0, 0, 50, 20, u"Bed && <b>");
    EXPECT_EQ(GetGadgetText(5) + GetGadgetText(automatic), u"secondBed && <b>");
    SetGadgetState(automatic, 5);
    EXPECT_EQ(GetGadgetState(automatic), 1);
    EXPECT_EQ(ButtonGadgetCreate(-2, 0, 0, 50, 20, u"x"), 0);
    delete View(automatic);
    EXPECT_FALSE(GadgetExists(automatic)) << "a record never outlives its view";
}

TEST_F(GadgetTest, FreesWhatItContains) {
    CanvasGadgetCreate(5, 0, 0, 100, 50);
    OpenGadgetList(5);
    StringGadgetCreate(6, 0, 0, 50, 20);
    StringGadgetCreate(4, 0, 25, 50, 20);
    CloseGadgetList();
    StringGadgetCreate(7, 0, 60, 50, 20);
    ActivateGadget(6);
    ForgetEvents();
    BindEvent([] { ActivateGadget(6); }, GadgetActivity, 0, 6, LostFocus);
    OpenGadgetList(5);
    FreeGadget(5);
    EXPECT_FALSE(GadgetExists(4) || GadgetExists(5) || GadgetExists(6));
    EXPECT_EQ(Taken(), "LostFocus 6, Focus 6, LostFocus 6, Focus 6") << "nobody got the keyboard";
    TextGadgetCreate(1, 0, 0, 10, 10);
    EXPECT_EQ(Container(1), Content(0));
}

TEST_F(GadgetTest, GetsTheKeyboardAndGivesItUp) {
    // Not created in the order of the eye, which Tab follows.
    StringGadgetCreate(3, 0, 30, 50, 20, u"", StringPassword);
    StringGadgetCreate(2, 60, 0, 50, 20);
    StringGadgetCreate(1, 0, 0, 50, 20);
    TextGadgetCreate(4, 120, 0, 50, 20);
    WindowCreate(1, 0, 0, 50, 50, u"", WindowOutsideGadgetList);
    ForgetEvents();
    const struct {
        void (*Deed)();
        std::string Events;
    } steps[] = {
        {[] { ActivateGadget(3); }, ""},  // a password field's
        {[] { Press(Qt::Key_Tab); }, "Focus 1"},
        {[] { Press(Qt::Key_Return); }, ""},
        {[] { Press(Qt::Key_Tab); }, "LostFocus 1, Focus 2"},
        {[] { Press(Qt::Key_Tab); }, "LostFocus 2"},
        {[] { Press(Qt::Key_Backtab); }, "Focus 2"},
        {[] { WindowActivate(1); }, ""},  // the windows changed, not their fields
        {[] { WindowActivate(0); }, ""},
        {[] { DisableGadget(1, true); }, ""},
        {[] { ActivateGadget(1); }, ""},
        {[] { ActivateGadget(4); }, ""},
        {[] { Type("a"); }, "Change 2"},
        {[] { ActivateGadget(AnyNumber); }, "LostFocus 2"},
        {[] { Type("b"); }, ""},
        {[] { ActivateGadget(2); }, "Focus 2"},
        {[] { DisableGadget(1, false); }, ""},
        {[] { DisableGadget(2, true); }, "LostFocus 2"},  // and no other field gets it
        {[] { ActivateGadget(1); }, "Focus 1"},
        {[] { HideGadget(1, true); }, "LostFocus 1"},
    };
    for (const auto& step : steps) {
        step.Deed();
        EXPECT_EQ(Taken(), step.Events) << "step " << &step - steps;
    }
    EXPECT_EQ(GetGadgetText(2), u"a");
    WindowDisable(0, 1);
    ButtonGadgetCreate(5, 0, 60, 50, 20, u"B");
    Click(5);
    EXPECT_EQ(Taken(), "") << "the window is disabled, also for a gadget that comes later";
}

TEST_F(GadgetTest, IsPlacedInTheCurrentContainer) {
    const auto container = [] {
        return StringGadgetCreate(1, 5, 6, 70, 20) == 0 ? nullptr : Container(1);
    };
    auto* const box = new QWidget(Content(0));
    box->move(40, 30);
    QzGadgetList& list = *QzGadgetList::CurrentList();
    list.Push(ToHandle<NativeView>(box));
    EXPECT_EQ(container(), box);
    ResizeGadget(1, 7, IgnoreValue, IgnoreValue, 25);
    EXPECT_EQ(View(1)->geometry(), QRect(7, 6, 70, 25));
    EXPECT_EQ(GadgetX(1, OnScreen), WindowGetX(0, InnerContent) + 47);
    list.Pop();
    EXPECT_EQ(container(), Content(0));
    WindowCreate(1, 0, 0, 50, 50, u"", WindowOutsideGadgetList);
    EXPECT_EQ(container(), Content(0));
    EXPECT_EQ(QzGadgetList::SetWindow(WindowNativeHandle(1)), WindowNativeHandle(0));
    EXPECT_EQ(container(), Content(1));
    EXPECT_EQ(GadgetRegistry().Find(1)->Window, 1);
}

TEST_F(GadgetTest, ShowsANewBackgroundAtOnce) {
    StringGadgetCreate(1, 0, 0, 100, 20);
    TextGadgetCreate(2, 0, 30, 100, 20);
    CanvasGadgetCreate(3, 0, 60, 100, 20);
    for (const std::int64_t gadget : {1, 2, 3}) {
        SetGadgetColor(gadget, GadgetBackColor, 0xFF00FF00);
        ForgetEvents();
        const QPixmap screen = Native(0)->screen()->grabWindow(Native(0)->winId());
        EXPECT_EQ(screen.toImage().pixelColor(View(gadget)->geometry().center()),
                  QColor(Qt::green));
    }
}

class CanvasTest : public GadgetTest {
  protected:
    CanvasTest() {
        CanvasGadgetCreate(1, 10, 10, 50, 40);
        StringGadgetCreate(2, 10, 60, 50, 20);
        ActivateGadget(2);
        ForgetEvents();
        BindEvent([] { told += "ELM"[CurrentEventType() - CanvasMouseEnter]; }, GadgetActivity, 0,
                  1);
    }
    // The pointer comes to a place of the content.
    static void Point(double x, double y, Qt::MouseButtons pressed = {}) {
        const QPointF place = QPointF(x, y) + Content(0)->pos();
        qt_handleMouseEvent(Native(0)->windowHandle(), place, place, pressed, Qt::NoButton,
                            QEvent::MouseMove, {}, 0);
    }
    static QImage Picture() { return View(1)->grab().toImage(); }

    inline static std::string told;
};

TEST_F(CanvasTest, FollowsPointerAndArrowKeysWhileItsWindowHasTheKeyboard) {
    const struct {
        void (*Deed)();
        std::string Told;  // entered, left, moved, and where the pointer is on it
    } steps[] = {
        {[] { Point(10.75, 12.5); }, "EM 0,2"},
        {[] { Point(59.75, 49.75, Qt::LeftButton); }, "M 49,39"},
        {[] { Point(60, 49); }, "L 49,39"},
        {[] { Point(20, 20, Qt::LeftButton); }, " 49,39"},
        {[] { Point(20, 21); }, "EM 10,11"},
        {[] { WindowCreate(1, 500, 400, 50, 50); }, "L 10,11"},
        {[] { Point(20, 22); }, " 10,11"},
        {[] { WindowActivate(0); }, " 10,11"},
        {[] { Point(22, 20); }, "EM 12,10"},
        {[] { HideGadget(1, true); }, "L 12,10"},
        {[] { HideGadget(1, false); }, " 12,10"},
        {[] { ActivateGadget(1); }, " 12,10"},
        {[] { Press(Qt::Key_Up); }, "EM 12,10"},
        {[] { Press(Qt::Key_Up); }, "M 12,9"},
        {[] { ActivateGadget(2); }, "L 12,9"},
        {[] { Press(Qt::Key_Left); }, " 12,9"},
        {[] { ActivateGadget(1); }, " 12,9"},
        {[] { Press(Qt::Key_Left); }, "EM 12,9"},
        {[] { Point(5, 6); }, "L 12,9"},
    };
    for (const auto& step : steps) {
        step.Deed();
        ForgetEvents();
        const auto place = [](std::int64_t side) {
            return std::to_string(GetGadgetAttribute(1, side));
        };
        EXPECT_EQ(told + " " + place(CanvasMouseX) + "," + place(CanvasMouseY), step.Told)
            << "step " << &step - steps;
        told.clear();
    }
}

TEST_F(CanvasTest, ShowsWhereTheKeyboardIsBesideWhatIsDrawn) {
    const QImage before = Picture();
    ActivateGadget(1);
    ForgetEvents();
    EXPECT_TRUE(Content(0)->findChild<QFocusFrame*>()->isVisible());
    EXPECT_EQ(Picture(), before);
    Press(Qt::Key_Left);
    EXPECT_NE(Picture(), before) << "the place is to be seen";
    EXPECT_EQ(FromHandle(CanvasBitmap(1))->pixelColor(24, 19), QColor(Qt::white));
    HideGadget(1, true);
    HideGadget(1, false);
    EXPECT_EQ(Picture(), before);
    EXPECT_EQ(Content(0)->findChild<QFocusFrame*>(), nullptr) << "nor does the focus come back";
    ActivateGadget(1);
    FreeGadget(1);
    ForgetEvents();
    EXPECT_EQ(Content(0)->findChild<QFocusFrame*>(), nullptr);
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
}

}  // namespace
}  // namespace rotavel
