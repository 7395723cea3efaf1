#include "gui/gadgets/gadget_functions.h"

#include "gui/events/event_posting.h"
#include "gui/gadget.h"
#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_creation.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/toolkit/coordinates.h"
#include "gui/toolkit/font.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/text.h"
#include "gui/windows/qz_views.h"
#include "gui/windows/window_frame.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

QzControl* AsControl(const GadgetRecord& record) {
    return dynamic_cast<QzControl*>(record.View);
}

QPoint Position(const GadgetRecord& record, int mode) {
    const QWidget& container = *record.Container;
    const QzWindow& window = *QzWindow::Of(&container);
    switch (mode) {
        case OnScreen:
            return InnerCornerOf(window) + container.mapTo(&window, QPoint());
        case InWindow:
            return container.mapTo(window.ContentView(), QPoint());
        default:
            return container.pos();
    }
}

}  // namespace

GadgetNumber QzGadgetFunctions::Setup(std::unique_ptr<QzGadgetFunctions> functions,
                                      const NewGadget& gadget, QWidget* view, QWidget* container) {
    const auto [id, record] = GadgetRegistry().Create(gadget.Number);
    record->View = view;
    record->Container = container;
    record->Window = WindowNumberOf(FromHandle(QzGadgetList::CurrentWindow()));
    record->Flags = gadget.Flags;
    dynamic_cast<QzTaggedView&>(*view).SetTag(id);
    Reuse(std::move(functions), *record, gadget.Kind);
    if (DefaultGadgetFont() != AnyNumber) {
        record->Functions->SetGadgetFont(DefaultGadgetFont());
    }
    container->setGeometry(ToCoordinate(gadget.X), ToCoordinate(gadget.Y), ToSide(gadget.Width),
                           ToSide(gadget.Height));
    container->show();
    return id;
}

void QzGadgetFunctions::Reuse(std::unique_ptr<QzGadgetFunctions> functions, GadgetRecord& record,
                              GadgetKind kind) {
    functions->Gadget = &record;
    functions->GadgetID = dynamic_cast<QzTaggedView&>(*record.View).Tag();
    functions->isNSControl = AsControl(record) != nullptr;
    record.Kind = kind;
    record.Functions = std::move(functions);
}

void QzGadgetFunctions::SendEvent(std::int64_t type) const {
    QueueEvent(GadgetActivity, GadgetID, Gadget->Window, type);
}

void QzGadgetFunctions::ActivateGadget() {
    // A binding to what this posts may free the gadget, and these functions with it. The native
    // objects stay until the program's outermost wait.
    const GadgetNumber number = GadgetID;
    QWidget* const view = Gadget->View;
    QzWindow* const window = QzWindow::Of(view);
    if (window->Presentation().IsVisibleOrPending()) {
        window->MakeKeyAndOrderFront();
    }
    const GadgetRecord* const record = GadgetRegistry().Find(number);
    const bool isPresent = record != nullptr && record->View == view;
    if (isPresent && view->focusPolicy() != Qt::NoFocus && !window->IsDisabled()) {
        window->MakeFirstResponder(view);
    }
}

void QzGadgetFunctions::GadgetToolTip(std::u16string_view text) {
    // Plain text, whatever it looks like, in its own lines.
    Gadget->View->setToolTip(text.empty() ? QString()
                                          : "<p style='white-space:pre'>" +
                                                ToQString(text).toHtmlEscaped() + "</p>");
    Gadget->View->setAccessibleDescription(ToQString(text));  // else it is read with its marks
}

void QzGadgetFunctions::GadgetName(std::u16string_view text) const {
    Gadget->View->setAccessibleName(ToQString(text));
}

void QzGadgetFunctions::HideGadget(bool state) {
    QWidget* const container = Gadget->Container;
    container->setHidden(state);
    // Where no other view takes the keyboard over, the toolkit leaves it with the hidden one.
    if (container->isHidden()) {
        TakeKeyboardFrom(*container);
    }
}

void QzGadgetFunctions::DisableGadget(bool state) {
    if (isNSControl) {
        DisableView(state);
    }
}

void QzGadgetFunctions::DisableView(bool state) {
    QWidget* const view = Gadget->View;
    if (state) {
        TakeKeyboardFrom(*view);  // the toolkit would pass it on to the next view
    }
    view->setEnabled(!state);
}

std::int64_t QzGadgetFunctions::GadgetX(int mode) const {
    return Position(*Gadget, mode).x();
}

std::int64_t QzGadgetFunctions::GadgetY(int mode) const {
    return Position(*Gadget, mode).y();
}

std::int64_t QzGadgetFunctions::GadgetWidth() const {
    return Gadget->Container->width();
}

std::int64_t QzGadgetFunctions::GadgetHeight() const {
    return Gadget->Container->height();
}

void QzGadgetFunctions::ResizeGadget(std::int64_t x, std::int64_t y, std::int64_t width,
                                     std::int64_t height) {
    QRect bounds = Gadget->Container->geometry();
    if (x != IgnoreValue) {
        bounds.moveLeft(ToCoordinate(x));
    }
    if (y != IgnoreValue) {
        bounds.moveTop(ToCoordinate(y));
    }
    if (width != IgnoreValue) {
        bounds.setWidth(ToSide(width));
    }
    if (height != IgnoreValue) {
        bounds.setHeight(ToSide(height));
    }
    Gadget->Container->setGeometry(bounds);
    Gadget->View->update();
}

void QzGadgetFunctions::SetGadgetFont(std::int64_t font) {
    if (isNSControl) {
        fontNumber = font;
        Gadget->View->setFont(FontForGadgets(font));
    }
}

std::int64_t QzGadgetFunctions::GetGadgetFont() const {
    return fontNumber;
}

void QzGadgetFunctions::SetGadgetState(std::int64_t state) {
    if (isNSControl) {
        AsControl(*Gadget)->SetIntValue(static_cast<int>(state));
    }
}

std::int64_t QzGadgetFunctions::GetGadgetState() const {
    return isNSControl ? AsControl(*Gadget)->IntValue() : 0;
}

void QzGadgetFunctions::SetGadgetText(std::u16string_view text) {
    if (isNSControl) {
        AsControl(*Gadget)->SetStringValue(ToQString(text));
    }
}

std::u16string QzGadgetFunctions::GetGadgetText() const {
    return isNSControl ? FromQString(AsControl(*Gadget)->StringValue()) : std::u16string();
}

void TakeKeyboardFrom(const QWidget& view) {
    QzWindow* const window = QzWindow::Of(&view);
    const QWidget* const focus = window == nullptr ? nullptr : window->focusWidget();
    if (view.isAncestorOf(focus)) {
        window->MakeFirstResponder(nullptr);
    }
}

}  // namespace rotavel
