#include "gui/gadget.h"

#include <functional>
#include <type_traits>

#include "gui/gadget_list.h"
#include "gui/gadgets/gadget_registry.h"
#include "gui/toolkit/font.h"
#include "gui/windows/qz_window.h"

namespace rotavel {

namespace {

// Forwards an operation to the functions of a gadget; gives 0 or an empty text when the number is
// not open.
template <typename Operation, typename... Arguments>
auto Forward(GadgetNumber number, Operation operation, Arguments... arguments)
    -> std::invoke_result_t<Operation, QzGadgetFunctions&, Arguments...> {
    using Result = std::invoke_result_t<Operation, QzGadgetFunctions&, Arguments...>;
    if (const GadgetRecord* const record = GadgetRegistry().Find(number)) {
        return std::invoke(operation, *record->Functions, arguments...);
    }
    return Result();
}

// A place on the screen is known once the window has its frame.
void EnsureFramedFor(GadgetNumber number, int mode) {
    const GadgetRecord* const record = GadgetRegistry().Find(number);
    if (record != nullptr && mode == OnScreen) {
        QzWindow::Of(record->View)->Presentation().EnsureFramed();
    }
}

}  // namespace

bool GadgetExists(GadgetNumber number) {
    return GadgetRegistry().Find(number) != nullptr;
}

void ActivateGadget(GadgetNumber number) {
    if (number == AnyNumber) {
        if (QzWindow* const window = QzWindow::ChosenKeyWindow()) {
            window->MakeFirstResponder(nullptr);
        }
        return;
    }
    const GadgetRecord* const record = GadgetRegistry().Find(number);
    if (record != nullptr && !QzWindow::Of(record->View)->IsDisabled()) {
        record->Functions->ActivateGadget();
    }
}

void DisableGadget(GadgetNumber number, bool state) {
    Forward(number, &QzGadgetFunctions::DisableGadget, state);
}

void HideGadget(GadgetNumber number, bool state) {
    Forward(number, &QzGadgetFunctions::HideGadget, state);
}

void GadgetToolTip(GadgetNumber number, std::u16string_view text) {
    Forward(number, &QzGadgetFunctions::GadgetToolTip, text);
}

void GadgetName(GadgetNumber number, std::u16string_view text) {
    Forward(number, &QzGadgetFunctions::GadgetName, text);
}

std::int64_t GadgetX(GadgetNumber number, int mode) {
    EnsureFramedFor(number, mode);
    return Forward(number, &QzGadgetFunctions::GadgetX, mode);
}

std::int64_t GadgetY(GadgetNumber number, int mode) {
    EnsureFramedFor(number, mode);
    return Forward(number, &QzGadgetFunctions::GadgetY, mode);
}

std::int64_t GadgetWidth(GadgetNumber number) {
    return Forward(number, &QzGadgetFunctions::GadgetWidth);
}

std::int64_t GadgetHeight(GadgetNumber number) {
    return Forward(number, &QzGadgetFunctions::GadgetHeight);
}

void ResizeGadget(GadgetNumber number, std::int64_t x, std::int64_t y, std::int64_t width,
                  std::int64_t height) {
    Forward(number, &QzGadgetFunctions::ResizeGadget, x, y, width, height);
}

void SetGadgetText(GadgetNumber number, std::u16string_view text) {
    Forward(number, &QzGadgetFunctions::SetGadgetText, text);
}

std::u16string GetGadgetText(GadgetNumber number) {
    return Forward(number, &QzGadgetFunctions::GetGadgetText);
}

void SetGadgetState(GadgetNumber number, std::int64_t state) {
    Forward(number, &QzGadgetFunctions::SetGadgetState, state);
}

std::int64_t GetGadgetState(GadgetNumber number) {
    return Forward(number, &QzGadgetFunctions::GetGadgetState);
}

void SetGadgetAttribute(GadgetNumber number, std::int64_t attribute, std::int64_t value) {
    Forward(number, &QzGadgetFunctions::SetGadgetAttribute, attribute, value);
}

std::int64_t GetGadgetAttribute(GadgetNumber number, std::int64_t attribute) {
    return Forward(number, &QzGadgetFunctions::GetGadgetAttribute, attribute);
}

void SetGadgetFont(GadgetNumber number, std::int64_t font) {
    if (number == AnyNumber) {
        SetDefaultGadgetFont(font);
        return;
    }
    Forward(number, &QzGadgetFunctions::SetGadgetFont, font);
}

std::int64_t GetGadgetFont(GadgetNumber number) {
    const GadgetRecord* const record = GadgetRegistry().Find(number);
    return record == nullptr ? AnyNumber : record->Functions->GetGadgetFont();
}

void SetGadgetColor(GadgetNumber number, std::int64_t type, std::int64_t colour) {
    Forward(number, &QzGadgetFunctions::SetGadgetColor, type, colour);
}

std::int64_t GetGadgetColor(GadgetNumber number, std::int64_t type) {
    return Forward(number, &QzGadgetFunctions::GetGadgetColor, type);
}

std::int64_t AddGadgetItem(GadgetNumber number, std::int64_t position, std::u16string_view text,
                           NativeImage* image, std::uint32_t flags) {
    return Forward(number, &QzGadgetFunctions::AddGadgetItem, position, text, image, flags);
}

void RemoveGadgetItem(GadgetNumber number, std::int64_t item) {
    Forward(number, &QzGadgetFunctions::RemoveGadgetItem, item);
}

void ClearGadgetItems(GadgetNumber number) {
    Forward(number, &QzGadgetFunctions::ClearGadgetItems);
}

std::int64_t CountGadgetItems(GadgetNumber number) {
    return Forward(number, &QzGadgetFunctions::CountGadgetItems);
}

void SetGadgetItemText(GadgetNumber number, std::int64_t item, std::u16string_view text,
                       std::int64_t column) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemText, item, text, column);
}

std::u16string GetGadgetItemText(GadgetNumber number, std::int64_t item, std::int64_t column) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemText, item, column);
}

void SetGadgetItemData(GadgetNumber number, std::int64_t item, std::int64_t value) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemData, item, value);
}

std::int64_t GetGadgetItemData(GadgetNumber number, std::int64_t item) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemData, item);
}

void SetGadgetItemImage(GadgetNumber number, std::int64_t item, NativeImage* image) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemImage, item, image);
}

void SetGadgetItemState(GadgetNumber number, std::int64_t item, std::int64_t state) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemState, item, state);
}

std::int64_t GetGadgetItemState(GadgetNumber number, std::int64_t item) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemState, item);
}

void SetGadgetItemAttribute(GadgetNumber number, std::int64_t item, std::int64_t attribute,
                            std::int64_t value, std::int64_t column) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemAttribute, item, attribute, value, column);
}

std::int64_t GetGadgetItemAttribute(GadgetNumber number, std::int64_t item, std::int64_t attribute,
                                    std::int64_t column) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemAttribute, item, attribute, column);
}

void SetGadgetItemColor(GadgetNumber number, std::int64_t item, std::int64_t type,
                        std::int64_t colour, std::int64_t column) {
    Forward(number, &QzGadgetFunctions::SetGadgetItemColor, item, type, colour, column);
}

std::int64_t GetGadgetItemColor(GadgetNumber number, std::int64_t item, std::int64_t type,
                                std::int64_t column) {
    return Forward(number, &QzGadgetFunctions::GetGadgetItemColor, item, type, column);
}

std::int64_t AddGadgetColumn(GadgetNumber number, std::int64_t position, std::u16string_view title,
                             std::int64_t width) {
    return Forward(number, &QzGadgetFunctions::AddGadgetColumn, position, title, width);
}

void RemoveGadgetColumn(GadgetNumber number, std::int64_t column) {
    Forward(number, &QzGadgetFunctions::RemoveGadgetColumn, column);
}

void OpenGadgetList(GadgetNumber number, std::int64_t item) {
    Forward(number, &QzGadgetFunctions::OpenGadgetList, item);
}

void CloseGadgetList() {
    if (QzGadgetList* const list = QzGadgetList::CurrentList()) {
        list->Pop();
    }
}

}  // namespace rotavel
