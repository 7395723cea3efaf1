#include <tuple>

#include <QApplication>
#include <QKeyEvent>
#include <QWheelEvent>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

class ComboBoxTest : public GuiTest {
  protected:
    ComboBoxTest() { WindowCreate(0, 0, 0, 200, 100); }

    static void Create(std::initializer_list<const char16_t*> items, std::uint32_t flags = 0) {
        ComboBoxGadgetCreate(1, 0, 0, 80, 20, flags);
        for (const char16_t* const item : items) {
            EXPECT_NE(AddGadgetItem(1, -1, item), 0);
        }
    }
    static std::u16string Items() {
        std::u16string items;
        for (std::int64_t item = 0; item < CountGadgetItems(1); ++item) {
            items += GetGadgetItemText(1, item) + u",";
        }
        return items;
    }
};

TEST_F(ComboBoxTest, ItemsComeAndGoWithoutChangingTheChoice) {
    Create({u"a", u"b", u"c"});
    EXPECT_EQ(GetGadgetState(1), -1) << "filling selects nothing";
    SetGadgetState(1, 1);
    AddGadgetItem(1, 0, u"first");
    AddGadgetItem(1, 4, u"last");
    AddGadgetItem(1, -7, u"end");
    SetGadgetItemText(1, 3, u"C");
    RemoveGadgetItem(1, 1);
    RemoveGadgetItem(1, 5);
    EXPECT_EQ(Items(), u"first,b,C,last,end,");
    SetGadgetState(1, 5);
    EXPECT_EQ(GetGadgetText(1), u"b");
    RemoveGadgetItem(1, 1);
    EXPECT_EQ(GetGadgetState(1), -1) << "nor is another item selected in its place";
    ClearGadgetItems(1);
    EXPECT_EQ(Taken() + std::to_string(CountGadgetItems(1)), "0");
}

TEST_F(ComboBoxTest, SetTextSelectsTheItemWithIt) {
    const std::tuple<std::uint32_t, const char16_t*, std::int64_t> cases[] = {
        {0, u"aBc", 1},
        {0, u"aB", 3},
        {ComboBoxEditable, u"aBc", 1},
        {ComboBoxLowerCase, u"ABC", 0},
        {ComboBoxUpperCase, u"abc", 0},
    };
    for (const auto& [flags, set, state] : cases) {
        Create({u"ABC", u"aBc", u"abc", u"ab"}, flags);
        SetGadgetState(1, 3);
        SetGadgetText(1, set);
        EXPECT_EQ(GetGadgetState(1), state);
    }
}

TEST_F(ComboBoxTest, ReportsEveryChoiceButNoneByTheWheel) {
    Create({u"a", u"b"});
    SetGadgetState(1, 1);
    ForgetEvents();
    Click(1);
    Press(Qt::Key_Return);
    EXPECT_EQ(Taken(), "Change 1") << "also of the item selected already";
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, {}, false);
    QCoreApplication::sendEvent(View(1), &wheel);
    EXPECT_EQ(GetGadgetState(1), 1) << "what scrolls the window chooses nothing on its way";
    Click(1);
    WindowDisable(0, true);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the list is closed";
}

TEST_F(ComboBoxTest, TypingGoesOnWhileTheListChanges) {
    Create({}, ComboBoxEditable);
    ActivateGadget(1);
    for (const std::string_view letter : {"a", "b", "c"}) {
        Type(letter);
        AddGadgetItem(1, 0, u"item");
    }
    ClearGadgetItems(1);
    Type("d");
    EXPECT_EQ(GetGadgetText(1), u"abcd");
}

TEST_F(ComboBoxTest, LeavesCommandKeysToTheWindow) {
    for (const std::uint32_t flags : {0U, ComboBoxEditable}) {
        Create({u"a", u"file"}, flags);
        ActivateGadget(1);
        ForgetEvents();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_F, Qt::AltModifier, "f");
        QCoreApplication::sendEvent(QGuiApplication::focusObject(), &key);
        EXPECT_FALSE(key.isAccepted());
        EXPECT_EQ(GetGadgetText(1), u"");
        Press(Qt::Key_F);
        EXPECT_EQ(Taken(), "Change 1");
    }
}

}  // namespace
}  // namespace rotavel
