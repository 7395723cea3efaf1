#include "gui/requester.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "gui/native/message_box.h"
#include "gui/native/native_text.h"
#include "gui/native/qz_window.h"
#include "gui/native/window_list.h"

namespace rotavel {

namespace {

QPointer<QMessageBox> openBox;

QMessageBox::Icon IconFor(std::uint32_t flags) {
    if ((flags & MessageWarning) != 0) {
        return QMessageBox::Warning;
    }
    if ((flags & MessageInformation) != 0) {
        return QMessageBox::Information;
    }
    return (flags & MessageError) != 0 ? QMessageBox::Critical : QMessageBox::NoIcon;
}

}  // namespace

void DismissMessageBox() {
    if (openBox != nullptr) {
        openBox->done(0);
    }
}

std::int64_t MessageRequester(std::u16string_view title, std::u16string_view text,
                              std::uint32_t flags) {
    PresentPendingWindows();
    const QPointer<QzWindow> keyWindow = QzWindow::KeyWindow();
    QMessageBox box(keyWindow);
    box.setTextFormat(Qt::PlainText);
    box.setWindowTitle(ToQString(title));
    box.setText(ToQString(title));
    box.setInformativeText(ToQString(text));
    box.setIcon(IconFor(flags));
    std::int64_t answer = 0;
    const auto addButton = [&](const QString& label, std::int64_t value) {
        // Of all roles only this one keeps the order of adding on every desktop.
        QPushButton* const button = box.addButton(label, QMessageBox::ActionRole);
        QObject::connect(button, &QPushButton::clicked, [&answer, value] { answer = value; });
        return button;
    };
    if ((flags & (MessageYesNo | MessageYesNoCancel)) != 0) {
        box.setDefaultButton(addButton("Yes", MessageAnswerYes));
        addButton("No", MessageAnswerNo);
        if ((flags & MessageYesNoCancel) != 0) {
            box.setEscapeButton(addButton("Cancel", MessageAnswerCancel));
        }
    } else {
        box.setStandardButtons(QMessageBox::Ok);
    }
    openBox = &box;
    box.exec();
    if (keyWindow != nullptr) {
        keyWindow->MakeKeyAndOrderFront();
    }
    return answer;
}

}  // namespace rotavel
