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
};

TEST_F(ComboBoxTest, ItemsComeAndGoWithoutChangingTheChoice) {
    Create({u"a", u"b", u"c"});
    EXPECT_EQ(GetGadgetState(1), -1) << "filling selects nothing";
    SetGadgetState(1, 1);
    AddGadgetItem(1, 0, u"first");
    AddGadgetItem(1, 9, u"last");
    SetGadgetItemText(1, 3, u"C");
    RemoveGadgetItem(1, 1);
    RemoveGadgetItem(1, 4);
    SetGadgetState(1, 4);
    std::u16string items;
    for (std::int64_t item = 0; item < CountGadgetItems(1); ++item) {
        items += GetGadgetItemText(1, item) + u",";
    }
    EXPECT_EQ(items + GetGadgetText(1), u"first,b,C,last,b");
    RemoveGadgetItem(1, 1);
    EXPECT_EQ(GetGadgetState(1), -1) << "nor is another item selected in its place";
    EXPECT_EQ(Taken(), "");
}

TEST_F(ComboBoxTest, SetTextSelectsTheItemWithIt) {
    for (const std::uint32_t flags : {0U, ComboBoxEditable, ComboBoxUpperCase}) {
        Create({u"aB", u"ab"}, flags);
        SetGadgetText(1, u"ab");
        EXPECT_EQ(GetGadgetState(1), flags == ComboBoxUpperCase ? 0 : 1) << flags;
        SetGadgetText(1, u"a");
        EXPECT_EQ(GetGadgetState(1), flags == ComboBoxUpperCase ? 0 : 1) << flags;
    }
}

TEST_F(ComboBoxTest, ReportsEveryChoiceButNoneByTheWheel) {
    Create({u"a", u"b"});
    SetGadgetState(1, 1);
    ForgetEvents();
    Click(1);
    Press("Return");
    EXPECT_EQ(Taken(), "Change 1") << "also of the item selected already";
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, 120}, {}, {}, {}, false);
    QCoreApplication::sendEvent(View(1), &wheel);
    EXPECT_EQ(GetGadgetState(1), 1) << "what scrolls the window chooses nothing on its way";
    QKeyEvent key(QEvent::KeyPress, Qt::Key_A, Qt::AltModifier, "a");
    QCoreApplication::sendEvent(View(1), &key);
    EXPECT_FALSE(key.isAccepted()) << "it opens a menu";
    Click(1);
    WindowDisable(0, true);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "the list is closed";
}

}  // namespace
}  // namespace rotavel
