#include <map>

#include <QClipboard>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QWidget>

#include "gui/toolkit/text.h"
#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

// What a script of typing names besides characters; Commit is what could be pasted, come from an
// input method.
enum : char { Back = 1, Left, All, Cut, Paste, Undo, Redo, AltF, ControlAltF, AltGrF, Commit };

void Play(const std::string& script) {
    static const std::map<char, QKeyCombination> combinations = {
        {Back, Qt::Key_Backspace},
        {Left, Qt::Key_Left},
        {All, Qt::CTRL | Qt::Key_A},
        {Cut, Qt::CTRL | Qt::Key_X},
        {Paste, Qt::CTRL | Qt::Key_V},
        {Undo, Qt::CTRL | Qt::Key_Z},
        {Redo, Qt::CTRL | Qt::SHIFT | Qt::Key_Z},
        {AltF, Qt::ALT | Qt::Key_F},
        {ControlAltF, Qt::CTRL | Qt::ALT | Qt::Key_F},
        {AltGrF, (Qt::AltModifier | Qt::GroupSwitchModifier) | Qt::Key_F},
    };
    for (const char key : script) {
        const auto combination = combinations.find(key);
        if (combination != combinations.end()) {
            Press(combination->second.key(), combination->second.keyboardModifiers());
        } else if (key == Commit) {
            QInputMethodEvent event;
            event.setCommitString(QGuiApplication::clipboard()->text());
            QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
        } else {
            Type({&key, 1});
        }
    }
}

using StringGadgetTest = GuiTest;

TEST_F(StringGadgetTest, JudgesEveryEditByTheWholeText) {
    WindowCreate(0, 0, 0, 200, 100);
    static int changes;  // posted, merged ones too
    BindEvent([] { ++changes; }, GadgetActivity, -1, 1, Change);
    const struct {
        std::uint32_t Flags;
        std::int64_t MaximumLength;  // 0: none set
        std::u16string Set, Pasted;
        std::string Script;  // from the end of the text
        std::u16string Result;
        int Changes;
    } cases[] = {
        {0, 0, u"", u"", "a B-1.", u"a B-1.", 6},
        {0, 0, u"set", u"", {'a', 'b', Undo, Undo}, u"set", 3},
        {StringNumeric, 0, u"", u"", "0-0 7.x", u"007", 3},
        {StringNumeric, 0, u"13", u"", {Left, 'x', '2', '5'}, u"1253", 2},
        {StringNumeric, 0, u"1", u"2.3", {Paste}, u"1", 0},
        {StringNumeric, 0, u"1", u"\u0662", {Paste}, u"1", 0},
        {StringNumeric, 0, u"1", u"23", {Paste, Back, Back, Back}, u"", 4},
        {StringNumeric, 0, u"55 ", u"", "6", u"55 ", 0},
        {StringNumeric, 0, u"55 ", u"", {Back, Undo}, u"55", 1},
        {StringNumeric, 0, u"5 5 ", u"", {All, '7', '8'}, u"78", 2},
        {0, 3, u"", u"", "abcd", u"abc", 3},
        {0, 3, u"a", u"bcd", {Paste, 'x'}, u"ax", 1},
        {0, 3, u"longer", u"", {Back, All, 'x'}, u"x", 1},
        {StringUpperCase, 0, u"ac", u"", {Left, 'b', 'x'}, u"ABXC", 2},
        {StringUpperCase, 0, u"a", u"\u00DF", {Paste}, u"ASS", 1},
        {StringNumeric, 0, u"1", u"2.3", {Commit}, u"1", 0},
        {0, 0, u"ab", u"x\ny\n", {Left, Paste, 'z'}, u"ax y zb", 2},
        {0, 0, u"ab", u"x\ny", {Paste, 'z', Undo, Undo, Redo}, u"abx y", 5},
        {StringUpperCase, 0, u"aB", u"\u00DF", {Left, Paste, 'x'}, u"ASSXB", 2},
        {StringUpperCase, 0, u"A", u"\u00DF", {Commit, Left, 'b', Undo, Undo, Redo}, u"ASS", 5},
        {StringUpperCase, 0, u"A", u"", {'b', 'c', Undo, Redo}, u"ABC", 4},
        {StringUpperCase, 0, u"A", u"", {All, 'a', Undo, Undo}, u"A", 2},
        {StringUpperCase | StringLowerCase, 0, u"aBc", u"", {Left, 'd', Undo}, u"abc", 2},
        {StringLowerCase, 0, u"AB", u"CD", {Paste, 'E'}, u"abcde", 2},
        {StringReadOnly, 0, u"abc", u"d", {'d', Back, Paste, All, Cut}, u"abc", 0},
        {0, 0, u"130", u"", {AltF, ControlAltF, All, AltF}, u"130", 0},
        {0, 0, u"a", u"", {AltGrF}, u"af", 1},
        {StringPassword, 0, u"secret", u"", {All, Cut}, u"secret", 0},
        {0, 0, std::u16string(40'000, u'x'), u"", {Back}, std::u16string(39'999, u'x'), 1},
    };
    for (const auto& each : cases) {
        StringGadgetCreate(1, 0, 0, 100, 20, u"", each.Flags);
        EXPECT_EQ(GetGadgetAttribute(1, StringMaximumLength), 2147483647);
        SetGadgetAttribute(1, each.MaximumLength == 0 ? 0 : StringMaximumLength,
                           each.MaximumLength);
        ActivateGadget(1);
        ForgetEvents();
        changes = 0;
        SetGadgetText(1, u"0");
        SetGadgetText(1, each.Set);
        QGuiApplication::clipboard()->setText(ToQString(each.Pasted));
        Press(Qt::Key_End);
        Play(each.Script);
        EXPECT_EQ(GetGadgetText(1), each.Result);
        EXPECT_EQ(changes, each.Changes) << ToQString(each.Result).toStdString();
    }
}

TEST_F(StringGadgetTest, NarrowsATextToTheFieldAsFarAsItCanBeRead) {
    WindowCreate(0, 0, 0, 200, 100);
    StringGadgetCreate(1, 0, 0, 40, 20, u"", StringUpperCase);
    ActivateGadget(1);
    ForgetEvents();
    Play("ffffff");
    const double narrowed = QFontMetricsF(View(1)->font()).horizontalAdvance("FFFFFF");
    EXPECT_LE(narrowed, View(1)->width() - 6) << "replaced letters are wider";
    SetGadgetText(1, u"WWWWWWWWWWWWWWWWWWWW");
    EXPECT_GE(View(1)->font().stretch(), 62);
}

}  // namespace
}  // namespace rotavel
