#include "gui/requester.h"

#include <csignal>
#include <functional>
#include <vector>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "gui/events/event_posting.h"
#include "gui/window.h"
#include "tests/support/gui_test.h"

namespace rotavel {
namespace {

using namespace tests;

using RequesterTest = GuiTest;
using Use = std::function<void(QMessageBox&)>;

// Shows a message and uses the box as soon as it is up.
std::int64_t Answer(std::uint32_t flags, const Use& use) {
    QTimer::singleShot(
        0, [&use] { use(dynamic_cast<QMessageBox&>(*QApplication::activeModalWidget())); });
    return MessageRequester(u"Title & <b>", u"Text\n& <b>", flags);
}

TEST_F(RequesterTest, ShowsWhatItIsToldAndAnswers) {
    const struct {
        std::uint32_t Flags;
        QMessageBox::Icon Icon;
        std::vector<std::pair<QString, std::int64_t>> Answers;
    } cases[] = {
        {0, QMessageBox::Information, {{"OK", 0}}},
        {MessageError, QMessageBox::Critical, {{"OK", 0}}},
        {MessageError | MessageInformation | MessageYesNo,
         QMessageBox::Information,
         {{"Yes", 6}, {"No", 7}}},
        {MessageWarning | MessageInformation | MessageYesNo | MessageYesNoCancel,
         QMessageBox::Warning,
         {{"Yes", 6}, {"No", 7}, {"Cancel", 2}}},
    };
    for (const auto& each : cases) {
        for (int i = 0; i < static_cast<int>(each.Answers.size()); ++i) {
            const auto& [label, value] = each.Answers[static_cast<std::size_t>(i)];
            const auto answer = Answer(each.Flags, [&, shown = label](QMessageBox& box) {
                EXPECT_EQ(box.text() + box.informativeText(), "Title & <b>Text\n& <b>");
                EXPECT_EQ(box.icon(), each.Icon);
                EXPECT_EQ(box.buttons().size(), each.Answers.size());
                EXPECT_EQ(box.buttons().at(i)->text().remove('&'), shown);
                QTest::mouseClick(box.buttons().at(i), Qt::LeftButton);
            });
            EXPECT_EQ(answer, value);
        }
    }
    EXPECT_EQ(Answer(MessageYesNo, [](QMessageBox&) { std::raise(SIGTERM); }), 0);
    EXPECT_EQ(Taken(), "Close 0") << "a signal to end comes before the answer";

    WindowCreate(0, 0, 0, 200, 100);
    PostProgramEvent(MenuChosen, 0, 1);
    Answer(0, [](QMessageBox& box) {
        QueueEvent(MenuChosen, 2, 0, 0);
        box.buttons().front()->click();
    });
    EXPECT_EQ(Taken(), "Menu 1, Menu 2") << "events wait for the answer";
    EXPECT_EQ(KeyWindowNumber(), 0);
}

}  // namespace
}  // namespace rotavel
