#include "gui/requester.h"

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

#include "gui/event_loop.h"
#include "gui/events/event_posting.h"
#include "gui/window.h"
#include "gui/windows/window_record.h"
#include "tests/support/gui_test.h"

namespace rotavel {
namespace {

using namespace tests;

using RequesterTest = GuiTest;

QDialog* OpenBox() {
    return dynamic_cast<QDialog*>(QApplication::activeModalWidget());
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

std::int64_t AnswerWithKey(std::uint32_t flags, Qt::Key key) {
    return Answer(flags, [key](QDialog& box) {
        EXPECT_TRUE(GetsKeyboard(box));
        QTest::keyClick(box.windowHandle(), key);
    });
}

QStringList TextsOf(const QList<QAbstractButton*>& buttons) {
    QStringList texts;
    for (const QAbstractButton* const button : buttons) {
        texts.append(button->text());
    }
    return texts;
}

QList<QAbstractButton*> ButtonsOf(const QDialog& box) {
    return box.findChildren<QAbstractButton*>();
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
            const auto answer = Answer(
                each.Flags,
                [&each, i](QDialog& box) {
                    const QList<QLabel*> labels = box.findChildren<QLabel*>();
                    QStringList texts;
                    QImage icon;
                    for (const QLabel* const label : labels) {
                        if (label->pixmap().isNull()) {
                            texts.append(label->text());
                            EXPECT_EQ(label->textFormat(), Qt::PlainText);
                        } else {
                            icon = label->pixmap().toImage();
                        }
                    }
                    EXPECT_EQ(texts, QStringList({"Title", "<b>Text</b>\n& &amp;"}));
                    EXPECT_EQ(box.windowTitle(), "Title");
                    EXPECT_EQ(icon, box.style()
                                        ->standardIcon(each.Icon, nullptr, &box)
                                        .pixmap(icon.size())
                                        .toImage());
                    EXPECT_EQ(TextsOf(ButtonsOf(box)), each.Labels);
                    QTest::mouseClick(ButtonsOf(box).at(i), Qt::LeftButton);
                },
                u"<b>Text</b>\n& &amp;");
            EXPECT_EQ(answer, each.Answers[static_cast<std::size_t>(i)]);
        }
    }
}

TEST_F(RequesterTest, KeysAnswer) {
    EXPECT_EQ(AnswerWithKey(0, Qt::Key_Return), 0);
    EXPECT_EQ(AnswerWithKey(0, Qt::Key_Escape), 0);
    EXPECT_EQ(AnswerWithKey(MessageYesNoCancel, Qt::Key_Return), 6);
    EXPECT_EQ(AnswerWithKey(MessageYesNoCancel, Qt::Key_Escape), 2);
    EXPECT_EQ(Answer(MessageYesNoCancel, [](QDialog& box) { box.close(); }), 2);
    // What has to be answered cannot be got rid of.
    EXPECT_EQ(Answer(MessageYesNo,
                     [](QDialog& box) {
                         EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
                         QTest::keyClick(&box, Qt::Key_Escape);
                         EXPECT_FALSE(box.close());
                         EXPECT_TRUE(box.isVisible());
                         QTest::keyClick(&box, Qt::Key_Tab);
                         QTest::keyClick(box.focusWidget(), Qt::Key_Space);
                     }),
              7);
}

TEST_F(RequesterTest, EventsWaitAndTheKeyboardComesBack) {
    WindowCreate(0, 0, 0, 200, 100);
    ForgetEvents();
    PostProgramEvent(MenuChosen, 0, 1);
    Answer(0, [](QDialog& box) {
        QueueEvent(MenuChosen, 2, 0, 0);
        ButtonsOf(box).front()->click();
    });
    EXPECT_EQ(Taken(), "Menu 1, Menu 2") << "events wait for the answer";
    EXPECT_EQ(KeyWindowNumber(), 0);
}

TEST_F(RequesterTest, LongTextsScroll) {
    WindowCreate(0, 0, 0, 200, 100);
    const std::u16string line = u"A line that is about as long as lines are.\n";
    std::u16string text;
    for (int i = 0; i < 400; ++i) {
        text += line;
    }
    const auto isWithin = [](const QDialog& box) {
        const QRect room = box.screen()->availableGeometry();
        bool inRoom = room.contains(box.frameGeometry());
        for (const QAbstractButton* const button : ButtonsOf(box)) {
            const QRect place(button->mapToGlobal(QPoint()), button->size());
            inRoom = inRoom && room.contains(place);
        }
        return inRoom;
    };
    Answer(
        MessageYesNoCancel,
        [&isWithin](QDialog& box) {
            EXPECT_TRUE(isWithin(box));
            auto& area = *box.findChild<QScrollArea*>();
            EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
            EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
            QWidget& shown = *area.widget();
            EXPECT_GE(shown.height(), shown.layout()->totalHeightForWidth(shown.width()));
            ButtonsOf(box).front()->click();
        },
        text);
    // A line with no place to break it.
    Answer(
        0,
        [&isWithin](QDialog& box) {
            EXPECT_TRUE(isWithin(box));
            EXPECT_GT(box.findChild<QScrollArea*>()->horizontalScrollBar()->maximum(), 0);
            ButtonsOf(box).front()->click();
        },
        std::u16string(2000, u'W'));
    // What fits is shown whole.
    for (const auto& each : {std::u16string(u"Short"), std::u16string(), line + line + line,
                             std::u16string(180, u'i') + u" " + line.substr(0, 42) + line}) {
        Answer(
            0,
            [](QDialog& box) {
                auto& area = *box.findChild<QScrollArea*>();
                EXPECT_EQ(area.verticalScrollBar()->maximum(), 0);
                EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
                ButtonsOf(box).front()->click();
            },
            each);
    }
}

TEST_F(RequesterTest, ProgramGoesOnUnderIt) {
    WindowCreate(0, 0, 0, 200, 100);
    ForgetEvents();
    // One over the other: both go when the program is to end.
    EXPECT_EQ(Answer(MessageYesNo,
                     [](QDialog& outer) {
                         EXPECT_EQ(Answer(MessageYesNoCancel,
                                          [&outer](QDialog& inner) {
                                              EXPECT_EQ(inner.windowHandle()->transientParent(),
                                                        outer.windowHandle());
                                              EXPECT_TRUE(GetsKeyboard(inner));
                                              std::raise(SIGTERM);
                                          }),
                                   0);
                         EXPECT_FALSE(outer.isVisible());
                     }),
              0);
    EXPECT_EQ(Taken(), "Close 0");
    EXPECT_EQ(KeyWindowNumber(), 0);
    // The inner one's answer leaves the outer one as it is.
    EXPECT_EQ(Answer(MessageYesNo,
                     [](QDialog& outer) {
                         EXPECT_EQ(Answer(0, [](QDialog& inner) { inner.close(); }), 0);
                         EXPECT_TRUE(outer.isVisible());
                         EXPECT_EQ(OpenBox(), &outer);
                         ButtonsOf(outer).at(1)->click();
                     }),
              7);
    Answer(0, [](QDialog& box) {
        WindowShow(0, Hidden);
        box.close();
    });
    EXPECT_NE(WindowNumberOf(QzWindow::ChosenKeyWindow()), 0) << "it is hidden";
    WindowShow(0, Shown);
    ForgetEvents();
    // The window under it may go, with a wait that cleans up.
    EXPECT_EQ(Answer(MessageYesNo,
                     [](QDialog& box) {
                         WindowDestroy(0);
                         WaitForEvent(0);
                         EXPECT_TRUE(box.isVisible());
                         WindowCreate(1, 0, 0, 200, 100);
                         QTimer::singleShot(0, [&box] {
                             EXPECT_TRUE(Native(1)->isVisible()) << "windows open meanwhile";
                             ButtonsOf(box).front()->click();
                         });
                     }),
              6);
    EXPECT_EQ(WindowNumberOf(QzWindow::ChosenKeyWindow()), 1) << "not the window that has gone";
}

}  // namespace
}  // namespace rotavel
