#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "runtime/raw_file.h"
#include "settings/settings_document.h"
#include "settings_test.h"

namespace rotavel {
namespace {

using namespace tests;

void RenameOver(const std::string& path, const std::string& content) {
    WriteFile(path + "~", content);
    std::filesystem::rename(path + "~", path);
}

// What an editor, or another program, does to the file while the store is open.
class SettingsSharingTest : public SettingsTest {
  protected:
    void StartWithTwo() { Start("[Settings]\nMaxRPM = 1\n[A - 1]\nMaxRPM = 2\n"); }
    static void Write(std::u16string_view group, std::u16string_view key,
                      std::u16string_view value) {
        SettingsSelectGroup(group);
        EXPECT_TRUE(SettingsWriteString(key, value));
    }
    void ExpectFlushed(const std::string& content) const {
        EXPECT_TRUE(SettingsFlush());
        EXPECT_EQ(SettingsSaveError(), 0);
        EXPECT_EQ(ReadFile(file), Mark + "\n" + content);
    }
};

TEST_F(SettingsSharingTest, KeepsWhatAnEditorWroteAndWhatWasTyped) {
    const struct {
        std::string Edited;
        std::string Saved;  // with MaxRPM = 99 and New = x written into [Settings]
    } cases[] = {
        {"; mine\r\n[Settings]\r\nmaxrpm = 5\r\nUnit = mph\r\n[B - 2]\r\nk = \xE9\r\n",
         "; mine\n[Settings]\nMaxRPM = 99\nUnit = mph\nNew = x\n\n[B - 2]\nk = \xC3\xA9\n"},
        // Of the same length as what was read.
        {"[Settings]\nMaxRPM = 3\n[B - 2]\nMaxRPM = 4\n",
         "[Settings]\nMaxRPM = 99\nNew = x\n\n[B - 2]\nMaxRPM = 4\n"},
        {"[A - 1]\nMaxRPM = 2\n[B - 2]\n",
         "[A - 1]\nMaxRPM = 2\n\n[B - 2]\n\n[Settings]\nMaxRPM = 99\nNew = x\n"},
        {Mark + "[A - 1]\nMaxRPM = 7\n\n[settings]\nNEW = longer\n",
         "[A - 1]\nMaxRPM = 7\n\n[settings]\nNew = x\nMaxRPM = 99\n"},
    };
    for (const auto edit : {WriteFile, RenameOver}) {
        for (const auto& [edited, saved] : cases) {
            StartWithTwo();
            Write(u"Settings", u"MaxRPM", u"99");
            Write(u"Settings", u"New", u"draft");
            Write(u"Settings", u"New", u"x");
            edit(file, edited);
            ExpectFlushed(saved);
            EXPECT_EQ(SettingsReadInteger(u"MaxRPM", 0), 99) << "the group stays selected";
            EXPECT_EQ(SettingsSelectGroup(u"B - 2"), saved.find("[B") < 999);
        }
    }
}

TEST_F(SettingsSharingTest, RepeatsOnlyWhatWasWrittenSinceTheLastFlush) {
    Start("top = 1\n[G]\nk = 1\n[g]\nk = 2\n");
    EXPECT_TRUE(SettingsWriteString(u"top", u"2"));
    EXPECT_TRUE(SettingsNextGroup() && SettingsNextGroup());
    EXPECT_TRUE(SettingsWriteString(u"k", u"22"));
    EXPECT_FALSE(SettingsSelectGroup(u"Later"));
    WriteFile(file, "[G]\nk = 1\n[x]\n[g]\nk = 3\n");
    ExpectFlushed("top = 2\n[G]\nk = 1\n\n[x]\n\n[g]\nk = 22\n");
    WriteFile(file, "[G]\nk = 5\n[Later]\nk = 6\n");
    EXPECT_FALSE(SettingsFlush());
    Write(u"", u"top", u"new");
    EXPECT_FALSE(SettingsSelectGroup(u"Later"));
    ExpectFlushed("top = new\n[G]\nk = 5\n\n[Later]\nk = 6\n");
    EXPECT_EQ(SettingsReadInteger(u"k", 0), 6) << "the selected group has come";

    RenameOver(file, "[G]\nk = 5\n");
    Write(u"G", u"k", u"7");
    SettingsSelectGroup(u"Later");
    ExpectFlushed("[G]\nk = 7\n");
    EXPECT_TRUE(SettingsWriteString(u"n", u"4"));
    ExpectFlushed("[G]\nk = 7\n\n[Later]\nn = 4\n");
}

TEST_F(SettingsSharingTest, MakesAFileThatHasGoneAgain) {
    StartWithTwo();
    ASSERT_EQ(chmod(file.c_str(), 0640), 0);
    std::filesystem::remove(file);
    Write(u"Settings", u"MaxRPM", u"9");
    ExpectFlushed("[Settings]\nMaxRPM = 9\n\n[A - 1]\nMaxRPM = 2\n");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0640));

    // A file that comes while the store has none is somebody's too.
    std::filesystem::remove(file);
    EXPECT_FALSE(SettingsOpen(path, GroupSpacing));
    EXPECT_TRUE(SettingsWriteString(u"Top", u"9"));
    WriteFile(file, "[A - 1]\n");
    EXPECT_FALSE(RawFile().Create(file, "other")) << "nor is it made anew in that moment";
    ExpectFlushed("Top = 9\n[A - 1]\n");

    // So is one that has been emptied; a value that it has already changes nothing.
    StartWithTwo();
    WriteFile(file, "");
    for (const bool isNew : {true, false}) {
        const auto before = std::filesystem::last_write_time(file);
        Write(u"Settings", u"MaxRPM", u"8");
        ExpectFlushed("[Settings]\nMaxRPM = 8\n\n[A - 1]\nMaxRPM = 2\n");
        EXPECT_EQ(std::filesystem::last_write_time(file) != before, isNew);
    }
}

TEST_F(SettingsSharingTest, FailsOnWhatCannotBeWrittenAndTriesAgain) {
    const std::string there = folder.File("there");
    const std::string elsewhere = folder.File("elsewhere");
    const std::pair<int, std::function<void()>> cases[] = {
        {EISDIR, [&] { std::filesystem::create_directory(file); }},
        {EINVAL, [&] { mkfifo(file.c_str(), 0666); }},
        {ENOENT, [&] { std::filesystem::create_symlink("no/such", file); }},
    };
    for (const auto& [error, breakFile] : cases) {
        StartWithTwo();
        Write(u"Settings", u"MaxRPM", u"9");
        std::filesystem::remove(file);
        breakFile();
        EXPECT_FALSE(SettingsFlush()) << error;
        EXPECT_EQ(SettingsSaveError(), error);
        std::filesystem::remove(file);
        WriteFile(file, "[Settings]\n[B - 2]\n");
        ExpectFlushed("[Settings]\nMaxRPM = 9\n\n[B - 2]\n");
    }

    std::filesystem::create_directory(there);
    WriteFile(there + "/a.ini", Mark + "\n[G]\nk = 1\n");
    SettingsOpen(ToUtf16(there + "/a.ini"), GroupSpacing);
    std::filesystem::rename(there, elsewhere);
    for (const char digit : {'2', '3'}) {
        Write(u"G", u"k", std::u16string(1, static_cast<char16_t>(digit)));
        EXPECT_TRUE(SettingsFlush()) << "the file is followed when its folder is renamed";
        EXPECT_EQ(ReadFile(elsewhere + "/a.ini"), Mark + "\n[G]\nk = " + digit + "\n");
    }
    std::filesystem::remove_all(elsewhere);
    Write(u"G", u"k", u"4");
    EXPECT_FALSE(SettingsFlush());
    EXPECT_EQ(SettingsSaveError(), ENOENT);
}

TEST_F(SettingsSharingTest, WaitsForAnotherProgramThatIsSaving) {
    StartWithTwo();
    Write(u"Settings", u"MaxRPM", u"9");
    const int other = open(file.c_str(), O_RDWR);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    std::thread saving([&] {
        usleep(100'000);
        WriteFile(file, "[Settings]\n[B - 2]\n");
        flock(other, LOCK_UN);
    });
    ExpectFlushed("[Settings]\nMaxRPM = 9\n\n[B - 2]\n");
    saving.join();
    EXPECT_EQ(flock(other, LOCK_EX | LOCK_NB), 0) << "the lock is held no longer than the save";
    // A program that never lets go must not keep this one from ending.
    Write(u"Settings", u"MaxRPM", u"8");
    EXPECT_TRUE(SettingsFlush());
    close(other);
}

TEST(SettingsDocument, TellsEveryChangeByTheFingerprint) {
    const std::string text(99, 'x');
    EXPECT_NE(FingerprintOf(text), FingerprintOf(text + '\0'));
    for (std::size_t i = 0; i < text.size(); ++i) {
        std::string changed = text;
        changed[i] = 'y';
        EXPECT_NE(FingerprintOf(text), FingerprintOf(changed)) << i;
    }
}

}  // namespace
}  // namespace rotavel
