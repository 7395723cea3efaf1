#include "text/utf.h"

#include <cstddef>

namespace rotavel {

namespace {

constexpr char32_t Replacement = 0xFFFD;
constexpr char32_t FirstBeyondUnit = 0x10000;

bool IsLeadingSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsTrailingSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The character at `position`, which moves past it.
char32_t TakeCharacter(std::u16string_view text, std::size_t& position) {
    const char32_t unit = text[position++];
    if (IsTrailingSurrogate(unit)) {
        return Replacement;
    }
    if (!IsLeadingSurrogate(unit)) {
        return unit;
    }
    if (position == text.size() || !IsTrailingSurrogate(text[position])) {
        return Replacement;
    }
    const char32_t trailing = text[position++];
    return FirstBeyondUnit + ((unit - 0xD800) << 10) + (trailing - 0xDC00);
}

// The same for UTF-8. The second byte's narrower range after E0, ED, F0 and F4 is what keeps out
// overlong forms, surrogates and values above U+10FFFF.
char32_t TakeCharacter(std::string_view bytes, std::size_t& position) {
    const auto lead = static_cast<unsigned char>(bytes[position++]);
    if (lead < 0x80) {
        return lead;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return Replacement;
    }
    const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    unsigned char lowest = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    unsigned char highest = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    char32_t character = lead & (0x3Fu >> following);
    for (int i = 0; i < following; ++i) {
        if (position == bytes.size()) {
            return Replacement;
        }
        const auto byte = static_cast<unsigned char>(bytes[position]);
        if (byte < lowest || byte > highest) {
            return Replacement;
        }
        character = character << 6 | (byte & 0x3Fu);
        lowest = 0x80;
        highest = 0xBF;
        ++position;
    }
    return character;
}

void Append(std::string& bytes, char32_t character) {
    const auto following = [&](int shift) {
        bytes += static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x80) {
        bytes += static_cast<char>(character);
    } else if (character < 0x800) {
        bytes += static_cast<char>(0xC0 | character >> 6);
        following(0);
    } else if (character < FirstBeyondUnit) {
        bytes += static_cast<char>(0xE0 | character >> 12);
        following(6);
        following(0);
    } else {
        bytes += static_cast<char>(0xF0 | character >> 18);
        following(12);
        following(6);
        following(0);
    }
}

void Append(std::u16string& text, char32_t character) {
    if (character < FirstBeyondUnit) {
        text += static_cast<char16_t>(character);
        return;
    }
    const char32_t offset = character - FirstBeyondUnit;
    text += static_cast<char16_t>(0xD800 + (offset >> 10));
    text += static_cast<char16_t>(0xDC00 + (offset & 0x3FF));
}

template <typename Result, typename Source>
Result Convert(Source source) {
    Result result;
    result.reserve(source.size());
    for (std::size_t position = 0; position < source.size();) {
        Append(result, TakeCharacter(source, position));
    }
    return result;
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
    return Convert<std::string>(text);
}

std::u16string ToUtf16(std::string_view bytes) {
    return Convert<std::u16string>(bytes);
}

}  // namespace rotavel
