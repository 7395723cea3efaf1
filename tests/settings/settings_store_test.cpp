#include "settings/settings_store.h"

#include <cerrno>
#include <cmath>
#include <csignal>
#include <gtest/gtest.h>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel {
namespace {

using tests::ReadFile;
using tests::TemporaryFolder;
using tests::WriteFile;

const std::string Mark = "\xEF\xBB\xBF";

class SettingsStoreTest : public testing::Test {
  protected:
    ~SettingsStoreTest() override { SettingsClose(); }

    bool OpenText(const std::string& content, std::uint32_t flags = GroupSpacing) {
        SettingsClose();
        WriteFile(file, content);
        return SettingsOpen(path, flags);
    }

    // What the file holds once the store is closed.
    std::string Closed() {
        SettingsClose();
        return ReadFile(file);
    }

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    const std::u16string path = ToUtf16(file);
};

TEST_F(SettingsStoreTest, ReadsValues) {
    ASSERT_TRUE(
        OpenText("Top = 0\r\n[Numbers]\r\n; MaxRPM = 1\r\nMaxRPM = +12x\r\nEmpty = \r\n"
                 "Large = 99999999999999999999\r\nReal = 0x1p4,\r\nNan = nAn\r\n"
                 "Text = \t55 \r\nText = second\r\nSpace\xE9 = \xFC\r\n[Other]\r\nKey = 1\r\n"));
    EXPECT_EQ(SettingsReadInteger(u"top", 5), 0);
    EXPECT_EQ(SettingsReadInteger(u"Key", 5), 5);
    ASSERT_TRUE(SettingsSelectGroup(u"nUMBERS"));
    EXPECT_EQ(SettingsReadInteger(u"maxrpm", 5), 12);
    EXPECT_EQ(SettingsReadInteger(u"Empty", 5), 0);
    EXPECT_EQ(SettingsReadInteger(u"Large", 5), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(SettingsReadNumber(u"Empty", 5.5), 0.0);
    EXPECT_EQ(SettingsReadNumber(u"Missing", 5.5), 5.5);
    EXPECT_EQ(SettingsReadNumber(u"Real", 5.5), 16.0);
    EXPECT_TRUE(std::isnan(SettingsReadNumber(u"Nan", 5.5)));
    EXPECT_EQ(SettingsReadString(u"TEXT", u"none"), u"55 ");
    EXPECT_EQ(SettingsReadString(u"Space\u00E9", u"none"), u"\u00FC");
    EXPECT_EQ(SettingsReadString(u"Space\u00C9", u"none"), u"none");
}

TEST_F(SettingsStoreTest, VisitsEveryGroupAndSelectsTheFirstOfAName) {
    ASSERT_TRUE(OpenText("a = 1\n[B]\nk = 1\n[b]\nk = 2\n[]\n"));
    EXPECT_TRUE(SettingsRewindGroups());
    std::u16string names;
    while (SettingsNextGroup()) {
        names += SettingsGroupName() + u"," + SettingsReadString(u"k", u"-") + u";";
    }
    EXPECT_EQ(names, u"B,1;b,2;,-;");
    EXPECT_TRUE(SettingsSelectGroup(u"b"));
    EXPECT_EQ(SettingsReadInteger(u"k", 0), 1);
    EXPECT_FALSE(SettingsSelectGroup(u"c"));
    EXPECT_EQ(SettingsReadInteger(u"k", 0), 0);
    EXPECT_TRUE(SettingsSelectGroup(u""));
    EXPECT_EQ(SettingsReadInteger(u"a", 0), 1);
    SettingsClose();
    EXPECT_FALSE(SettingsSelectGroup(u"b"));
    EXPECT_FALSE(SettingsNextGroup());
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
        {"k = \xE9\n", u"", 0, Mark + "\nk = \xC3\xA9\nNew = x\n"},
        {"k = 0123 45\xB0 7890\n", u"", 0, Mark + "\nk = 0123 45\xC2\xB0 7890\nNew = x\n"},
        {std::string("z\0=\0 0\n", 7), u"", 0, Mark + std::string("\nz\0 = \0 0\nNew = x\n", 18)},
    };
    for (const auto& [before, group, flags, after] : cases) {
        ASSERT_TRUE(OpenText(before, flags));
        SettingsSelectGroup(group);
        EXPECT_TRUE(SettingsWriteString(u"New", u"x"));
        EXPECT_EQ(SettingsReadString(u"new", u""), u"x");
        EXPECT_EQ(ReadFile(file), before) << "nothing is written before the flush";
        EXPECT_EQ(Closed(), after);
    }
}

TEST_F(SettingsStoreTest, KeepsValuesOfEveryLengthApart) {
    ASSERT_TRUE(OpenText("a = 12345\nb = 2\n"));
    for (const std::u16string& value : {std::u16string(u"123456"), std::u16string(u"1"),
                                        std::u16string(), std::u16string(5000, u'\u00E9')}) {
        EXPECT_TRUE(SettingsWriteString(u"A", value));
        EXPECT_EQ(SettingsReadString(u"a", u""), value);
        EXPECT_EQ(SettingsReadInteger(u"b", 0), 2);
        EXPECT_TRUE(SettingsFlush());
        EXPECT_FALSE(SettingsFlush());
    }
    EXPECT_TRUE(SettingsWriteString(u"a", u" x\n=y"));
    EXPECT_EQ(SettingsReadString(u"a", u""), u"x\n=y");
    EXPECT_TRUE(SettingsWriteInteger(u"b", std::numeric_limits<std::int64_t>::min()));
    EXPECT_EQ(Closed(), Mark + "\na =  x\n=y\nb = -9223372036854775808\n");
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

    EXPECT_FALSE(SettingsOpenDefault(ToUtf16(folder.Path())));
    EXPECT_TRUE(SettingsWriteString(u"k", u"1"));
    EXPECT_FALSE(SettingsFlush());
}

TEST_F(SettingsStoreTest, NeverRewritesAFileOpenedForReadingOnly) {
    WriteFile(file, "k = 1\n");
    ASSERT_EQ(chmod(folder.Path().c_str(), 0755) | chmod(file.c_str(), 0444), 0);
    // Permissions do not bind the superuser, who opens the file as somebody else.
    const bool isSuperuser = geteuid() == 0;
    ASSERT_TRUE(!isSuperuser || seteuid(65534) == 0);
    EXPECT_TRUE(SettingsOpenDefault(path));
    ASSERT_TRUE(!isSuperuser || seteuid(0) == 0);
    EXPECT_TRUE(SettingsWriteString(u"k", u"2"));
    EXPECT_EQ(SettingsReadInteger(u"k", 0), 2);
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(SettingsFlush());
        EXPECT_EQ(SettingsSaveError(), EACCES);
        EXPECT_FALSE(SettingsSelectGroup(u"")) << "the flush closes the file";
    }
    EXPECT_EQ(Closed(), "k = 1\n");
}

TEST_F(SettingsStoreTest, NeverRewritesAFileTooLargeToRead) {
    WriteFile(file, "k = 1\n");
    constexpr std::uintmax_t size = std::uintmax_t{3} << 30;
    std::filesystem::resize_file(file, size);
    EXPECT_TRUE(SettingsOpenDefault(path));
    EXPECT_EQ(SettingsReadInteger(u"k", 5), 5);
    EXPECT_TRUE(SettingsWriteString(u"k", u"2"));
    SettingsClose();
    EXPECT_EQ(std::filesystem::file_size(file), size);
}

TEST_F(SettingsStoreTest, LeavesTheFileWholeWhenTheDiskIsFull) {
    ASSERT_TRUE(OpenText("k = 1\n"));
    EXPECT_TRUE(SettingsWriteString(u"k", std::u16string(10000, u'x')));
    // A limit on file sizes stands in for the disk's.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit old = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit small = {.rlim_cur = 5000, .rlim_max = old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_FALSE(SettingsFlush());
    EXPECT_EQ(ReadFile(file), "k = 1\n");
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old), 0);
    EXPECT_TRUE(SettingsFlush());
}

}  // namespace
}  // namespace rotavel
