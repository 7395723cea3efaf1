#pragma once

#include <string_view>

#include <QComboBox>

#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"

namespace rotavel {

// What the views of both forms of a combo box have in common: they keep the size they were given, a
// turn of the wheel over them neither chooses nor takes the keyboard, and a command key chooses no
// item.
class QzComboBoxView : public QzGadgetView<QComboBox>, public QzControl {
  public:
    explicit QzComboBoxView(QWidget* container);

    // Has the gadget's event handler run for each choice of the user's, also of the item that is
    // selected already.
    void NotifyOfChoices();

    QString StringValue() const override { return currentText(); }

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
};

// And their functions.
class QzListFunctions : public QzGadgetFunctions {
  public:
    void EventHandler() override;

  protected:
    // A text as the flags of the gadget fold it.
    QString FoldedItem(std::u16string_view text) const;
};

}  // namespace rotavel
