#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace rotavel {

// Takes the process's locale from the environment: system messages come in the user's language,
// but "." stays the decimal point for whatever goes by the locale. Call it once, after the toolkit,
// which sets the locale itself. The conversions below do not depend on it.
void SetUpLocale();

// The value in fixed notation with `decimals` decimals (0 to 512; beyond counts as the nearer
// bound), as printf("%.*f") of the "C" locale writes it: the exact binary value rounded, ties to
// even. An exact zero never has a sign. The other texts are "+Infinity", "-Infinity" and "NaN".
std::u16string NumberToText(double value, std::int32_t decimals);

// The value with 10 decimals, less the zeros at its end and a point that would then end it.
std::u16string NumberToTextShortest(double value);

// The value in decimal, with "-" when it is negative.
std::u16string IntegerToText(std::int64_t value);

// The number that a text begins with, by the rules of BytesToNumber. Characters above U+00FF are
// passed over and only the first 1023 others count.
double TextToNumber(std::u16string_view text);

// The integer that a text begins with: spaces and tabs, one optional sign, then decimal digits, or
// "$" and hexadecimal digits, or "%" and binary digits. 0 without digits; wraps modulo 2^64.
std::int64_t TextToInteger(std::u16string_view text);

// The number that a zero-terminated text begins with, as POSIX atof of the "C" locale reads it:
// white space, sign, digits with fraction and exponent, hexadecimal, and in any letter case "inf",
// "infinity" and "nan". 0.0 without a number.
double BytesToNumber(const char* bytes);

}  // namespace rotavel
