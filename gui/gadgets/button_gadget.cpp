#include "gui/button_gadget.h"

#include <QPushButton>

#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/text.h"

namespace rotavel {

namespace {

class QzButtonGadgetView final : public QzGadgetView<QPushButton>, public QzControl {
  public:
    using QzGadgetView::QzGadgetView;

    void SetStringValue(const QString&) override {}
    QString StringValue() const override { return QString::number(IntValue()); }
    void SetIntValue(int value) override { state = value != 0 ? 1 : 0; }
    int IntValue() const override { return state; }

  private:
    int state = 0;
};

class QzButtonGadgetFunctions final : public QzGadgetFunctions {
  public:
    void SetGadgetText(std::u16string_view text) override {
        title = text;
        // The toolkit takes "&" for the mark of a mnemonic.
        View().setText(ToQString(text).replace('&', "&&"));
    }
    std::u16string GetGadgetText() const override { return title; }

  private:
    QPushButton& View() const { return static_cast<QzButtonGadgetView&>(*Gadget->View); }

    std::u16string title;
};

}  // namespace

std::int64_t ButtonGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::u16string_view text,
                                std::uint32_t flags) {
    QWidget* const container = ContainerForNewGadget(number);
    if (container == nullptr) {
        return 0;
    }
    auto* const view = new QzButtonGadgetView(container);
    auto owned = std::make_unique<QzButtonGadgetFunctions>();
    QzButtonGadgetFunctions* const functions = owned.get();
    const std::int64_t result =
        PlaceGadget(std::move(owned), number, ButtonKind, view, {x, y, width, height}, flags);
    functions->SetGadgetText(text);
    QObject::connect(view, &QPushButton::clicked, view, [view] { RunEventHandler(*view); });
    return result;
}

}  // namespace rotavel
