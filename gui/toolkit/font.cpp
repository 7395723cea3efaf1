#include "gui/font.h"

#include "gui/toolkit/font.h"
#include "gui/toolkit/handle.h"
#include "gui/toolkit/text.h"
#include "runtime/numbered_objects.h"

namespace rotavel {

namespace {

constexpr double SmallestPoints = 1;
constexpr double LargestPoints = 1000;

NumberedObjects<QFont> registry;
std::int64_t defaultFont = AnyNumber;

}  // namespace

QFont FontForGadgets(std::int64_t number) {
    const QFont* const font = registry.Find(number);
    return font == nullptr ? QFont() : *font;
}

std::int64_t DefaultGadgetFont() {
    return defaultFont;
}

void SetDefaultGadgetFont(std::int64_t number) {
    defaultFont = number;
}

std::int64_t FontLoad(std::int64_t number, std::u16string_view name, double points) {
    if (!(points >= SmallestPoints && points <= LargestPoints)) {
        return 0;
    }
    registry.Remove(number);
    const auto [id, font] = registry.Create(number);
    if (font == nullptr) {
        return 0;
    }
    font->setFamily(ToQString(name));
    font->setPointSizeF(points);
    return CreationResult(number, id, font);
}

void FreeFont(std::int64_t number) {
    if (number == AnyNumber) {
        registry.Clear();
    } else {
        registry.Remove(number);
    }
}

NativeFont* FontHandle(std::int64_t number) {
    return ToHandle<NativeFont>(registry.Find(number));
}

}  // namespace rotavel
