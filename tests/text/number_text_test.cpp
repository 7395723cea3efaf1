#include "text/number_text.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace rotavel {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

std::u16string Printed(double value, int decimals) {
    char text[1024];
    const int length = std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return {text, text + length};
}

TEST(NumberText, EqualsPrintfForEveryPrecision) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        // Everyday sizes with few decimals, and any size with up to the most decimals.
        const std::uint64_t bits = random();
        const double everyday = std::ldexp(static_cast<double>(bits) - 0x1p63, -55);
        const auto any = std::bit_cast<double>(bits);
        const double value = i % 2 == 0 || !std::isfinite(any) ? everyday : any;
        const int decimals = static_cast<int>(random() % (i % 2 == 0 ? 12 : 513));
        ASSERT_EQ(NumberToText(value, decimals), Printed(value, decimals)) << value;
    }
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(NumberToText(-largest, 1000), Printed(-largest, 512));
    EXPECT_EQ(NumberToText(2.5, -3), u"2");
    EXPECT_EQ(NumberToText(0.125, 2), u"0.12");
    EXPECT_EQ(NumberToText(-0.0, 3), u"0.000");
    EXPECT_EQ(NumberToText(-0.001, 2), u"-0.00");
    EXPECT_EQ(NumberToText(Infinity, 2), u"+Infinity");
    EXPECT_EQ(NumberToText(-NotANumber, 2), u"NaN");
}

TEST(NumberText, ReadsNumbers) {
    const std::pair<const char16_t*, double> cases[] = {
        {u"", 0},    {u" \t\n3.25 km", 3.25},  {u"-0x1.8p1", -3},
        {u"1,5", 1}, {u"1\u20AC5\u00E97", 15}, {u"+1e400", Infinity},
        {u"--1", 0}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(TextToNumber(text), value);
    }
    EXPECT_TRUE(std::isnan(TextToNumber(u"nan")));
    EXPECT_EQ(TextToNumber(std::u16string_view(u"4\0002", 3)), 4);
    EXPECT_EQ(TextToNumber(std::u16string(1022, u'0') + u"\u20AC75"), 7) << "of 1023 bytes";
}

TEST(NumberText, ReadsAndWritesIntegers) {
    const std::pair<const char16_t*, std::int64_t> cases[] = {
        {u"", 0},    {u" \t 42abc", 42}, {u"-$fF", -255}, {u"%1012", 5}, {u"$g", 0},
        {u"+-3", 0}, {u"- 3", 0},        {u"1.9", 1},     {u"\n5", 0}};
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(TextToInteger(text), value);
    }
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(IntegerToText(lowest), u"-9223372036854775808");
    EXPECT_EQ(TextToInteger(u"-9223372036854775808"), lowest);
    EXPECT_EQ(TextToInteger(u"9223372036854775808"), lowest);
    EXPECT_EQ(TextToInteger(u"18446744073709551617"), 1);
}

}  // namespace
}  // namespace rotavel
