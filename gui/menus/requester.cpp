#include "gui/requester.h"

#include <QPointer>

#include "gui/menus/message_box.h"
#include "gui/toolkit/text.h"
#include "gui/windows/qz_window.h"
#include "gui/windows/window_list.h"

namespace rotavel {

namespace {

QStyle::StandardPixmap IconFor(std::uint32_t flags) {
    if ((flags & MessageWarning) != 0) {
        return QStyle::SP_MessageBoxWarning;
    }
    if ((flags & MessageInformation) != 0) {
        return QStyle::SP_MessageBoxInformation;
    }
    return (flags & MessageError) != 0 ? QStyle::SP_MessageBoxCritical
                                       : QStyle::SP_MessageBoxInformation;
}

std::vector<MessageAnswer> AnswersFor(std::uint32_t flags) {
    if ((flags & (MessageYesNo | MessageYesNoCancel)) == 0) {
        return {{"OK", MessageAnswerOk, true}};
    }
    std::vector<MessageAnswer> answers = {{"Yes", MessageAnswerYes, false},
                                          {"No", MessageAnswerNo, false}};
    if ((flags & MessageYesNoCancel) != 0) {
        answers.push_back({"Cancel", MessageAnswerCancel, true});
    }
    return answers;
}

// What the box stands over: the requester that is open already, else the window that has the
// keyboard, or had it before another program took it.
QWidget* Under() {
    if (MessageBox* const box = MessageBox::Newest()) {
        return box;
    }
    QzWindow* const window = QzWindow::ChosenKeyWindow() != nullptr ? QzWindow::ChosenKeyWindow()
                                                                    : QzWindow::LastKeyWindow();
    return window != nullptr && window->isVisible() ? window : nullptr;
}

}  // namespace

std::int64_t MessageRequester(std::u16string_view title, std::u16string_view text,
                              std::uint32_t flags) {
    PresentPendingWindows();
    const QPointer<QzWindow> keyWindow = QzWindow::ChosenKeyWindow();
    std::int64_t answer = 0;
    {
        QWidget* const under = Under();
        MessageBox box(ToQString(title), ToQString(text), IconFor(flags), AnswersFor(flags));
        box.setWindowTitle(ToWindowTitle(title));
        answer = box.Ask(under);
    }
    // The program may have closed or hidden it meanwhile.
    if (keyWindow != nullptr && keyWindow->Delegate() != nullptr &&
        keyWindow->Presentation().IsVisibleOrPending()) {
        keyWindow->MakeKeyAndOrderFront();
    }
    return answer;
}

}  // namespace rotavel
