#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "settings/settings_document.h"
#include "settings/settings_store.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel {
namespace {

using tests::ReadFile;
using tests::TemporaryFolder;
using tests::WriteFile;

const std::string Mark = "\xEF\xBB\xBF";

// What an editor, or another program, does to the file while the store is open.
class SettingsSharingTest : public testing::Test {
  protected:
    ~SettingsSharingTest() override { SettingsClose(); }

    void Open(const std::string& content = "[Settings]\nMaxRPM = 1\n[A - 1]\nMaxRPM = 2\n") {
        SettingsClose();
        std::filesystem::remove_all(file);
        WriteFile(file, content);
        ASSERT_TRUE(SettingsOpen(path, GroupSpacing));
        SettingsSelectGroup(u"Settings");
    }

    void WriteInPlace(const std::string& content) const { WriteFile(file, content); }
    void RenameOver(const std::string& content) const {
        WriteFile(file + "~", content);
        std::filesystem::rename(file + "~", file);
    }

    // Runs the store in a process of its own, on this file.
    static void InOtherProcess(const std::function<void()>& run) {
        const pid_t child = fork();
        if (child == 0) {
            run();
            _exit(0);
        }
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_EQ(status, 0);
    }

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    const std::u16string path = ToUtf16(file);
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
    const auto inPlace = [&](const std::string& text) { WriteInPlace(text); };
    const auto renamed = [&](const std::string& text) { RenameOver(text); };
    for (const std::function<void(const std::string&)>& edit :
         {std::function<void(const std::string&)>(inPlace),
          std::function<void(const std::string&)>(renamed)}) {
        for (const auto& [edited, saved] : cases) {
            Open();
            edit(edited);
            SettingsClose();
            EXPECT_EQ(ReadFile(file), edited) << "nothing was typed";

            Open();
            EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 99));
            EXPECT_TRUE(SettingsWriteString(u"New", u"draft"));
            EXPECT_TRUE(SettingsWriteString(u"New", u"x"));
            edit(edited);
            EXPECT_TRUE(SettingsFlush());
            EXPECT_EQ(ReadFile(file), Mark + "\n" + saved);
            EXPECT_EQ(SettingsReadInteger(u"MaxRPM", 0), 99) << "the group stays selected";
            SettingsSelectGroup(u"B - 2");
            EXPECT_EQ(SettingsGroupName(), saved.find("[B") < 999 ? u"B - 2" : u"settings");
        }
    }
}

TEST_F(SettingsSharingTest, RepeatsOnlyWhatWasWrittenSinceTheLastFlush) {
    Open("top = 1\n[G]\nk = 1\n[g]\nk = 2\n");
    EXPECT_TRUE(SettingsRewindGroups() && SettingsNextGroup() && SettingsNextGroup());
    EXPECT_TRUE(SettingsWriteString(u"k", u"22"));
    EXPECT_FALSE(SettingsSelectGroup(u"Later"));
    WriteInPlace("[G]\nk = 1\n[x]\n[g]\nk = 3\n");
    EXPECT_TRUE(SettingsFlush());
    EXPECT_EQ(ReadFile(file), Mark + "\n[G]\nk = 1\n\n[x]\n\n[g]\nk = 22\n");
    SettingsSelectGroup(u"G");
    for (const std::u16string_view value : {u"8", u"9"}) {
        EXPECT_TRUE(SettingsWriteString(u"k", value));
        WriteInPlace("[G]\nk = 5\n");
        EXPECT_TRUE(SettingsFlush());
        EXPECT_EQ(ReadFile(file), Mark + "\n[G]\nk = " + ToUtf8(value) + "\n");
    }
    WriteInPlace("[G]\nk = 5\n[Later]\nk = 6\n");
    EXPECT_FALSE(SettingsFlush());
    EXPECT_TRUE(SettingsWriteString(u"m", u"1"));
    SettingsSelectGroup(u"");
    EXPECT_TRUE(SettingsWriteString(u"top", u"new"));
    EXPECT_FALSE(SettingsSelectGroup(u"Later"));
    EXPECT_TRUE(SettingsFlush());
    EXPECT_EQ(ReadFile(file), Mark + "\ntop = new\n[G]\nk = 5\nm = 1\n\n[Later]\nk = 6\n");
    EXPECT_EQ(SettingsReadInteger(u"k", 0), 6) << "the selected group has come";
    SettingsNextGroup();
    RenameOver("[G]\nk = 5\n");
    EXPECT_TRUE(SettingsWriteString(u"n", u"1"));
    EXPECT_TRUE(SettingsWriteString(u"n", u"23"));
    EXPECT_TRUE(SettingsFlush());
    RenameOver("[G]\nk = 5\n");
    SettingsSelectGroup(u"G");
    EXPECT_TRUE(SettingsWriteString(u"k", u"7"));
    SettingsSelectGroup(u"Later");
    EXPECT_TRUE(SettingsFlush());
    EXPECT_TRUE(SettingsWriteString(u"n", u"4"));
    SettingsClose();
    EXPECT_EQ(ReadFile(file), Mark + "\n[G]\nk = 7\n\n[Later]\nn = 4\n")
        << "the current group went and comes back with its next key";
}

TEST_F(SettingsSharingTest, MakesAFileThatHasGoneAgain) {
    Open();
    ASSERT_EQ(chmod(file.c_str(), 0640), 0);
    std::filesystem::remove(file);
    EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 9));
    EXPECT_TRUE(SettingsFlush());
    EXPECT_EQ(ReadFile(file), Mark + "\n[Settings]\nMaxRPM = 9\n\n[A - 1]\nMaxRPM = 2\n");
    EXPECT_EQ(std::filesystem::status(file).permissions(), std::filesystem::perms(0640));

    // A file that comes while the store has none is somebody's too.
    const std::string saved = ReadFile(file);
    std::filesystem::remove(file);
    EXPECT_FALSE(SettingsOpen(path, GroupSpacing));
    EXPECT_TRUE(SettingsWriteInteger(u"Top", 9));
    WriteInPlace(saved);
    SettingsClose();
    EXPECT_EQ(ReadFile(file), Mark + "\nTop = 9\n" + saved.substr(Mark.size() + 1));

    // So is one that has been emptied; a value that it has already changes nothing.
    Open();
    for (const std::int64_t value : {7, 8, 8}) {
        const bool isNew =
            ReadFile(file).find("MaxRPM = " + std::to_string(value)) == std::string::npos;
        WriteInPlace(isNew ? "" : ReadFile(file));
        const auto before = std::filesystem::last_write_time(file);
        EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", value));
        EXPECT_TRUE(SettingsFlush());
        EXPECT_EQ(ReadFile(file), Mark + "\n[Settings]\nMaxRPM = " + std::to_string(value) +
                                      "\n\n[A - 1]\nMaxRPM = 2\n");
        EXPECT_EQ(std::filesystem::last_write_time(file) == before, !isNew);
    }
}

TEST_F(SettingsSharingTest, KeepsLinksAndPermissions) {
    const std::string target = folder.File("target");
    const std::string twin = folder.File("twin");
    WriteFile(target, "[Settings]\nMaxRPM = 1\n");
    ASSERT_EQ(chmod(target.c_str(), 0604), 0);
    std::filesystem::create_hard_link(target, twin);
    std::filesystem::create_symlink("target", file);
    ASSERT_TRUE(SettingsOpen(path, GroupSpacing));
    SettingsSelectGroup(u"Settings");
    EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 2));
    EXPECT_TRUE(SettingsFlush());
    EXPECT_EQ(ReadFile(twin), Mark + "\n[Settings]\nMaxRPM = 2\n");
    EXPECT_EQ(std::filesystem::status(target).permissions(), std::filesystem::perms(0604));

    std::filesystem::remove(target);
    EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 3));
    SettingsClose();
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(ReadFile(target), Mark + "\n[Settings]\nMaxRPM = 3\n");
    EXPECT_EQ(ReadFile(twin), Mark + "\n[Settings]\nMaxRPM = 2\n");
}

TEST_F(SettingsSharingTest, FailsOnWhatCannotBeWrittenAndTriesAgain) {
    const std::string huge = folder.File("huge");
    WriteFile(huge, "");
    std::filesystem::resize_file(huge, std::uintmax_t{1} << 30);
    const struct {
        std::function<void()> Break;
        int Error;
    } cases[] = {
        {[&] { std::filesystem::create_directory(file); }, EISDIR},
        {[&] { mkfifo(file.c_str(), 0666); }, EINVAL},
        {[&] { std::filesystem::create_symlink("Rotavel.ini", file); }, ELOOP},
        {[&] { std::filesystem::create_symlink("no/such", file); }, ENOENT},
        {[&] { std::filesystem::create_hard_link(huge, file); }, EFBIG},
    };
    for (const auto& [breakFile, error] : cases) {
        Open();
        EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 9));
        std::filesystem::remove(file);
        breakFile();
        EXPECT_FALSE(SettingsFlush()) << error;
        EXPECT_EQ(SettingsSaveError(), error);
        std::filesystem::remove(file);
        WriteInPlace("[Settings]\n[B - 2]\n");
        EXPECT_TRUE(SettingsFlush()) << error;
        EXPECT_EQ(SettingsSaveError(), 0);
        EXPECT_EQ(ReadFile(file), Mark + "\n[Settings]\nMaxRPM = 9\n\n[B - 2]\n");
    }
}

TEST_F(SettingsSharingTest, GivesTheLastOfTwoProgramsTheValues) {
    Open();
    InOtherProcess([&] {
        SettingsOpen(path, GroupSpacing);
        SettingsSelectGroup(u"Settings");
        SettingsWriteInteger(u"MaxRPM", 11);
        SettingsWriteString(u"Modell", u"other");
        RenameOver(ReadFile(file) + "[B - 2]\nMaxRPM = 3\n");
        SettingsClose();
    });
    EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 12));
    SettingsClose();
    EXPECT_EQ(ReadFile(file), Mark +
                                  "\n[Settings]\nMaxRPM = 12\nModell = other\n\n[A - 1]\n"
                                  "MaxRPM = 2\n\n[B - 2]\nMaxRPM = 3\n");
}

TEST_F(SettingsSharingTest, WaitsForAnotherProgramThatIsSaving) {
    Open();
    EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 9));
    const int other = open(file.c_str(), O_RDWR);
    ASSERT_EQ(flock(other, LOCK_EX), 0);
    std::thread saving([&] {
        usleep(100'000);
        WriteInPlace("[Settings]\n[B - 2]\n");
        close(other);
    });
    EXPECT_TRUE(SettingsFlush());
    saving.join();
    EXPECT_EQ(ReadFile(file), Mark + "\n[Settings]\nMaxRPM = 9\n\n[B - 2]\n");
    const int next = open(file.c_str(), O_RDWR);
    EXPECT_EQ(flock(next, LOCK_EX | LOCK_NB), 0) << "the lock is held no longer than the save";
    // A program that never lets go must not keep this one from ending.
    EXPECT_TRUE(SettingsWriteInteger(u"MaxRPM", 8));
    EXPECT_TRUE(SettingsFlush());
    close(next);
}

TEST(SettingsDocument, TellsEveryChangeByTheFingerprint) {
    for (std::size_t length = 0; length < 100; ++length) {
        const std::string text(length, 'x');
        EXPECT_NE(FingerprintOf(text), FingerprintOf(text + '\0'));
        for (std::size_t i = 0; i < length; ++i) {
            std::string changed = text;
            changed[i] = 'y';
            EXPECT_NE(FingerprintOf(text), FingerprintOf(changed)) << length << ' ' << i;
        }
    }
}

}  // namespace
}  // namespace rotavel
