#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace rotavel {

// Program text to and from the toolkit's; both are UTF-16, so nothing is converted.

inline QString ToQString(std::u16string_view text) {
    return QString(reinterpret_cast<const QChar*>(text.data()),
                   static_cast<qsizetype>(text.size()));
}

// A text as a window's title; the toolkit has a meaning of its own for "[*]".
inline QString ToWindowTitle(std::u16string_view text) {
    return ToQString(text).replace("[*]", "[*][*]");
}

inline std::u16string FromQString(const QString& text) {
    return text.toStdU16String();
}

enum class LetterCase { AsItIs, Lower, Upper };

// A text with all its letters in one case. It may change in length ("ß" has no single upper-case
// letter).
inline QString Folded(const QString& text, LetterCase letterCase) {
    switch (letterCase) {
        case LetterCase::Lower:
            return text.toLower();
        case LetterCase::Upper:
            return text.toUpper();
        case LetterCase::AsItIs:
            break;
    }
    return text;
}

}  // namespace rotavel
