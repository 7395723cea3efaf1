#include "text/number_text.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <tuple>

namespace rotavel {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, WritesNumbers) {
    const std::tuple<double, int, std::u16string> cases[] = {
        {0.06, 1, u"0.1"},       {-1e21, 2, u"-1000000000000000000000.00"},
        {2.5, -3, u"2"},         {0x1p-512, 1000, u"0." + std::u16string(154, u'0') + u"7458"},
        {0.125, 2, u"0.12"},     {-0.0, 3, u"0.000"},
        {-0.001, 2, u"-0.00"},   {Infinity, 2, u"+Infinity"},
        {-NotANumber, 2, u"NaN"}};
    for (const auto& [value, decimals, text] : cases) {
        EXPECT_EQ(NumberToText(value, decimals).substr(0, 160), text);
    }
    EXPECT_EQ(NumberToText(-std::numeric_limits<double>::max(), 1000).size(), 823U);
}

// Of a mistyped text the oracle tries every kind.
TEST(NumberText, ReadsNumbersToTheirLimits) {
    EXPECT_EQ(TextToNumber(std::u16string_view(u"4\0002", 3)), 4);
    EXPECT_EQ(TextToNumber(std::u16string(1022, u'0') + u"\u20AC75"), 7) << "of 1023 bytes";
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    EXPECT_EQ(IntegerToText(lowest), u"-9223372036854775808");
    EXPECT_EQ(TextToInteger(u"9223372036854775808"), lowest);
    EXPECT_EQ(TextToInteger(u"18446744073709551617"), 1);
}

}  // namespace
}  // namespace rotavel
