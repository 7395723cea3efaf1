#include "gui/requester.h"

#include <map>
#include <vector>

#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "gui/menus/message_box.h"
#include "gui/toolkit/text.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_list.h"

namespace rotavel {

namespace {

// The open boxes, the newest last: a timer may open one over another.
std::vector<QPointer<QMessageBox>> openBoxes;

QMessageBox::Icon IconFor(std::uint32_t flags) {
    if ((flags & MessageWarning) != 0) {
        return QMessageBox::Warning;
    }
    if ((flags & MessageInformation) != 0) {
        return QMessageBox::Information;
    }
    return (flags & MessageError) != 0 ? QMessageBox::Critical : QMessageBox::Information;
}

struct Answer {
    QString Label;
    std::int64_t Value;
};

std::vector<Answer> AnswersFor(std::uint32_t flags) {
    if ((flags & (MessageYesNo | MessageYesNoCancel)) == 0) {
        return {};
    }
    std::vector<Answer> answers = {{"Yes", MessageAnswerYes}, {"No", MessageAnswerNo}};
    if ((flags & MessageYesNoCancel) != 0) {
        answers.push_back({"Cancel", MessageAnswerCancel});
    }
    return answers;
}

// Adds the buttons, in this order on every desktop: only buttons of one role are left in theirs.
std::map<QAbstractButton*, std::int64_t> AddButtons(QMessageBox& box,
                                                    const std::vector<Answer>& answers) {
    std::map<QAbstractButton*, std::int64_t> buttons;
    for (const Answer& answer : answers) {
        QPushButton* const button = box.addButton(answer.Label, QMessageBox::ActionRole);
        buttons[button] = answer.Value;
        if (answer.Value == MessageAnswerYes) {
            box.setDefaultButton(button);
        } else if (answer.Value == MessageAnswerCancel) {
            box.setEscapeButton(button);
        }
    }
    if (answers.empty()) {
        box.setStandardButtons(QMessageBox::Ok);
    }
    return buttons;
}

void SetTexts(QMessageBox& box, std::u16string_view title, std::u16string_view text) {
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(ToWindowTitle(title));
    box.setText(ToQString(title));
    box.setInformativeText(ToQString(text));
    // The toolkit would take a text that looks like mark-up for it.
    if (auto* const label = box.findChild<QLabel*>("qt_msgbox_informativelabel")) {
        label->setTextFormat(Qt::PlainText);
    }
}

}  // namespace

void DismissMessageBoxes() {
    const auto present = openBoxes;  // closing one may run code that opens another
    for (const QPointer<QMessageBox>& box : present) {
        if (box != nullptr) {
            box->done(0);
        }
    }
}

std::int64_t MessageRequester(std::u16string_view title, std::u16string_view text,
                              std::uint32_t flags) {
    PresentPendingWindows();
    const QPointer<QzWindow> keyWindow = QzWindow::ChosenKeyWindow();
    // The window that the box stands over may be destroyed under it, and the box with it.
    const QPointer<QMessageBox> box = new QMessageBox(keyWindow);
    SetTexts(*box, title, text);
    box->setIcon(IconFor(flags));
    const auto buttons = AddButtons(*box, AnswersFor(flags));
    openBoxes.push_back(box);
    box->exec();
    openBoxes.pop_back();
    std::int64_t answer = 0;
    if (box != nullptr) {
        const auto pressed = buttons.find(box->clickedButton());
        answer = pressed == buttons.end() ? 0 : pressed->second;
        delete box;
    }
    if (keyWindow != nullptr) {
        keyWindow->MakeKeyAndOrderFront();
    }
    return answer;
}

}  // namespace rotavel
