#include "gui/button_gadget.h"

#include <QKeyEvent>
#include <QPushButton>

#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/text.h"

namespace rotavel {

namespace {

class QzButtonGadgetView final : public QPushButton, public QzTaggedView, public QzControl {
  public:
    explicit QzButtonGadgetView(QWidget* container) : QPushButton(container) {
        connect(this, &QPushButton::clicked, this, [this] { RunEventHandler(); });
    }

    void SetIntValue(int value) override { state = value != 0 ? 1 : 0; }
    int IntValue() const override { return state; }

  protected:
    // Return presses the button as the space bar does.
    void keyPressEvent(QKeyEvent* event) override {
        const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (!isReturn) {
            QPushButton::keyPressEvent(event);
        } else if (!event->isAutoRepeat()) {
            click();
        }
    }

  private:
    int state = 0;
};

class QzButtonGadgetFunctions final : public QzGadgetFunctions {
  public:
    // The toolkit takes "&" for the mark of a mnemonic.
    void SetGadgetText(std::u16string_view text) override {
        View().setText(ToQString(text).replace('&', "&&"));
    }
    std::u16string GetGadgetText() const override {
        return FromQString(View().text().replace("&&", "&"));
    }

  private:
    QPushButton& View() const { return static_cast<QzButtonGadgetView&>(*Gadget->View); }
};

}  // namespace

std::int64_t ButtonGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::u16string_view text,
                                std::uint32_t flags) {
    return CreateGadget<QzButtonGadgetView, QzButtonGadgetFunctions>(
        {number, ButtonKind, x, y, width, height, flags},
        [text](auto&, auto& functions) { functions.SetGadgetText(text); });
}

}  // namespace rotavel
