#include "text/utf.h"

#include <gtest/gtest.h>

namespace rotavel {
namespace {

TEST(Utf, ConvertsBothWaysAndReplacesWhatIsInvalid) {
    const std::u16string text(u"a\0\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF", 11);
    const std::string bytes(
        "a\0\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", 21);
    EXPECT_EQ(ToUtf8(text), bytes);
    EXPECT_EQ(ToUtf16(bytes), text);
    EXPECT_EQ(ToUtf8(std::u16string{0xDC00, 0xD800, u'+', 0xDBFF}), ToUtf8(u"\uFFFD\uFFFD+\uFFFD"));
    EXPECT_EQ(
        ToUtf16("\x80x\xF5\xC0\x80\xE0\x80\x80+\xED\xA0\x80\xF4\x90\x80\x80"),
        u"\uFFFDx\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD+\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(ToUtf16("\xE2\x82+\xF0\x9F\xC3\xA9\xF0\x9F\x98"), u"\uFFFD+\uFFFD\u00E9\uFFFD");
}

}  // namespace
}  // namespace rotavel
