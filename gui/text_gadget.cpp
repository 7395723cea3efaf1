#include "gui/text_gadget.h"

#include <optional>

#include <QLabel>

#include "gui/gadget.h"
#include "gui/native/gadget_colours.h"
#include "gui/native/gadget_view.h"

namespace rotavel {

namespace {

class Qz_NSTextField final : public QzGadgetView<QLabel>, public QzControl {
  public:
    explicit Qz_NSTextField(QWidget* container) : QzGadgetView(container) {
        setTextFormat(Qt::PlainText);
    }

    void SetStringValue(const QString& value) override { setText(value); }
    QString StringValue() const override { return text(); }
};

class QzTextGadgetFunctions final : public QzGadgetFunctions {
  public:
    void RememberDefaults() {
        defaultBackgroundColor = View().palette().color(QPalette::Window);
        defaultFrontColor = View().palette().color(QPalette::WindowText);
    }

    void SetGadgetColor(std::int64_t type, std::int64_t colour) override {
        if (type == FrontColour) {
            if (colour != NoColour) {
                FrontColor = ToColour(colour);
            }
            SetPaletteColour(View(), QPalette::WindowText,
                             colour == NoColour ? defaultFrontColor : *FrontColor);
        } else if (type == BackColour) {
            View().setAutoFillBackground(colour != NoColour);
            SetPaletteColour(View(), QPalette::Window,
                             colour == NoColour ? defaultBackgroundColor : ToColour(colour));
        }
    }
    std::int64_t GetGadgetColor(std::int64_t type) const override {
        if (type == FrontColour) {
            return FromColour(View().palette().color(QPalette::WindowText));
        }
        return type == BackColour ? FromColour(View().palette().color(QPalette::Window)) : 0;
    }

    void DisableGadget(int state) override {
        const QPalette standard;
        SetPaletteColour(View(), QPalette::WindowText,
                         state != 0 ? standard.color(QPalette::Disabled, QPalette::WindowText)
                                    : FrontColor.value_or(
                                          standard.color(QPalette::Active, QPalette::WindowText)));
    }

    void SetGadgetState(std::int64_t) override {}
    std::int64_t GetGadgetState() const override { return 0; }

  private:
    QLabel& View() const { return static_cast<Qz_NSTextField&>(*Gadget->View); }

    std::optional<QColor> FrontColor;
    QColor defaultBackgroundColor;
    QColor defaultFrontColor;
};

Qt::Alignment AlignmentFor(std::uint32_t flags) {
    if ((flags & TextRight) != 0) {
        return Qt::AlignRight | Qt::AlignVCenter;
    }
    return ((flags & TextCentred) != 0 ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

std::int64_t TextGadgetCreate(std::int64_t number, std::int64_t x, std::int64_t y,
                              std::int64_t width, std::int64_t height, std::u16string_view text,
                              std::uint32_t flags) {
    QWidget* const container = ContainerForNewGadget(number);
    if (container == nullptr) {
        return 0;
    }
    auto* const view = new Qz_NSTextField(container);
    view->setFrameShape((flags & TextBordered) != 0 ? QFrame::Box : QFrame::NoFrame);
    view->setAlignment(AlignmentFor(flags));
    auto owned = std::make_unique<QzTextGadgetFunctions>();
    QzTextGadgetFunctions* const functions = owned.get();
    const std::int64_t result =
        PlaceGadget(std::move(owned), number, TextKind, view, {x, y, width, height}, flags);
    functions->SetGadgetText(text);
    functions->RememberDefaults();
    return result;
}

}  // namespace rotavel
