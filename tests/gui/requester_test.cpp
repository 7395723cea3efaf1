#include <csignal>
#include <functional>
#include <vector>

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
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
        QStringList Labels;
        std::vector<std::int64_t> Answers;
    } cases[] = {
        {0, QStyle::SP_MessageBoxInformation, {"OK"}, {0}},
        {MessageError, QStyle::SP_MessageBoxCritical, {"OK"}, {0}},
        {MessageError | MessageInformation | MessageYesNo,
         QStyle::SP_MessageBoxInformation,
         {"Yes", "No"},
         {6, 7}},
        {MessageWarning | MessageInformation | MessageYesNo | MessageYesNoCancel,
         QStyle::SP_MessageBoxWarning,
         {"Yes", "No", "Cancel"},
         {6, 7, 2}},
    };
    for (const auto& each : cases) {
        for (int i = 0; i < each.Labels.size(); ++i) {
            const Use use = [&each, i](QDialog& box) {
                const QList<QLabel*> labels = box.findChildren<QLabel*>();
                EXPECT_EQ(labels[0]->text() + "|" + labels[1]->text(),
                          "Title|<b>Text</b>\n& &amp;");
                EXPECT_EQ(labels[1]->textFormat(), Qt::PlainText);
                EXPECT_EQ(box.windowTitle(), "Title");
                const QIcon icon = box.style()->standardIcon(each.Icon, nullptr, &box);
                const QImage shown = labels[2]->pixmap().toImage();
                EXPECT_EQ(shown, icon.pixmap(shown.size()).toImage());
                EXPECT_EQ(ButtonsOf(box)[i]->text(), each.Labels[i]);
                EXPECT_EQ(ButtonsOf(box).size(), each.Labels.size());
                QTest::mouseClick(ButtonsOf(box)[i], Qt::LeftButton);
            };
            EXPECT_EQ(Answer(each.Flags, use, u"<b>Text</b>\n& &amp;"), each.Answers[i]);
        }
    }
}

TEST_F(RequesterTest, OnlyABoxWithAnswersToEscapeCanBeClosed) {
    for (const std::uint32_t flags : {0U, MessageYesNo, MessageYesNoCancel}) {
        const Use use = [flags](QDialog& box) {
            EXPECT_TRUE(GetsKeyboard(box));
            QTest::keyClick(box.windowHandle(), Qt::Key_Escape);
            EXPECT_EQ(box.isVisible(), flags == MessageYesNo);
            EXPECT_EQ(box.close(), flags != MessageYesNo);
            if (flags == MessageYesNo) {
                QTest::keyClick(box.focusWidget(), Qt::Key_Return);
            }
        };
        EXPECT_EQ(Answer(flags, use), flags == 0 ? 0 : flags == MessageYesNo ? 6 : 2);
    }
}

TEST_F(RequesterTest, LongTextsScroll) {
    WindowCreate(0, 0, 0, 200, 100);
    const std::u16string line = u"A line that is about as long as lines are.\n";
    std::u16string lines;
    for (int i = 0; i < 400; ++i) {
        lines += line;
    }
    const struct {
        std::u16string Text;
        bool ScrollsDown, ScrollsAcross;
    } cases[] = {
        {lines, true, false},
        {std::u16string(2000, u'W'), false, true},  // no place to break it
        {u"", false, false},
        {std::u16string(180, u'i') + u" " + line.substr(0, 42) + line, false, false},
    };
    for (const auto& each : cases) {
        const Use use = [&each](QDialog& box) {
            const QPushButton& last = *box.findChildren<QPushButton*>().back();
            EXPECT_TRUE(box.screen()->availableGeometry().contains(box.frameGeometry()));
            EXPECT_TRUE(box.rect().contains(last.geometry()));
            const auto& area = *box.findChild<QScrollArea*>();
            EXPECT_EQ(area.verticalScrollBar()->maximum() > 0, each.ScrollsDown);
            EXPECT_EQ(area.horizontalScrollBar()->maximum() > 0, each.ScrollsAcross);
            QTest::keyClick(box.focusWidget(), Qt::Key_PageDown);
            EXPECT_EQ(area.verticalScrollBar()->value() > 0, each.ScrollsDown);
            const QWidget& shown = *area.widget();
            EXPECT_GE(shown.height(), shown.layout()->totalHeightForWidth(shown.width()));
            box.close();
        };
        Answer(MessageYesNoCancel, use, each.Text);
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
    const Use hide = [](QDialog& box) {
        WindowShow(0, Hidden);
        box.close();
    };
    Answer(0, hide);
    EXPECT_NE(WindowNumberOf(QzWindow::ChosenKeyWindow()), 0) << "it is hidden";
    WindowShow(0, Shown);
    ForgetEvents();
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
