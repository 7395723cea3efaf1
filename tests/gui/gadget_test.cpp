#include <utility>

#include <QFocusFrame>
#include <QTest>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

class GadgetTest : public GuiTest {
  protected:
    GadgetTest() { WindowCreate(0, 100, 100, 300, 200); }

    static QWidget* Content(std::int64_t window) { return Native(window)->ContentView(); }
};

TEST_F(GadgetTest, IsPlacedInTheCurrentContainerAndFreedWithIt) {
    const auto container = [] {
        return StringGadgetCreate(1, 5, 6, 70, 20) == 0 ? nullptr : View(1)->parentWidget();
    };
    StringGadgetCreate(3, 200, 0, 50, 20);
    CanvasGadgetCreate(2, 40, 30, 100, 50);
    OpenGadgetList(2);
    EXPECT_EQ(container(), View(2));
    ResizeGadget(1, 7, IgnoreValue, IgnoreValue, 25);
    EXPECT_EQ(View(1)->geometry(), QRect(7, 6, 70, 25));
    EXPECT_EQ(GadgetX(1, OnScreen), WindowGetX(0, InnerContent) + 47);
    ActivateGadget(1);
    ForgetEvents();
    BindEvent([] { ActivateGadget(1); }, GadgetActivity, 0, 1, LostFocus);
    FreeGadget(2);
    EXPECT_FALSE(GadgetExists(1));
    EXPECT_EQ(Taken(), "LostFocus 1, Focus 1, LostFocus 1, Focus 1") << "nobody got the keyboard";
    EXPECT_EQ(container(), Content(0));
    WindowCreate(1, 0, 0, 50, 50, u"", WindowOutsideGadgetList);
    EXPECT_EQ(container(), Content(0));
    EXPECT_EQ(QzGadgetList::SetWindow(WindowNativeHandle(1)), WindowNativeHandle(0));
    EXPECT_EQ(container(), Content(1));
}

// A deed and what comes of it.
struct Step {
    void (*Do)();
    std::string Result;
};

TEST_F(GadgetTest, GetsTheKeyboardAndGivesItUp) {
    // Not created in the order of the eye, which Tab follows.
    StringGadgetCreate(3, 0, 30, 50, 20, u"", StringPassword);
    StringGadgetCreate(2, 60, 0, 50, 20);
    StringGadgetCreate(1, 0, 0, 50, 20);
    TextGadgetCreate(4, 120, 0, 50, 20);
    WindowCreate(1, 0, 0, 50, 50);
    ForgetEvents();
    const Step steps[] = {
        {[] { ActivateGadget(3); }, ""},  // a password field's
        {[] { Press("Tab"); }, "Focus 1"},
        {[] { Press("Tab"); }, "LostFocus 1, Focus 2"},
        {[] { Press("Tab"); }, "LostFocus 2"},
        {[] { Press("Backtab"); }, "Focus 2"},
        {[] { Press("Backtab Backtab Backtab"); }, "LostFocus 2, Focus 1, LostFocus 1, Focus 2"},
        {[] { WindowActivate(1); }, ""},  // the windows changed, not their fields
        {[] { WindowActivate(0); }, ""},
        {[] { DisableGadget(1, true); }, ""},
        {[] { ActivateGadget(1); }, ""},
        {[] { ActivateGadget(4); }, ""},
        {[] { Press("A"); }, "Change 2"},
        {[] { ActivateGadget(AnyNumber); }, "LostFocus 2"},
        {[] { ActivateGadget(2); }, "Focus 2"},
        {[] { Press("C"); }, "Change 2"},  // in the place of what was there
        {[] { DisableGadget(1, false); }, ""},
        {[] { DisableGadget(2, true); }, "LostFocus 2"},
        {[] { Press("B"); }, ""},  // no other field has got it
        {[] { ActivateGadget(1); }, "Focus 1"},
        {[] { HideGadget(1, true); }, "LostFocus 1"},
    };
    for (const auto& [act, result] : steps) {
        act();
        EXPECT_EQ(Taken(), result) << "step " << &act - &steps->Do;
    }
    EXPECT_EQ(GetGadgetText(2) + GetGadgetText(3), u"c");
}

// The pointer comes to a place of the content.
void Point(double x, double y, Qt::MouseButtons pressed = {}) {
    const QPointF place = QPointF(x, y) + Native(0)->ContentView()->pos();
    qt_handleMouseEvent(Native(0)->windowHandle(), place, place, pressed, Qt::NoButton,
                        QEvent::MouseMove, {}, 0);
}

TEST_F(GadgetTest, CanvasFollowsPointerAndArrowKeysWhileItsWindowHasTheKeyboard) {
    CanvasGadgetCreate(1, 10, 10, 50, 40);
    StringGadgetCreate(2, 10, 60, 50, 20);
    ActivateGadget(2);
    ForgetEvents();
    static std::string told;
    BindEvent([] { told += "ELM"[CurrentEventType() - CanvasMouseEnter]; }, GadgetActivity, 0, 1);
    const Step steps[] = {
        // Entered, left, moved, and where the pointer is on it.
        {[] { Point(10.75, 12.5); }, "EM 0,2"},
        {[] { Point(59.75, 49.75, Qt::LeftButton); }, "M 49,39"},
        {[] { Point(60, 49); }, "L 49,39"},
        {[] { Point(20, 20, Qt::LeftButton); }, " 49,39"},
        {[] { Point(20, 21); }, "EM 10,11"},
        {[] { WindowCreate(1, 500, 400, 50, 50); }, "L 10,11"},
        {[] { WindowActivate(0); }, " 10,11"},
        {[] { Point(22, 20); }, "EM 12,10"},
        {[] { HideGadget(1, true); }, "L 12,10"},
        {[] { HideGadget(1, false); }, " 12,10"},
        {[] { ActivateGadget(1); }, " 12,10"},
        {[] { Press("Up"); }, "EM 12,10"},
        {[] { Press("Up"); }, "M 12,9"},
        {[] { Press("Shift+Left Right Right Down"); }, "MMMM 4,10"},
        {[] { Press("Shift+Down Shift+Down Shift+Down Shift+Left"); }, "MMMM 0,39"},
        {[] { ActivateGadget(2); }, "L 0,39"},
    };
    for (const auto& [act, result] : steps) {
        act();
        ForgetEvents();
        const std::int64_t x = GetGadgetAttribute(1, CanvasMouseX);
        const std::int64_t y = GetGadgetAttribute(1, CanvasMouseY);
        told += " " + std::to_string(x) + "," + std::to_string(y);
        EXPECT_EQ(std::exchange(told, ""), result);
    }
}

TEST_F(GadgetTest, CanvasShowsWhereTheKeyboardIsBesideWhatIsDrawn) {
    CanvasGadgetCreate(1, 10, 10, 50, 40);
    ForgetEvents();
    const auto picture = [] { return View(1)->grab().toImage(); };
    const QImage before = picture();
    ActivateGadget(1);
    ForgetEvents();
    EXPECT_TRUE(Content(0)->findChild<QFocusFrame*>()->isVisible());
    EXPECT_EQ(picture(), before);
    Press("Left");
    EXPECT_NE(picture(), before) << "the place is to be seen";
    EXPECT_EQ(FromHandle(CanvasBitmap(1))->pixelColor(24, 19), QColor(Qt::white));
    HideGadget(1, true);
    HideGadget(1, false);
    EXPECT_EQ(picture(), before);
    EXPECT_EQ(Content(0)->findChild<QFocusFrame*>(), nullptr) << "nor does the focus come back";
}

}  // namespace
}  // namespace rotavel
