#include "gui/string_gadget.h"

#include <algorithm>
#include <limits>

#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>

#include "gui/event_queue.h"
#include "gui/gadget.h"
#include "gui/gadgets/formatters.h"
#include "gui/gadgets/gadget_colours.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/gadgets/undo_key.h"
#include "gui/toolkit/text.h"
#include "gui/windows/first_responder.h"

namespace rotavel {

namespace {

// What the two views of a string field share.
class QzStringField : public QzGadgetView<QLineEdit>, public QzControl {
  public:
    explicit QzStringField(QWidget* container) : QzGadgetView(container) {
        // The toolkit's limit would cut the program's own texts; the formatter knows the real one.
        setMaxLength(std::numeric_limits<int>::max());
        UndoKey::InstallOn(*this);
    }

    void SetFormatter(std::unique_ptr<QzMaximumLengthFormatter> newFormatter) {
        formatter = std::move(newFormatter);
        setValidator(formatter.get());
    }
    QzMaximumLengthFormatter& Formatter() const { return *formatter; }

    void SetStringValue(const QString& value) override {
        const QSignalBlocker silence(this);
        // Without its validator the toolkit neither judges nor replaces the text, and takes the
        // next edit for one of a valid text, which it undoes when the formatter refuses it.
        setValidator(nullptr);
        setText(value);
        setCursorPosition(0);
        setValidator(formatter.get());
        judged = text();
    }
    QString StringValue() const override { return text(); }

    // Whether the user's edit stands. The toolkit does not judge what undo and redo bring back.
    bool EditStands() {
        if (!formatter->IsPartialStringValid(text())) {
            const int cursor = cursorPosition();
            SetStringValue(judged);
            setCursorPosition(cursor);
            return false;
        }
        judged = text();
        return true;
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        // The toolkit forgets what can be undone when a formatter replaces the text, so it gets to
        // see a letter folded already where that changes no length.
        const QString typed = event->text();
        const QString folded = formatter->Replacement(typed);
        QKeyEvent key(event->type(), event->key(), event->modifiers(),
                      folded.size() == typed.size() ? folded : typed, event->isAutoRepeat(),
                      static_cast<quint16>(event->count()));
        QzGadgetView::keyPressEvent(&key);
        event->setAccepted(key.isAccepted());
    }

  private:
    std::unique_ptr<QzMaximumLengthFormatter> formatter;
    QString judged;  // the text before the edit at hand
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

    void BecomeFirstResponder() override { SendEventFor(Tag(), Focus); }
    void TextDidEndEditing() override { SendEventFor(Tag(), LostFocus); }
};

LetterCase SetTextCase(std::uint32_t flags) {
    if ((flags & StringLowerCase) != 0) {
        return LetterCase::Lower;
    }
    return (flags & StringUpperCase) != 0 ? LetterCase::Upper : LetterCase::AsItIs;
}

class QzStringGadgetFunctions final : public QzGadgetFunctions {
  public:
    // What the field holds is ready to be typed over.
    void ActivateGadget() override {
        const QPointer<QLineEdit> view = &View();  // a binding to Focus may free the gadget
        QzGadgetFunctions::ActivateGadget();
        if (view != nullptr) {
            view->selectAll();
        }
    }

    // Pressing Return is no event.
    void EventHandler() override {}

    void ControlTextDidChange() {
        if (View().EditStands()) {
            SendEvent(Change);
        }
    }

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

    void SetGadgetColor(std::int64_t type, std::int64_t colour) override {
        if (type == FrontColour) {
            colours.SetFront(View(), GivenColour(colour));
        } else if (type == BackColour) {
            colours.SetBack(View(), GivenColour(colour));
        }
    }
    std::int64_t GetGadgetColor(std::int64_t type) const override {
        if (type == FrontColour) {
            return FromQColor(colours.Front(View()));
        }
        return type == BackColour ? FromQColor(colours.Back(View())) : 0;
    }

  private:
    QzStringField& View() const { return dynamic_cast<QzStringField&>(*Gadget->View); }

    GadgetColours colours{QPalette::Text, QPalette::Base};
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

QzStringField* MakeView(QWidget* container, std::uint32_t flags) {
    if ((flags & StringPassword) != 0) {
        return new QzSecureTextField(container);
    }
    return new QzStringGadgetTextField(container);
}

}  // namespace

std::int64_t StringGadgetCreate(GadgetNumber number, std::int64_t x, std::int64_t y,
                                std::int64_t width, std::int64_t height, std::u16string_view text,
                                std::uint32_t flags) {
    QWidget* const container = ContainerForNewGadget(number);
    if (container == nullptr) {
        return 0;
    }
    QzStringField* const view = MakeView(container, flags);
    view->setReadOnly((flags & StringReadOnly) != 0);
    view->setFrame((flags & StringBorderless) == 0);
    view->SetFormatter(FormatterFor(flags));
    auto owned = std::make_unique<QzStringGadgetFunctions>();
    QzStringGadgetFunctions* const functions = owned.get();
    const std::int64_t result =
        PlaceGadget(std::move(owned), number, StringKind, view, {x, y, width, height}, flags);
    functions->SetGadgetText(text);
    QObject::connect(view, &QLineEdit::textChanged, view, [view] {
        if (auto* const present = FunctionsOf<QzStringGadgetFunctions>(*view)) {
            present->ControlTextDidChange();
        }
    });
    return result;
}

}  // namespace rotavel
