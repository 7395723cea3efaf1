#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include "gui/toolkit/text.h"
#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

using StringGadgetTest = GuiTest;

TEST_F(StringGadgetTest, JudgesEveryEditByTheWholeText) {
    WindowCreate(0, 0, 0, 200, 100);
    static int changes;  // posted, merged ones too
    BindEvent([] { ++changes; }, GadgetActivity, -1, 1, Change);
    const struct {
        std::uint32_t Flags;
        std::int64_t MaximumLength;  // 0: none set
        std::u16string Set, Pasted;
        const char* Keys;  // from the end of the text
        std::u16string Result;
        int Changes;
    } cases[] = {
        {0, 0, u"set", u"", "A Space 1 . Ctrl+Z Ctrl+Z", u"set", 5},
        {StringNumeric, 0, u"", u"", "0 - 0 Space 7 . X", u"007", 3},
        {StringNumeric, 0, u"13", u"", "Left X 2 9", u"1293", 2},
        {StringNumeric, 0, u"1", u"\u0662", "Ctrl+V", u"1", 0},
        {StringNumeric, 0, u"1", u"23", "Ctrl+V Backspace Backspace Backspace", u"", 4},
        {StringNumeric, 0, u"55 ", u"", "6", u"55 ", 0},
        {StringNumeric, 0, u"55 ", u"", "Backspace Ctrl+Z", u"55", 1},
        {0, 3, u"a", u"bcd", "Ctrl+V X Y Z", u"axy", 2},
        {0, 3, u"longer", u"", "Backspace Ctrl+A X", u"x", 1},
        {StringUpperCase, 0, u"aCD", u"\u00DF", "Left Left Ctrl+V X", u"ASSXCD", 2},
        {StringUpperCase, 0, u"A", u"", "B C Ctrl+Z Ctrl+Shift+Z", u"ABC", 4},
        {StringUpperCase, 0, u"A", u"", "Ctrl+A A Ctrl+Z Ctrl+Z", u"A", 2},
        {StringUpperCase | StringLowerCase, 0, u"aBc", u"", "Left D Ctrl+Z", u"abc", 2},
        {StringLowerCase, 0, u"AB", u"CD", "Ctrl+V E", u"abcde", 2},
        {0, 0, u"", u"a\tb\r\n\t", "Ctrl+V", u"a b", 1},
        {StringReadOnly, 0, u"abc", u"d", "D Backspace Ctrl+V Ctrl+A Ctrl+X", u"abc", 0},
        {0, 0, u"130", u"", "Alt+F Ctrl+Alt+F Ctrl+A Alt+F", u"130", 0},
        {StringPassword, 0, u"secret", u"", "Ctrl+A Ctrl+X", u"secret", 0},
        {0, 0, std::u16string(40'000, u'x'), u"", "Backspace", std::u16string(39'999, u'x'), 1},
    };
    for (const auto& each : cases) {
        StringGadgetCreate(1, 0, 0, 100, 20, u"", each.Flags);
        EXPECT_EQ(GetGadgetAttribute(1, StringMaximumLength), 2147483647);
        SetGadgetAttribute(1, each.MaximumLength == 0 ? 0 : StringMaximumLength,
                           each.MaximumLength);
        ActivateGadget(1);
        ForgetEvents();
        changes = 0;
        SetGadgetText(1, each.Set);
        QGuiApplication::clipboard()->setText(ToQString(each.Pasted));
        Press("End");
        Press(each.Keys);
        EXPECT_EQ(GetGadgetText(1), each.Result);
        EXPECT_EQ(changes, each.Changes) << ToQString(each.Result).toStdString();
    }
    SetGadgetText(1, u"2.3636");
    QTest::mouseDClick(View(1), Qt::LeftButton);
    Press("5");
    EXPECT_EQ(GetGadgetText(1), u"5") << "a number is one word";
}

}  // namespace
}  // namespace rotavel
