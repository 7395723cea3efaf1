#include "settings/settings_text.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "text/utf.h"

namespace rotavel {
namespace {

using Lines = std::vector<std::string>;

// The entries of a text as "[name", ";comment" and "key=value".
Lines Parsed(const std::string& text) {
    // No byte more than the parser asks for, so that the sanitizer sees it read any.
    const std::size_t size = text.size() + SettingsTextPadding;
    auto block = std::make_unique<char[]>(size);
    char* const start = block.get();
    std::fill_n(start, size, '[');  // what lies behind the text is nothing of it
    text.copy(start, text.size());
    SettingsEntries entries;
    entries.AdoptText(std::move(block));
    ParseSettingsText(start, text.size(), entries);
    Lines lines;
    for (const SettingsEntry* entry = entries.First(); entry != nullptr; entry = entry->Next()) {
        const std::string value(entry->Value());
        EXPECT_EQ(entry->Value().data()[value.size()], '\0');
        lines.push_back(entry->IsGroup()     ? '[' + value
                        : entry->IsComment() ? ';' + value
                                             : std::string(entry->Key()) + '=' + value);
    }
    return lines;
}

TEST(SettingsText, ParsesEveryKindOfLine) {
    const std::pair<std::string, Lines> cases[] = {
        {"Key=Value\nKey = Value\n  Key\t=\tValue  ", {"Key=Value", "Key=Value", "Key=Value  "}},
        {"[A]x\r\n[ A ]\r[A\n[", {"[A", "[ A ", "[A", "["}},
        {";comment\n; comment\n;  comment\n;", {";comment", ";comment", "; comment", ";"}},
        {"# x = 1\n=5\na==b;\"", {"# x=1", "=5", "a==b;\""}},
        {"alone\r\nKey=1", {"alone=", "Key=1"}},
        {"alone\nKey=1\nNext=2", {"alone=Key=1", "Next=2"}},
        {"alone\n\n[A]", {"alone=", "[A"}},
        {"a=1\nalone", {"a=1", "alone="}},
        {"a=1\n \t", {"a=1", "="}},
        {"\n \r\n\t\n", {}},
        {std::string("a\0b = c\0d\n\0=\xFF", 13),
         {std::string("a\0b=c\0d", 7), std::string("\0=\xFF", 3)}},
    };
    for (const auto& [text, lines] : cases) {
        EXPECT_EQ(Parsed(text), lines) << text;
    }
}

TEST(SettingsText, ParsesRandomTextsAlikeAtEveryPlace) {
    const std::string alphabet("[]];;==  \t\r\n\n\0\xFFkey", 18);
    std::mt19937 random(1);
    for (int i = 0; i < 50000; ++i) {
        std::string text(random() % 60, ' ');
        for (char& character : text) {
            character = alphabet[random() % alphabet.size()];
        }
        const std::string key(random() % 70, 'k');
        Lines expected = Parsed(text);
        expected.insert(expected.begin(), key + "=1");
        ASSERT_EQ(Parsed(key + "=1\n" + text), expected) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace rotavel
