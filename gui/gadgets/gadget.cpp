#include "gui/gadget.h"

#include <functional>
#include <type_traits>

#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_record.h"
#include "gui/gadgets/gadget_view.h"
#include "gui/windows/window_record.h"

namespace rotavel {

namespace {

NumberedObjects<GadgetRecord> registry;
std::int64_t defaultFont = AnyNumber;

// Forwards an operation to the functions of a gadget; gives 0 or an empty text when the number is
// not open.
template <typename Operation, typename... Arguments>
auto Forward(std::int64_t number, Operation operation, Arguments... arguments)
    -> std::invoke_result_t<Operation, QzGadgetFunctions&, Arguments...> {
    using Result = std::invoke_result_t<Operation, QzGadgetFunctions&, Arguments...>;
    if (const GadgetRecord* const record = registry.Find(number)) {
        return std::invoke(operation, *record->Functions, arguments...);
    }
    return Result();
}

// A place on the screen is known once the window has its frame.
void EnsureFramedFor(std::int64_t number, int mode) {
    const GadgetRecord* const record = registry.Find(number);
    if (record != nullptr && mode == OnScreen) {
        QzWindow::Of(record->View)->EnsureFramed();
    }
}

void FreeRecord(std::int64_t number, GadgetRecord& record) {
    if (auto* const tagged = dynamic_cast<QzTaggedView*>(record.View)) {
        tagged->SetAlreadyDestroyed(true);
    }
    QzGadgetList::RemoveView(ToHandle(record.Container));
    record.Functions->FreeGadget();
    registry.Remove(number);
}

// Frees the gadgets that match; the predicate may be asked about each more than once.
template <typename Predicate>
void FreeWhere(Predicate matches) {
    for (auto next = registry.First(); next.second != nullptr; next = registry.After(next.first)) {
        if (matches(*next.second)) {
            FreeGadget(next.first);
        }
    }
}

void FreeOne(std::int64_t number, GadgetRecord& record) {
    QWidget* const container = record.Container;
    FreeRecord(number, record);
    FreeWhere(
        [container](const GadgetRecord& other) { return container->isAncestorOf(other.View); });
    // Hiding the focus would pass it on, as if the user had moved it.
    QzWindow* const window = QzWindow::Of(container);
    QWidget* const focus = window == nullptr ? nullptr : window->focusWidget();
    if (focus != nullptr && (focus == container || container->isAncestorOf(focus))) {
        window->MakeFirstResponder(nullptr);
    }
    container->hide();
    // The toolkit may be in the middle of telling this view something.
    container->deleteLater();
}

}  // namespace

NumberedObjects<GadgetRecord>& GadgetRegistry() {
    return registry;
}

std::int64_t DefaultGadgetFont() {
    return defaultFont;
}

void FreeGadgetsOfWindow(std::int64_t window) {
    FreeWhere([window](const GadgetRecord& record) { return record.Window == window; });
}

void SendEventFor(std::int64_t gadget, std::int64_t type) {
    if (const GadgetRecord* const record = registry.Find(gadget)) {
        record->Functions->SendEvent(type);
    }
}

void FreeGadgetRecord(std::int64_t number) {
    if (GadgetRecord* const record = registry.Find(number)) {
        FreeRecord(number, *record);
    }
}

bool GadgetExists(std::int64_t number) {
    return registry.Find(number) != nullptr;
}

void FreeGadget(std::int64_t number) {
    if (number == AnyNumber) {
        FreeWhere([](const GadgetRecord&) { return true; });
    } else if (GadgetRecord* const record = registry.Find(number)) {
        FreeOne(number, *record);
    }
}

void ActivateGadget(std::int64_t number) {
    if (number == AnyNumber) {
        if (QzWindow* const window = QzWindow::KeyWindow()) {
            window->MakeFirstResponder(nullptr);
        }
        return;
    }
    const GadgetRecord* const record = registry.Find(number);
    if (record != nullptr && !QzWindow::Of(record->View)->IsDisabled()) {
        record->Functions->ActivateGadget();
    }
}

void DisableGadget(std::int64_t number, int state) {
    Forward(number, &QzGadgetFunctions::DisableGadget, state);
}

void HideGadget(std::int64_t number, int state) {
    Forward(number, &QzGadgetFunctions::HideGadget, state);
}

void GadgetToolTip(std::int64_t number, std::u16string_view text) {
    Forward(number, &QzGadgetFunctions::GadgetToolTip, text);
}

std::int64_t GadgetX(std::int64_t number, int mode) {
    EnsureFramedFor(number, mode);
    return Forward(number, &QzGadgetFunctions::GadgetX, mode);
}

std::int64_t GadgetY(std::int64_t number, int mode) {
    EnsureFramedFor(number, mode);
    return Forward(number, &QzGadgetFunctions::GadgetY, mode);
}

std::int64_t GadgetWidth(std::int64_t number) {
    return Forward(number, &QzGadgetFunctions::GadgetWidth);
}

std::int64_t GadgetHeight(std::int64_t number) {
    return Forward(number, &QzGadgetFunctions::GadgetHeight);
}

void ResizeGadget(std::int64_t number, std::int64_t x, std::int64_t y, std::int64_t width,
                  std::int64_t height) {
    Forward(number, &QzGadgetFunctions::ResizeGadget, x, y, width, height);
}

void SetGadgetText(std::int64_t number, std::u16string_view text) {
    Forward(number, &QzGadgetFunctions::SetGadgetText, text);
}

std::u16string GetGadgetText(std::int64_t number) {
    return Forward(number, &QzGadgetFunctions::GetGadgetText);
}

void SetGadgetState(std::int64_t number, std::int64_t state) {
    Forward(number, &QzGadgetFunctions::SetGadgetState, state);
}

std::int64_t GetGadgetState(std::int64_t number) {
    return Forward(number, &QzGadgetFunctions::GetGadgetState);
}

void SetGadgetAttribute(std::int64_t number, std::int64_t attribute, std::int64_t value) {
    Forward(number, &QzGadgetFunctions::SetGadgetAttribute, attribute, value);
}

std::int64_t GetGadgetAttribute(std::int64_t number, std::int64_t attribute) {
    return Forward(number, &QzGadgetFunctions::GetGadgetAttribute, attribute);
}

void SetGadgetFont(std::int64_t number, std::int64_t font) {
    if (number == AnyNumber) {
        defaultFont = font;
        return;
    }
    Forward(number, &QzGadgetFunctions::SetGadgetFont, font);
}

std::int64_t GetGadgetFont(std::int64_t number) {
    const GadgetRecord* const record = registry.Find(number);
    return record == nullptr ? AnyNumber : record->Functions->GetGadgetFont();
}

void SetGadgetColor(std::int64_t number, std::int64_t type, std::int64_t colour) {
    Forward(number, &QzGadgetFunctions::SetGadgetColor, type, colour);
}

std::int64_t GetGadgetColor(std::int64_t number, std::int64_t type) {
    return Forward(number, &QzGadgetFunctions::GetGadgetColor, type);
}

std::int64_t AddGadgetItem(std::int64_t number, std::int64_t position, std::u16string_view text,
                           NativeImage* image, std::uint32_t flags) {
    return Forward(number, &QzGadgetFunctions::AddGadgetItem, position, text, image, flags);
}

void RemoveGadgetItem(std::int64_t number, std::int64_t item) {
    Forward(number, &QzGadgetFunctions::RemoveGadgetItem, item);
}

void ClearGadgetItems(std::int64_t number) {
    Forward(number, &QzGadgetFunctions::ClearGadgetItems);
}

std::int64_t CountGadgetItems(std::int64_t number) {
    return Forward(number, &QzGadgetFunctions::CountGadgetItems);
}

void SetGadgetItemText(std::int64_t number, std::int64_t item, std::u16string_view text,
                       std::int64_t column) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemText, item, text, column);
}

std::u16string GetGadgetItemText(std::int64_t number, std::int64_t item, std::int64_t column) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemText, item, column);
}

void SetGadgetItemData(std::int64_t number, std::int64_t item, std::int64_t value) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemData, item, value);
}

std::int64_t GetGadgetItemData(std::int64_t number, std::int64_t item) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemData, item);
}

void SetGadgetItemImage(std::int64_t number, std::int64_t item, NativeImage* image) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemImage, item, image);
}

void SetGadgetItemState(std::int64_t number, std::int64_t item, std::int64_t state) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemState, item, state);
}

std::int64_t GetGadgetItemState(std::int64_t number, std::int64_t item) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemState, item);
}

void SetGadgetItemAttribute(std::int64_t number, std::int64_t item, std::int64_t attribute,
                            std::int64_t value, std::int64_t column) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemAttribute, item, attribute, value, column);
}

std::int64_t GetGadgetItemAttribute(std::int64_t number, std::int64_t item, std::int64_t attribute,
                                    std::int64_t column) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemAttribute, item, attribute, column);
}

void SetGadgetItemColor(std::int64_t number, std::int64_t item, std::int64_t type,
                        std::int64_t colour, std::int64_t column) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemColor, item, type, colour, column);
}

std::int64_t GetGadgetItemColor(std::int64_t number, std::int64_t item, std::int64_t type,
                                std::int64_t column) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemColor, item, type, column);
}

std::int64_t AddGadgetColumn(std::int64_t number, std::int64_t position, std::u16string_view title,
                             std::int64_t width) {
    return Forward(number, &QzGadgetFunctions::AddGadgetColumn, position, title, width);
}

void RemoveGadgetColumn(std::int64_t number, std::int64_t column) {
    Forward(number, &QzGadgetFunctions::RemoveGadgetColumn, column);
}

void OpenGadgetList(std::int64_t number, std::int64_t item) {
    Forward(number, &QzGadgetFunctions::OpenGadgetList, item);
}

void CloseGadgetList() {
    if (QzGadgetList* const list = QzGadgetList::CurrentList()) {
        list->Pop();
    }
}

}  // namespace rotavel
