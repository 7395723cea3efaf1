#include "settings/settings_store.h"

#include <cmath>
#include <limits>

#include "settings_test.h"

namespace rotavel {
namespace {

using namespace tests;

using SettingsStoreTest = SettingsTest;

TEST_F(SettingsStoreTest, ReadsValues) {
    Start(
        "Top = 0\r\n[Numbers]\r\n; MaxRPM = 1\r\nMaxRPM = +12x\r\nEmpty = \r\n"
        "Large = 99999999999999999999\r\nReal = 0x1p4,\r\nNan = nAn\r\n"
        "Text = \t55 \r\nText = second\r\nSpace\xE9 = \xFC\r\n[Other]\r\nKey = 1\r\n");
    EXPECT_EQ(SettingsReadInteger(u"top", 5), 0);
    ASSERT_TRUE(SettingsSelectGroup(u"nUMBERS"));
    const struct {
        const char16_t *Key, *Text;
        std::int64_t Integer;
        double Number;
    } cases[] = {
        {u"maxrpm", u"+12x", 12, 12},
        {u"Empty", u"", 0, 0},
        {u"Large", u"99999999999999999999", std::numeric_limits<std::int64_t>::max(), 1e20},
        {u"Real", u"0x1p4,", 0, 16},
        {u"TEXT", u"55 ", 55, 55},
        {u"Space\u00E9", u"\u00FC", 0, 0},
        {u"Space\u00C9", u"none", 5, 5.5},
        {u"Key", u"none", 5, 5.5}};
    for (const auto& [key, text, integer, number] : cases) {
        EXPECT_EQ(SettingsReadString(key, u"none"), text);
        EXPECT_EQ(SettingsReadInteger(key, 5), integer);
        EXPECT_EQ(SettingsReadNumber(key, 5.5), number);
    }
    EXPECT_TRUE(std::isnan(SettingsReadNumber(u"Nan", 5.5)));
}

TEST_F(SettingsStoreTest, VisitsEveryGroupAndSelectsTheFirstOfAName) {
    Start("a = 1\n[B]\nk = 1\n[b]\nk = 2\n[]\n");
    EXPECT_TRUE(SettingsRewindGroups());
    std::u16string names;
    while (SettingsNextGroup()) {
        names += SettingsGroupName() + u"," + SettingsReadString(u"k", u"-") + u";";
    }
    EXPECT_EQ(names, u"B,1;b,2;,-;");
    for (const auto& [group, value] : {std::pair(u"b", 1), {u"c", 0}, {u"", 0}}) {
        EXPECT_EQ(SettingsSelectGroup(group), *group != u'c');
        EXPECT_EQ(SettingsReadInteger(u"k", 0), value);
    }
    EXPECT_EQ(SettingsReadInteger(u"a", 0), 1);
    SettingsClose();
    EXPECT_FALSE(SettingsSelectGroup(u"b") || SettingsRewindGroups() || SettingsNextGroup());
}

TEST_F(SettingsStoreTest, RewritesTheFile) {
    const struct {
        std::string Before;
        const char16_t* Group;
        std::uint32_t Flags;
        std::string After;
    } cases[] = {
        {"a=1\r\n\r\n[G]\r\n;c\r\nk=1\r\n\r\n[H]\r\n", u"G", GroupSpacing,
         Mark + "\na = 1\n[G]\n; c\nk = 1\nNew = x\n\n[H]\n"},
        {Mark + "[G]\nk = 1", u"", CompactSeparator, Mark + "\nNew=x\n[G]\nk=1\n"},
        {"[G]\nNEW = longer  \n[H]", u"g", 0, Mark + "\n[G]\nNew = x\n[H]\n"},
        {"[G]\nk=1", u"Missing", GroupSpacing, Mark + "\n[G]\nk = 1\n\n[Missing]\nNew = x\n"},
        {"", u"", 0, "New = x\n"},
        {Mark + "[\xFF]\n\xC3=\xE9", u"", 0, Mark + "\nNew = x\n[\xFF]\n\xC3 = \xE9\n"},
        {"k = 0123 45\xB0 7890\n", u"", 0, Mark + "\nk = 0123 45\xC2\xB0 7890\nNew = x\n"},
        {std::string("z\0=\0 0\n", 7), u"", 0, Mark + std::string("\nz\0 = \0 0\nNew = x\n", 18)},
    };
    for (const auto& [before, group, flags, after] : cases) {
        Start(before, flags);
        SettingsSelectGroup(group);
        EXPECT_TRUE(SettingsWriteString(u"New", u"x"));
        EXPECT_EQ(SettingsReadString(u"new", u""), u"x");
        EXPECT_EQ(ReadFile(file), before) << "nothing is written before the flush";
        EXPECT_EQ(Closed(), after);
    }
}

TEST_F(SettingsStoreTest, WritesValuesAsTheyAre) {
    Start("a = 12345\nb = 2\n");
    EXPECT_TRUE(SettingsWriteString(u"A", u" x\n=y"));
    EXPECT_EQ(SettingsReadString(u"a", u""), u"x\n=y");
    EXPECT_TRUE(SettingsWriteInteger(u"b", std::numeric_limits<std::int64_t>::min()));
    EXPECT_TRUE(SettingsFlush());
    EXPECT_FALSE(SettingsFlush());
    EXPECT_EQ(Closed(), Mark + "\nA =  x\n=y\nb = -9223372036854775808\n");
}

TEST_F(SettingsStoreTest, CreatesAMissingFileAtTheFirstFlush) {
    EXPECT_FALSE(SettingsOpen(path, GroupSpacing));
    EXPECT_FALSE(SettingsFlush());
    EXPECT_FALSE(SettingsSelectGroup(u"G"));
    EXPECT_TRUE(SettingsWriteString(u"k", u"1"));
    EXPECT_FALSE(SettingsSelectGroup(u"H"));
    EXPECT_TRUE(SettingsWriteString(u"k", u"2"));
    EXPECT_TRUE(SettingsOpenDefault(path)) << "opening writes and closes what is open";
    EXPECT_EQ(ReadFile(file), Mark + "\n[G]\nk = 1\n\n[H]\nk = 2\n");
}

}  // namespace
}  // namespace rotavel
