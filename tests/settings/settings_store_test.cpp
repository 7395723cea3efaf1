#include "settings/settings_store.h"

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

#include "runtime/raw_file.h"
#include "settings/settings_document.h"
#include "tests/support/faults.h"
#include "tests/support/temporary_folder.h"
#include "text/number_text.h"
#include "text/utf.h"

namespace rotavel {
namespace {

using namespace tests;
namespace fs = std::filesystem;

const std::string Mark = "\xEF\xBB\xBF";

// Too long to fit into a text object itself.
const std::u16string Long = u"A text longer than a short one";
const std::u16string Longer = u"3 times " + Long;

const std::string Old = Mark + "\n[" + ToUtf8(Long) + "]\n" + ToUtf8(Long) +
                        " = 1\n\n[Other]\nx = " + std::string(1000, 'x') + "\n";

// The store, and the file that it keeps.
class SettingsStoreTest : public testing::Test {
  protected:
    ~SettingsStoreTest() override { SettingsClose(); }

    // Opens the store on a new file.
    void Start(const std::string& content, std::uint32_t flags = GroupSpacing) {
        SettingsClose();
        fs::remove_all(file);
        WriteFile(file, content);
        ASSERT_TRUE(SettingsOpen(path, flags));
    }
    void StartWithTwo() { Start("[Settings]\nMaxRPM = 1\n[A - 1]\nMaxRPM = 2\n"); }
    // What the file holds once the store is closed.
    std::string Closed() {
        SettingsClose();
        return ReadFile(file);
    }
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

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    const std::u16string path = ToUtf16(file);
};

// As an editor saves that writes a file of its own and puts it in the old one's place.
void RenameOver(const std::string& path, const std::string& content) {
    WriteFile(path + "~", content);
    fs::rename(path + "~", path);
}

// A value as a text, an integer and a number.
std::u16string Read(std::u16string_view key) {
    return SettingsReadString(key, u"none") + u"|" + IntegerToText(SettingsReadInteger(key, 5)) +
           u"|" + NumberToTextShortest(SettingsReadNumber(key, 5.5));
}

TEST_F(SettingsStoreTest, ReadsTheGroupsAndTheirValues) {
    Start(
        "Top = 0\r\n[Numbers]\r\n; MaxRPM = 1\r\nMaxRPM = +12x\r\nReal = 0x1p-11,\r\n"
        "Az[ = \t55 \r\nAz[ = second\r\n[Other]\r\nKey = 1\r\n[other]\n[]\n");
    const struct {
        const char16_t *Group, *Key, *Values;
    } cases[] = {
        {u"nUMBERS", u"maxrpm", u"+12x|12|12"}, {u"Numbers", u"Real", u"0x1p-11,|0|0.0004882812"},
        {u"Numbers", u"aZ[", u"55 |55|55"},     {u"Numbers", u"aZ{", u"none|5|5.5"},
        {u"Numbers", u"Key", u"none|5|5.5"},    {u"OTHER", u"Key", u"1|1|1"},
        {u"missing", u"Key", u"none|5|5.5"},    {u"", u"top", u"0|0|0"}};
    for (const auto& [group, key, values] : cases) {
        EXPECT_EQ(SettingsSelectGroup(group), *group != u'm');
        EXPECT_EQ(Read(key), values);
    }
    std::u16string names = SettingsGroupName();
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
        {"\xE9=\nNew =\nk=1", u"", 0, Mark + "\n\xC3\xA9 = \nNew = x\nk = 1\n"},
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
    for (std::size_t place = 0; place < 128; ++place) {
        const std::string first(place, 'k');
        Start(
            first +
                "=1\n  Key\t=\tValue \x80 \r\n[A]x\r\n[ B ]\r[C\r\n;one\n; two\n;  three\n;\n# x = "
                "1\n=5\n"
                "a==b;\"\nalone\r\nk=1\nalone\nk=2\nnext=3\nalone\n\n[D]\n\n \r\n\t\n[\n \t",
            0);
        EXPECT_TRUE(SettingsWriteString(u"New", u"x"));
        EXPECT_EQ(Closed(),
                  Mark + "\n" + first +
                      " = 1\nKey = Value \xC2\x80 \nNew = x\n[A]\n[ B ]\n[C]\n; one\n; two\n"
                      ";  three\n; \n# x = 1\n = 5\na = =b;\"\nalone = \nk = 1\nalone = k=2\n"
                      "next = 3\nalone = \n[D]\n[]\n = \n");
    }
}

TEST_F(SettingsStoreTest, KeepsWhatAnEditorWroteAndWhatWasTyped) {
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
        {"[Settings]\nMaxRPM = 5\n[settings]\nMaxRPM = 6\n",
         "[Settings]\nMaxRPM = 99\nNew = x\n\n[settings]\nMaxRPM = 6\n"},
        // One that has been emptied is as good as gone.
        {"", "[Settings]\nMaxRPM = 99\nNew = x\n\n[A - 1]\nMaxRPM = 2\n"},
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
        }
    }
}

TEST_F(SettingsStoreTest, RepeatsOnlyWhatWasWrittenSinceTheLastFlush) {
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
}

TEST_F(SettingsStoreTest, MakesAFileThatHasGoneAgain) {
    StartWithTwo();
    ASSERT_EQ(chmod(file.c_str(), 0640), 0);
    fs::remove(file);
    Write(u"A - 1", u"k", u"9");
    Write(u"B - 2", u"k", u"8");
    ExpectFlushed("[Settings]\nMaxRPM = 1\n\n[A - 1]\nMaxRPM = 2\nk = 9\n\n[B - 2]\nk = 8\n");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms(0640));
    EXPECT_FALSE(RawFile().Create(file, "other")) << "one that is there is somebody's";
}

TEST_F(SettingsStoreTest, FailsOnWhatCannotBeWrittenAndTriesAgain) {
    const std::string there = folder.File("there");
    const std::string elsewhere = folder.File("elsewhere");
    const std::pair<int, std::function<void()>> cases[] = {
        {EISDIR, [&] { fs::create_directory(file); }},
        {EINVAL, [&] { mkfifo(file.c_str(), 0666); }},
        {ENOENT, [&] { fs::create_symlink("no/such", file); }},
    };
    for (const auto& [error, breakFile] : cases) {
        StartWithTwo();
        Write(u"Settings", u"MaxRPM", u"9");
        fs::remove(file);
        breakFile();
        EXPECT_FALSE(SettingsFlush()) << error;
        EXPECT_EQ(SettingsSaveError(), error);
        fs::remove(file);
        WriteFile(file, "[Settings]\n[B - 2]\n");
        ExpectFlushed("[Settings]\nMaxRPM = 9\n\n[B - 2]\n");
    }

    fs::create_directory(there);
    WriteFile(there + "/a.ini", Mark + "\n[G]\nk = 1\n");
    SettingsOpen(ToUtf16(there + "/a.ini"), GroupSpacing);
    fs::rename(there, elsewhere);
    Write(u"G", u"k", u"2");
    EXPECT_TRUE(SettingsFlush()) << "the file is followed when its folder is renamed";
    EXPECT_EQ(ReadFile(elsewhere + "/a.ini"), Mark + "\n[G]\nk = 2\n");
}

TEST_F(SettingsStoreTest, WaitsForAnotherProgramThatIsSaving) {
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

// Every operation, until one fails.
bool Use() {
    return SettingsSelectGroup(u"Other") && SettingsSelectGroup(Long) &&
           SettingsGroupName() == Long && SettingsReadInteger(Long, 0) > 0 &&
           SettingsReadNumber(Long, 0) > 0 && SettingsReadString(Long, u"") != u"" &&
           SettingsReadString(u"none", Long) == Long && SettingsWriteString(Long, u"2") &&
           SettingsWriteString(Long, Longer) && SettingsWriteInteger(Longer, 1234567890123) &&
           (SettingsSelectGroup(Longer), SettingsReadString(Long, u"new") == u"new") &&
           SettingsWriteString(Long, Long) && SettingsSelectGroup(u"Other");
}

TEST_F(SettingsStoreTest, ChangesNothingWhereMemoryIsShort) {
    Start(Old);
    ASSERT_TRUE(Use());
    const std::string saved = Closed();
    bool isDone = false;
    for (int allocation = 1; !isDone; ++allocation) {
        Start(Old);
        isDone = Faults{Faults::Memory, allocation, allocation, ENOMEM}.During(Use);
        EXPECT_EQ(isDone, !Faults::HaveStruck()) << allocation;
        EXPECT_TRUE(isDone || Use()) << allocation;
        EXPECT_EQ(Closed(), saved) << allocation;
    }
}

TEST_F(SettingsStoreTest, NeverOverwritesWhatItCouldNotRead) {
    const std::string text = Old + "accented = \xE9\n";
    WriteFile(file, text);
    const auto open = [&] { return SettingsOpen(path, GroupSpacing); };
    for (const auto& [call, error] : {std::pair(Faults::Memory, ENOMEM), {'R', EIO}}) {
        for (int number = 1;; ++number) {
            const bool isOpen = Faults{call, number, number, error}.During(open);
            EXPECT_EQ(isOpen, !Faults::HaveStruck() || call == 'R') << "the file is there";
            if (!Faults::HaveStruck()) {
                break;
            }
            EXPECT_TRUE(SettingsWriteString(u"k", u"1"));
            EXPECT_FALSE(SettingsFlush());
            EXPECT_NE(SettingsSaveError(), 0);
            EXPECT_EQ(Closed(), text) << number;
        }
    }
}

TEST_F(SettingsStoreTest, LosesNothingWhicheverCallFails) {
    const std::u16string large(5000, u'v');
    const std::string edited = Old + "[\xE9]\n";
    // What the file holds when the store is flushed, nothing where it has gone, and the value that
    // is written.
    const std::pair<std::string, std::u16string> cases[] = {
        {Old, u""}, {Old, large}, {edited, u""}, {edited, large}, {"", large}};
    // With which error calls fail, each alone or all from there on.
    const struct {
        std::string Calls;
        int Error;
        bool IsLasting;
        bool IsHarmless;
    } failures[] = {
        {"FRWST", EINTR, false, true},  {"RW", Faults::Half, false, true},
        {"FS", EINVAL, false, true},    {"F", EIO, true, true},
        {"FRWST", ENOSPC, true, false}, {"FRWST", ENOSPC, false, false},
        {"RWST", EIO, true, false},     {"RWST", EIO, false, false},
        {"M", ENOMEM, false, false},
    };
    for (const auto& [before, value] : cases) {
        const auto start = [&, before = before, value = value] {
            Start(Old);
            ASSERT_TRUE(Use() && SettingsWriteString(u"x", value));
            WriteFile(file, before);
            fs::remove(before.empty() ? file : "");
        };
        start();
        ASSERT_TRUE(SettingsFlush());
        const std::string saved = ReadFile(file);
        for (const auto& [calls, error, isLasting, isHarmless] : failures) {
            for (const char call : calls) {
                bool hasStruck = true;
                for (int number = 1; hasStruck; ++number) {
                    start();
                    SCOPED_TRACE(call + std::to_string(error) + ' ' + std::to_string(number));
                    const int last = isLasting ? Faults::Always : number;
                    const bool isSaved = Faults{call, number, last, error}.During(SettingsFlush);
                    hasStruck = Faults::HaveStruck();
                    EXPECT_EQ(isSaved, !hasStruck || isHarmless);
                    EXPECT_EQ(SettingsSaveError(), isSaved ? 0 : error);
                    if (isSaved || !isLasting) {
                        EXPECT_EQ(ReadFile(file), isSaved ? saved : before);
                    }
                    // A tail that is left over goes when the new text is on the disk.
                    const char* const order = saved.size() < before.size() ? "FWSTS" : "FWS";
                    EXPECT_TRUE(hasStruck || Faults::Trace().ends_with(order));
                    SettingsFlush();
                    EXPECT_EQ(ReadFile(file), saved) << "the next try";
                }
            }
        }
    }
}

}  // namespace
}  // namespace rotavel
