#include <csignal>
#include <functional>
#include <vector>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QScrollBar>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "layer.h"

namespace rotavel {
namespace {

using namespace tests;

using RequesterTest = GuiTest;

QDialog* OpenBox() {
    return dynamic_cast<QDialog*>(QApplication::activeModalWidget());
}

QList<QAbstractButton*> ButtonsOf(const QDialog& box) {
    return box.findChildren<QAbstractButton*>();
}

// Shows a message and uses the box as soon as it is up.
using Use = std::function<void(QDialog&)>;
std::int64_t Answer(std::uint32_t flags, const Use& use, const std::u16string& text = u"Text") {
    QTimer::singleShot(0, [&use] { use(*OpenBox()); });
    return MessageRequester(u"Title", text, flags);
}

// To the toolkit a box is active as soon as the window under it is.
bool GetsKeyboard(const QDialog& box) {
    return QTest::qWaitFor([&box] { return QGuiApplication::focusWindow() == box.windowHandle(); });
}

TEST_F(RequesterTest, ShowsWhatItIsToldAndAnswers) {
    const struct {
        std::uint32_t Flags;
        QStyle::StandardPixmap Icon;
        QString Buttons;
        std::vector<std::int64_t> Answers;
    } cases[] = {
        {0, QStyle::SP_MessageBoxInformation, "OK", {0}},
        {MessageError, QStyle::SP_MessageBoxCritical, "OK", {0}},
        {MessageError | MessageInformation, QStyle::SP_MessageBoxInformation, "OK", {0}},
        {MessageWarning | MessageInformation, QStyle::SP_MessageBoxWarning, "OK", {0}},
        {MessageYesNo, QStyle::SP_MessageBoxInformation, "Yes|No", {6, 7}},
        {MessageYesNoCancel, QStyle::SP_MessageBoxInformation, "Yes|No|Cancel", {6, 7, 2}},
    };
    for (const auto& each : cases) {
        for (std::size_t button = 0; button < each.Answers.size(); ++button) {
            const Use click = [&each, button](QDialog& box) {
                const QList<QLabel*> labels = box.findChildren<QLabel*>();
                QStringList shown = {box.windowTitle(), labels[0]->text(), labels[1]->text()};
                for (const QAbstractButton* const present : ButtonsOf(box)) {
                    shown += present->text();
                }
                EXPECT_EQ(shown.join('|'), "Title|Title|<b>Text</b>\n& &amp;|" + each.Buttons);
                EXPECT_EQ(labels[1]->textFormat(), Qt::PlainText);
                EXPECT_EQ(box.findChild<QScrollBar*>()->maximum(), 0) << "it is seen whole";
                const QIcon icon = box.style()->standardIcon(each.Icon, nullptr, &box);
                const QImage picture = labels[2]->pixmap().toImage();
                EXPECT_EQ(picture, icon.pixmap(picture.size()).toImage());
                QTest::mouseClick(ButtonsOf(box).at(button), Qt::LeftButton);
            };
            EXPECT_EQ(Answer(each.Flags, click, u"<b>Text</b>\n& &amp;"), each.Answers[button]);
        }
        const Use pressReturn = [](QDialog& box) {
            EXPECT_TRUE(GetsKeyboard(box));
            QTest::keyClick(box.focusWidget(), Qt::Key_Return);
        };
        EXPECT_EQ(Answer(each.Flags, pressReturn), each.Answers.front());
        const Use close = [&each](QDialog& box) {
            EXPECT_TRUE(GetsKeyboard(box));
            QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
            EXPECT_EQ(box.isVisible(), each.Buttons == "Yes|No") << "which has to be answered";
            EXPECT_EQ(box.close(), each.Buttons != "Yes|No");
            ButtonsOf(box).back()->click();
        };
        EXPECT_EQ(Answer(each.Flags, close), each.Answers.back());
    }
}

TEST_F(RequesterTest, ProgramGoesOnUnderIt) {
    WindowCreate(0, 0, 0, 200, 100);
    ForgetEvents();
    PostProgramEvent(MenuChosen, 0, 1);
    // One over the other: both go when the program is to end.
    const Use end = [](QDialog& outer) {
        const Use over = [&outer](QDialog& inner) {
            EXPECT_EQ(inner.windowHandle()->transientParent(), outer.windowHandle());
            EXPECT_TRUE(GetsKeyboard(inner));
            std::raise(SIGTERM);
        };
        EXPECT_EQ(Answer(MessageYesNoCancel, over), 0);
        EXPECT_FALSE(outer.isVisible());
    };
    EXPECT_EQ(Answer(MessageYesNo, end), 0);
    EXPECT_EQ(Taken(), "Menu 1, Close 0") << "events wait for the answer";
    EXPECT_EQ(KeyWindowNumber(), 0);
    // The inner one's answer leaves the outer one as it is.
    const Use ask = [](QDialog& outer) {
        EXPECT_EQ(Answer(0, [](QDialog& inner) { inner.close(); }), 0);
        EXPECT_EQ(OpenBox(), &outer);
        ButtonsOf(outer).at(1)->click();
    };
    EXPECT_EQ(Answer(MessageYesNo, ask), 7);
    // The window under it may go, with a wait that cleans up.
    const Use replace = [](QDialog& box) {
        WindowDestroy(0);
        WaitForEvent(0);
        EXPECT_TRUE(box.isVisible());
        WindowCreate(1, 0, 0, 200, 100);
        QTimer::singleShot(0, [&box] {
            EXPECT_TRUE(Native(1)->isVisible()) << "windows open meanwhile";
            ButtonsOf(box).front()->click();
        });
    };
    EXPECT_EQ(Answer(MessageYesNo, replace), 6);
    EXPECT_EQ(WindowNumberOf(QzWindow::ChosenKeyWindow()), 1) << "not the window that has gone";
}

}  // namespace
}  // namespace rotavel
