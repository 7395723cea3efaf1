#include "text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <locale.h>
#include <stdlib.h>

namespace rotavel {

namespace {

constexpr std::int32_t MostDecimals = 512;

// A sign, the digits before the point, the point and the decimals.
constexpr std::size_t LongestNumber =
    1 + (std::numeric_limits<double>::max_exponent10 + 1) + 1 + MostDecimals;

constexpr std::size_t LongestInteger = 1 + (std::numeric_limits<std::int64_t>::digits10 + 1);

constexpr std::size_t MostBytesRead = 1023;

constexpr unsigned NotADigit = std::numeric_limits<unsigned>::max();

unsigned DigitValue(char16_t character) {
    if (character >= u'0' && character <= u'9') {
        return static_cast<unsigned>(character - u'0');
    }
    if (character >= u'A' && character <= u'F') {
        return static_cast<unsigned>(character - u'A') + 10;
    }
    if (character >= u'a' && character <= u'f') {
        return static_cast<unsigned>(character - u'a') + 10;
    }
    return NotADigit;
}

bool TakeFirst(std::u16string_view& text, char16_t character) {
    if (text.empty() || text.front() != character) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

}  // namespace

void SetUpLocale() {
    setlocale(LC_ALL, "");
    setlocale(LC_NUMERIC, "C");
}

std::u16string NumberToText(double value, std::int32_t decimals) {
    if (std::isnan(value)) {
        return u"NaN";
    }
    if (std::isinf(value)) {
        return value < 0.0 ? u"-Infinity" : u"+Infinity";
    }
    const double shown = value == 0.0 ? 0.0 : value;  // drops the sign of a negative zero
    char characters[LongestNumber];
    const auto written =
        std::to_chars(std::begin(characters), std::end(characters), shown, std::chars_format::fixed,
                      std::clamp(decimals, 0, MostDecimals));
    return {std::begin(characters), written.ptr};
}

std::u16string NumberToTextShortest(double value) {
    constexpr std::int32_t decimals = 10;
    std::u16string text = NumberToText(value, decimals);
    if (text.find(u'.') == std::u16string::npos) {
        return text;
    }
    text.erase(text.find_last_not_of(u'0') + 1);
    if (text.back() == u'.') {
        text.pop_back();
    }
    return text;
}

std::u16string IntegerToText(std::int64_t value) {
    char characters[LongestInteger];
    const auto written = std::to_chars(std::begin(characters), std::end(characters), value);
    return {std::begin(characters), written.ptr};
}

double TextToNumber(std::u16string_view text) {
    char bytes[MostBytesRead + 1];
    std::size_t length = 0;
    for (const char16_t character : text) {
        if (character > 0xFF) {
            continue;
        }
        if (length == MostBytesRead) {
            break;
        }
        bytes[length++] = static_cast<char>(character);
    }
    bytes[length] = '\0';
    return BytesToNumber(bytes);
}

std::int64_t TextToInteger(std::u16string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(u" \t"), text.size()));
    const bool isNegative = TakeFirst(text, u'-');
    if (!isNegative) {
        TakeFirst(text, u'+');
    }
    const unsigned base = TakeFirst(text, u'$') ? 16 : TakeFirst(text, u'%') ? 2 : 10;
    std::uint64_t value = 0;
    for (const char16_t character : text) {
        const unsigned digit = DigitValue(character);
        if (digit >= base) {
            break;
        }
        value = value * base + digit;
    }
    return static_cast<std::int64_t>(isNegative ? 0 - value : value);
}

double BytesToNumber(const char* bytes) {
    static const locale_t plainLocale = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(bytes, nullptr, plainLocale);
}

}  // namespace rotavel
