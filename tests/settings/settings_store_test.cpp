#include "settings/settings_store.h"

#include "settings_test.h"
#include "text/number_text.h"

namespace rotavel {
namespace {

using namespace tests;

using SettingsStoreTest = SettingsTest;

// A value as a text, an integer and a number.
std::u16string Read(std::u16string_view key) {
    return SettingsReadString(key, u"none") + u"|" + IntegerToText(SettingsReadInteger(key, 5)) +
           u"|" + NumberToTextShortest(SettingsReadNumber(key, 5.5));
}

TEST_F(SettingsStoreTest, ReadsTheGroupsAndTheirValues) {
    Start(
        "Top = 0\r\n[Numbers]\r\n; MaxRPM = 1\r\nMaxRPM = +12x\r\nEmpty = \r\n"
        "Large = 99999999999999999999\r\nReal = 0x1p4,\r\nText = \t55 \r\nText = second\r\n"
        "[Other]\r\nKey = 1\r\n[other]\n[]\n");
    const struct {
        const char16_t *Group, *Key, *Values;
    } cases[] = {
        {u"nUMBERS", u"maxrpm", u"+12x|12|12"},
        {u"Numbers", u"Large", u"99999999999999999999|9223372036854775807|100000000000000000000"},
        {u"Numbers", u"Real", u"0x1p4,|0|16"},
        {u"Numbers", u"TEXT", u"55 |55|55"},
        {u"Numbers", u"Empty", u"|0|0"},
        {u"Numbers", u"Key", u"none|5|5.5"},
        {u"OTHER", u"Key", u"1|1|1"},
        {u"missing", u"Key", u"none|5|5.5"},
        {u"", u"top", u"0|0|0"}};
    for (const auto& [group, key, values] : cases) {
        EXPECT_EQ(SettingsSelectGroup(group), *group != u'm');
        EXPECT_EQ(Read(key), values);
    }
    std::u16string names;
    while (SettingsNextGroup()) {
        names += SettingsGroupName() + u"," + SettingsReadString(u"key", u"-") + u";";
    }
    EXPECT_EQ(names, u"Numbers,-;Other,1;other,-;,-;");
    SettingsClose();
    EXPECT_FALSE(SettingsSelectGroup(u"Other") || SettingsRewindGroups() || SettingsNextGroup());
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

TEST_F(SettingsStoreTest, KeepsEveryKindOfLineAtEveryPlace) {
    for (std::size_t place = 0; place < 8; ++place) {
        const std::string first(place, 'k');
        Start(first +
                  "=1\n  Key\t=\tValue \xB0 \r\n[A]x\r\n[ B ]\r[C\n;one\n; two\n;  three\n;\n# x = "
                  "1\n=5\n"
                  "a==b;\"\nalone\r\nk=1\nalone\nk=2\nnext=3\nalone\n\n[D]\n\n \r\n\t\n[\n \t",
              0);
        EXPECT_TRUE(SettingsWriteString(u"New", u"x"));
        EXPECT_EQ(Closed(),
                  Mark + "\n" + first +
                      " = 1\nKey = Value \xC2\xB0 \nNew = x\n[A]\n[ B ]\n[C]\n; one\n; two\n"
                      ";  three\n; \n# x = 1\n = 5\na = =b;\"\nalone = \nk = 1\nalone = k=2\n"
                      "next = 3\nalone = \n[D]\n[]\n = \n");
    }
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
