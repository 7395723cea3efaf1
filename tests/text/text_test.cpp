#include "text/text.h"

#include <gtest/gtest.h>

#include "text/utf.h"

namespace rotavel {
namespace {

TEST(Text, TrimsAndComparesOnlyAscii) {
    EXPECT_EQ(TrimBlanks(u"  Moto  Guzzi "), u"Moto  Guzzi");
    EXPECT_EQ(TrimBlanks(u"\t x\u00A0"), u"\t x\u00A0");
    EXPECT_EQ(TrimBlanks(u"   "), u"");
    EXPECT_TRUE(EqualsIgnoringCase("MaxRPM[", "maxrpm["));
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoringCase("\xC3\x84X", "\xC3\xA4x"));
    EXPECT_FALSE(EqualsIgnoringCase("a", "ab"));
}

TEST(Utf, ConvertsBothWays) {
    const std::u16string text(u"a\0\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF", 11);
    const std::string bytes(
        "a\0\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", 21);
    EXPECT_EQ(ToUtf8(text), bytes);
    EXPECT_EQ(ToUtf16(bytes), text);
}

TEST(Utf, ReplacesWhatIsInvalid) {
    EXPECT_EQ(ToUtf8(std::u16string{u'a', 0xD800}), "a\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(std::u16string{0xDC00, 0xD800, u'+'}), "\xEF\xBF\xBD\xEF\xBF\xBD+");
    const std::pair<const char*, std::u16string> cases[] = {
        {"\x80x\xF5", u"\uFFFDx\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},
        {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
        {"\xE2\x82+\xE2\x82", u"\uFFFD+\uFFFD"},
        {"\xF0\x9F\xC3\xA9\xF0\x9F\x98", u"\uFFFD\u00E9\uFFFD"}};
    for (const auto& [bytes, text] : cases) {
        EXPECT_EQ(ToUtf16(bytes), text);
    }
}

}  // namespace
}  // namespace rotavel
