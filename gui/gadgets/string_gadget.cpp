#include "gui/string_gadget.h"

#include <algorithm>
#include <limits>

#include "gui/event_queue.h"
#include "gui/gadget.h"
#include "gui/gadgets/gadget_colours.h"
#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/gadgets/text_entry.h"
#include "gui/toolkit/text.h"
#include "gui/windows/window_focus.h"

namespace rotavel {

namespace {

// What the two views of a string field share.
class QzStringField : public QzTextEntry, public QzTaggedView, public QzControl {
  public:
    explicit QzStringField(QWidget* container)
        : QzTextEntry(container, [this] { SendEvent(Change); }) {}

    void SetStringValue(const QString& value) override { ShowText(value); }
    QString StringValue() const override { return text(); }
};

class QzSecureTextField final : public QzStringField {
  public:
    explicit QzSecureTextField(QWidget* container) : QzStringField(container) {
        setEchoMode(Password);
    }
};

class QzStringGadgetTextField final : public QzStringField, public FirstResponderView {
  public:
    using QzStringField::QzStringField;

    void BecomeFirstResponder() override { SendEvent(Focus); }
    void TextDidEndEditing() override { SendEvent(LostFocus); }
};

LetterCase SetTextCase(std::uint32_t flags) {
    if ((flags & StringLowerCase) != 0) {
        return LetterCase::Lower;
    }
    return (flags & StringUpperCase) != 0 ? LetterCase::Upper : LetterCase::AsItIs;
}

class QzStringGadgetFunctions final : public QzColouredGadgetFunctions {
  public:
    // What the field holds is ready to be typed over.
    void ActivateGadget() override {
        QLineEdit& view = View();  // a binding to Focus may free the gadget, and this with it
        QzGadgetFunctions::ActivateGadget();
        view.selectAll();
    }

    // Pressing Return is no event.
    void EventHandler() override {}

    void SetGadgetText(std::u16string_view text) override {
        View().SetStringValue(Folded(ToQString(text), SetTextCase(Gadget->Flags)));
    }

    void SetGadgetAttribute(std::int64_t attribute, std::int64_t value) override {
        if (attribute == StringMaximumLength) {
            View().Formatter().SetMaximumLength(static_cast<std::int32_t>(
                std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                         std::numeric_limits<std::int32_t>::max())));
        }
    }
    std::int64_t GetGadgetAttribute(std::int64_t attribute) const override {
        return attribute == StringMaximumLength ? View().Formatter().MaximumLength() : 0;
    }

  private:
    QzStringField& View() const { return static_cast<QzStringField&>(*Gadget->View); }
};

std::unique_ptr<QzMaximumLengthFormatter> FormatterFor(std::uint32_t flags) {
    if ((flags & StringNumeric) != 0) {
        return std::make_unique<QzNumericFormatter>();
    }
    if ((flags & StringUpperCase) != 0) {
        return std::make_unique<QzUpperCaseFormatter>();
    }
    if ((flags & StringLowerCase) != 0) {
        return std::make_unique<QzLowerCaseFormatter>();
    }
    return std::make_unique<QzMaximumLengthFormatter>();
}

}  // namespace

std::int64_t StringGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::u16string_view text,
                                std::uint32_t flags) {
    const NewGadget gadget = {number, StringKind, x, y, width, height, flags};
    const auto complete = [&](QzStringField& view, QzStringGadgetFunctions& functions) {
        view.setReadOnly((flags & StringReadOnly) != 0);
        view.setFrame((flags & StringBorderless) == 0);
        view.SetFormatter(FormatterFor(flags));
        functions.SetGadgetText(text);
    };
    return (flags & StringPassword) != 0
               ? CreateGadget<QzSecureTextField, QzStringGadgetFunctions>(gadget, complete)
               : CreateGadget<QzStringGadgetTextField, QzStringGadgetFunctions>(gadget, complete);
}

}  // namespace rotavel
