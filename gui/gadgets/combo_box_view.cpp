#include "gui/gadgets/combo_box_view.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include "gui/combo_box_gadget.h"
#include "gui/event_queue.h"
#include "gui/gadgets/text_entry.h"
#include "gui/toolkit/text.h"

namespace rotavel {

QzComboBoxView::QzComboBoxView(QWidget* container) : QzGadgetView(container) {
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setFocusPolicy(Qt::StrongFocus);
}

void QzComboBoxView::NotifyOfChoices() {
    QObject::connect(this, &QComboBox::activated, this, [this] { RunEventHandler(*this); });
}

void QzComboBoxView::keyPressEvent(QKeyEvent* event) {
    if (lineEdit() == nullptr && IsCommandKey(*event)) {
        event->ignore();  // the toolkit would look for an item that begins so
    } else {
        QzGadgetView::keyPressEvent(event);
    }
}

void QzComboBoxView::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void QzListFunctions::EventHandler() {
    SendEvent(Change);
}

QString QzListFunctions::FoldedItem(std::u16string_view text) const {
    const bool isUpper = (Gadget->Flags & ComboBoxUpperCase) != 0;
    return Folded(ToQString(text), (Gadget->Flags & ComboBoxLowerCase) != 0 ? LetterCase::Lower
                                   : isUpper                                ? LetterCase::Upper
                                                                            : LetterCase::AsItIs);
}

}  // namespace rotavel
