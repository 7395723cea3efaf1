#pragma once

#include <cstdint>
#include <string_view>

#include <QString>

#include "gui/toolkit/text.h"

namespace rotavel {

// A text in lower case if `flags` has the lower-case flag, else in upper case if it has the other.
inline QString Fold(std::u16string_view text, std::uint32_t flags, std::uint32_t lowerCaseFlag,
                    std::uint32_t upperCaseFlag) {
    const QString given = ToQString(text);
    if ((flags & lowerCaseFlag) != 0) {
        return given.toLower();
    }
    return (flags & upperCaseFlag) != 0 ? given.toUpper() : given;
}

}  // namespace rotavel
