#include "gui/text_gadget.h"

#include <QLabel>

#include "gui/gadgets/gadget_colours.h"
#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"

namespace rotavel {

namespace {

class Qz_NSTextField final : public QLabel, public QzTaggedView, public QzControl {
  public:
    explicit Qz_NSTextField(QWidget* container) : QLabel(container) {
        setTextFormat(Qt::PlainText);
    }

    void SetStringValue(const QString& value) override { setText(value); }
    QString StringValue() const override { return text(); }
};

class QzTextGadgetFunctions final : public QzColouredGadgetFunctions {
  public:
    void SetGadgetColor(std::int64_t type, std::int64_t colour) override {
        const bool isGiven = colour >= 0;
        if (type == GadgetFrontColor && isGiven) {
            FrontColor = colour;
        } else if (type == GadgetBackColor) {
            Gadget->View->setAutoFillBackground(isGiven);
        }
        QzColouredGadgetFunctions::SetGadgetColor(type, colour);
    }

    void DisableGadget(bool state) override {
        const QColor grey = QPalette().color(QPalette::Disabled, QPalette::WindowText);
        QzColouredGadgetFunctions::SetGadgetColor(
            GadgetFrontColor, state ? std::int64_t{FromQColor(grey)} : FrontColor);
    }

    void SetGadgetState(std::int64_t) override {}
    std::int64_t GetGadgetState() const override { return 0; }

  private:
    std::int64_t FrontColor = NoGadgetColor;  // the one set last, which enabling brings back
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
    return CreateGadget<Qz_NSTextField, QzTextGadgetFunctions>(
        {number, TextKind, x, y, width, height, flags}, [&](auto& view, auto& functions) {
            view.setFrameShape((flags & TextBordered) != 0 ? QFrame::Box : QFrame::NoFrame);
            view.setAlignment(AlignmentFor(flags));
            functions.SetGadgetText(text);
        });
}

}  // namespace rotavel
