#include <csignal>
#include <functional>

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

// Shows a message and uses the box as soon as it is up.
std::int64_t Answer(std::uint32_t flags, const std::function<void(QDialog&)>& use) {
    QTimer::singleShot(0, [&use] {
        auto& box = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        // To the toolkit a box is active as soon as the window under it is.
        EXPECT_TRUE(QTest::qWaitFor(
            [&box] { return QGuiApplication::focusWindow() == box.windowHandle(); }));
        use(box);
    });
    return MessageRequester(u"Title", u"<b>Text</b>\n& &amp;", flags);
}

TEST_F(RequesterTest, ShowsWhatItIsToldAndAnswers) {
    constexpr auto information = QStyle::SP_MessageBoxInformation;
    const struct {
        std::uint32_t Flags;
        QStyle::StandardPixmap Icon;
        const char *Buttons, *Keys;
        std::int64_t Answer;
    } cases[] = {
        {0, information, "OK", "Space", 0},
        {MessageError, QStyle::SP_MessageBoxCritical, "OK", "Esc", 0},
        {MessageError | MessageInformation, information, "OK", "Return", 0},
        {MessageWarning | MessageInformation, QStyle::SP_MessageBoxWarning, "OK", "Return", 0},
        {MessageYesNo, information, "Yes|No", "Return", 6},
        {MessageYesNo, information, "Yes|No", "Esc Tab Space", 7},  // it has to be answered
        {MessageYesNoCancel, information, "Yes|No|Cancel", "Tab Return", 7},
        {MessageYesNoCancel, information, "Yes|No|Cancel", "Esc", 2},
    };
    for (const auto& each : cases) {
        const auto use = [&each](QDialog& box) {
            const QList<QLabel*> labels = box.findChildren<QLabel*>();
            QStringList buttons;
            for (const auto* const button : box.findChildren<QAbstractButton*>()) {
                buttons += button->text();
            }
            EXPECT_EQ(buttons.join('|'), each.Buttons);
            EXPECT_EQ(box.windowTitle() + labels[0]->text(), "TitleTitle");
            EXPECT_EQ(labels[1]->text(), "<b>Text</b>\n& &amp;");
            EXPECT_EQ(labels[1]->textFormat(), Qt::PlainText);
            EXPECT_EQ(box.findChild<QScrollBar*>()->maximum(), 0) << "it is seen whole";
            const QIcon icon = box.style()->standardIcon(each.Icon, nullptr, &box);
            const QImage picture = labels[2]->pixmap().toImage();
            EXPECT_EQ(picture, icon.pixmap(picture.size()).toImage());
            Press(each.Keys);
        };
        EXPECT_EQ(Answer(each.Flags, use), each.Answer);
    }
}

TEST_F(RequesterTest, ProgramGoesOnUnderIt) {
    WindowCreate(0, 0, 0, 200, 100);
    ForgetEvents();
    PostProgramEvent(MenuChosen, 0, 1);
    const auto ask = [](QDialog& outer) {
        // The answer to the one above leaves this one as it is. Both go when the program ends.
        EXPECT_EQ(Answer(0, [](QDialog& inner) { inner.close(); }), 0);
        EXPECT_FALSE(outer.close()) << "it has to be answered";
        const auto end = [&outer](QDialog& inner) {
            EXPECT_EQ(inner.windowHandle()->transientParent(), outer.windowHandle());
            std::raise(SIGTERM);
        };
        EXPECT_EQ(Answer(MessageYesNoCancel, end), 0);
        EXPECT_FALSE(outer.isVisible());
    };
    EXPECT_EQ(Answer(MessageYesNo, ask), 0);
    EXPECT_EQ(Taken(), "Menu 1, Close 0") << "events wait for the answer";
    EXPECT_EQ(KeyWindowNumber(), 0);
    // The window under it may go, with a wait that cleans up, and another may come.
    const auto replace = [](QDialog& box) {
        WindowDestroy(0);
        WaitForEvent(0);
        WindowCreate(1, 0, 0, 200, 100);
        QTimer::singleShot(0, [&box] {
            EXPECT_TRUE(Native(1)->isVisible() && box.isVisible());
            box.findChild<QAbstractButton*>()->click();
        });
    };
    EXPECT_EQ(Answer(MessageYesNo, replace), 6);
    EXPECT_EQ(WindowNumberOf(QzWindow::ChosenKeyWindow()), 1) << "not the window that has gone";
}

}  // namespace
}  // namespace rotavel
