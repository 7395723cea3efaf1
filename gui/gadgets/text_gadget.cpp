#include "gui/text_gadget.h"

#include <optional>

#include <QLabel>

#include "gui/gadget.h"
#include "gui/gadgets/gadget_colours.h"
#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"

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
    void SetGadgetColor(std::int64_t type, std::int64_t colour) override {
        const std::optional<QColor> given = GivenColour(colour);
        if (type == GadgetFrontColor) {
            FrontColor = given ? given : FrontColor;
            colours.SetFront(View(), given);
        } else if (type == GadgetBackColor) {
            View().setAutoFillBackground(given.has_value());
            colours.SetBack(View(), given);
        }
    }
    std::int64_t GetGadgetColor(std::int64_t type) const override {
        if (type == GadgetFrontColor) {
            return FromQColor(colours.Front(View()));
        }
        return type == GadgetBackColor ? FromQColor(colours.Back(View())) : 0;
    }

    void DisableGadget(bool state) override {
        const QColor grey = QPalette().color(QPalette::Disabled, QPalette::WindowText);
        colours.SetFront(View(), state ? std::optional(grey) : FrontColor);
    }

    void SetGadgetState(std::int64_t) override {}
    std::int64_t GetGadgetState() const override { return 0; }

  private:
    QLabel& View() const { return static_cast<Qz_NSTextField&>(*Gadget->View); }

    std::optional<QColor> FrontColor;  // the one set last, which enabling brings back
    GadgetColours colours{QPalette::WindowText, QPalette::Window};
};

Qt::Alignment AlignmentFor(std::uint32_t flags) {
    if ((flags & TextRight) != 0) {
        return Qt::AlignRight | Qt::AlignVCenter;
    }
    return ((flags & TextCentred) != 0 ? Qt::AlignHCenter : Qt::AlignLeft) | Qt::AlignVCenter;
}

}  // namespace

std::int64_t TextGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                              std::int64_t width, std::int64_t height, std::u16string_view text,
                              std::uint32_t flags) {
    return CreateGadget<QzTextGadgetFunctions>(
        {number, TextKind, x, y, width, height, flags},
        [flags](QWidget* container) {
            auto* const view = new Qz_NSTextField(container);
            view->setFrameShape((flags & TextBordered) != 0 ? QFrame::Box : QFrame::NoFrame);
            view->setAlignment(AlignmentFor(flags));
            return view;
        },
        [text](Qz_NSTextField&, QzTextGadgetFunctions& functions) {
            functions.SetGadgetText(text);
        });
}

}  // namespace rotavel
