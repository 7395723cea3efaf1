#include "text/number_text.h"

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace rotavel {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

std::u16string Printed(double value, int decimals) {
    char text[1024];
    const int length = std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return {text, text + length};
}

// A finite double of random bits, or every other time one of an everyday size.
double RandomNumber(std::mt19937_64& random) {
    if (random() % 2 == 0) {
        return std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), -55);
    }
    const auto value = std::bit_cast<double>(random());
    return std::isfinite(value) ? value : 0.5;
}

TEST(NumberText, EqualsPrintfForEveryPrecision) {
    std::mt19937_64 random(1);
    for (int i = 0; i < 20000; ++i) {
        const double value = RandomNumber(random);
        const int decimals = static_cast<int>(random() % (i % 2 == 0 ? 12 : 513));
        ASSERT_EQ(NumberToText(value, decimals), Printed(value, decimals)) << value;
    }
    const double largest = std::numeric_limits<double>::max();
    const double smallest = std::numeric_limits<double>::denorm_min();
    EXPECT_EQ(NumberToText(-largest, 1000), Printed(-largest, 512));
    EXPECT_EQ(NumberToText(smallest, 512), Printed(smallest, 512));
    EXPECT_EQ(NumberToText(2.5, -3), u"2");
    EXPECT_EQ(NumberToText(0.125, 2), u"0.12");
}

TEST(NumberText, WritesSpecialValues) {
    EXPECT_EQ(NumberToText(-0.0, 3), u"0.000");
    EXPECT_EQ(NumberToText(-0.001, 2), u"-0.00");
    EXPECT_EQ(NumberToTextShortest(-Infinity), u"-Infinity");
    EXPECT_EQ(NumberToText(Infinity, 2), u"+Infinity");
    EXPECT_EQ(NumberToText(-NotANumber, 2), u"NaN");
}

TEST(NumberText, DropsTrailingZeros) {
    const std::pair<double, const char16_t*> cases[] = {
        {2.5, u"2.5"}, {3, u"3"},     {100, u"100"},   {1.23456789012, u"1.2345678901"},
        {0, u"0"},     {1e-11, u"0"}, {-1e-11, u"-0"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(NumberToTextShortest(value), text);
    }
}

TEST(NumberText, ReadsNumbers) {
    const std::pair<std::u16string, double> cases[] = {
        {u"", 0.0},
        {u" \t\n3.25 km", 3.25},
        {u"1,5", 1.0},
        {u"-0x1.8p1", -3.0},
        {u"+1e400", Infinity},
        {u"+INFINITY", Infinity},
        {u"-infinity", -Infinity},
        {u"1\u20AC5\u00E97", 15.0},
        {std::u16string(1023, u'0') + u"7", 0.0},
        {std::u16string(1022, u'0') + u"\u20AC75", 7.0},
        {std::u16string(u"4\0002", 3), 4.0},
        {u"--1", 0.0},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(TextToNumber(text), value);
    }
    EXPECT_TRUE(std::isnan(TextToNumber(u"nan")));
}

TEST(NumberText, IsIndependentOfTheLocale) {
    std::string chosen;
    for (const char* const name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8"}) {
        if (chosen.empty() && std::setlocale(LC_ALL, name) != nullptr) {
            chosen = name;
        }
    }
    if (chosen.empty()) {
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    ASSERT_EQ(Printed(1.5, 1), u"1,5");
    EXPECT_EQ(NumberToText(1234567.5, 1), u"1234567.5");
    EXPECT_EQ(TextToNumber(u"2.25"), 2.25);
    EXPECT_EQ(TextToNumber(u"2,25"), 2.0);
    setenv("LC_ALL", chosen.c_str(), 1);
    SetUpLocale();
    EXPECT_STREQ(std::localeconv()->decimal_point, ".");
    EXPECT_EQ(std::setlocale(LC_TIME, nullptr), chosen);
    std::setlocale(LC_ALL, "C");
}

TEST(NumberText, ConvertsIntegers) {
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(IntegerToText(lowest), u"-9223372036854775808");
    EXPECT_EQ(IntegerToText(0), u"0");
    const std::pair<const char16_t*, std::int64_t> cases[] = {
        {u"", 0},
        {u" \t 42abc", 42},
        {u"-$fF", -255},
        {u"%1012", 5},
        {u"%2", 0},
        {u"$g", 0},
        {u"+-3", 0},
        {u"- 3", 0},
        {u"x1", 0},
        {u"1.9", 1},
        {u"\n5", 0},
        {u"9223372036854775808", lowest},
        {u"-9223372036854775808", lowest},
        {u"18446744073709551617", 1},
    };
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(TextToInteger(text), value);
    }
}

}  // namespace
}  // namespace rotavel
