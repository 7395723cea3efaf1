#include <cerrno>
#include <functional>
#include <gtest/gtest.h>

#include "settings/settings_store.h"
#include "tests/support/faults.h"
#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel {
namespace {

using tests::Faults;
using tests::ReadFile;
using tests::TemporaryFolder;
using tests::WriteFile;

// Long enough not to fit into a text object itself.
#define LONG u"A text longer than a short one"

const std::string Mark = "\xEF\xBB\xBF";
const std::string Old = Mark + "\n[A text longer than a short one]\nA text longer than a short " +
                        "one = 1\n\n[Other]\nx = " + std::string(300, 'x') + "\n";

class SettingsFailureTest : public testing::Test {
  protected:
    ~SettingsFailureTest() override { SettingsClose(); }

    bool Open() const { return SettingsOpen(path, GroupSpacing); }

    // Opens the file anew and selects its first group.
    void Start() const {
        SettingsClose();
        WriteFile(file, Old);
        ASSERT_TRUE(Open());
        ASSERT_TRUE(SettingsSelectGroup(LONG));
    }

    // All that the store shows without being changed.
    std::u16string State() const {
        std::u16string state = SettingsGroupName() + ToUtf16(ReadFile(file));
        for (const std::u16string_view key : {std::u16string_view(LONG), std::u16string_view(u"x"),
                                              std::u16string_view(LONG LONG)}) {
            state += u',';
            state += SettingsReadString(key, u"none");
        }
        return state;
    }

    // What the file holds once the store is closed.
    std::string Closed() const {
        SettingsClose();
        return ReadFile(file);
    }

    const TemporaryFolder folder;
    const std::string file = folder.File("Rotavel.ini");
    const std::u16string path = ToUtf16(file);
};

std::u16string Result(double value) {
    return ToUtf16(std::to_string(static_cast<int>(value)));
}

TEST_F(SettingsFailureTest, ChangesNothingWhereMemoryIsShort) {
    const auto nothing = [] {};
    const auto write = [] { SettingsWriteString(LONG LONG, LONG); };
    const struct {
        const char* Name;
        std::function<void()> Prepare;
        std::function<std::u16string()> Run;
        std::u16string Failure;
    } cases[] = {
        {"select", nothing, [] { return Result(SettingsSelectGroup(u"Other")); }, u"0"},
        {"select long", [] { SettingsRewindGroups(); },
         [] { return Result(SettingsSelectGroup(LONG)); }, u"0"},
        {"select missing", nothing, [] { return Result(SettingsSelectGroup(LONG LONG)); }, u"0"},
        {"name", nothing, [] { return SettingsGroupName(); }, u""},
        {"text", nothing, [] { return SettingsReadString(LONG, u""); }, u""},
        {"default", nothing, [] { return SettingsReadString(u"none", LONG); }, u""},
        {"integer", nothing, [] { return Result(double(SettingsReadInteger(LONG, 7))); }, u"0"},
        {"number", nothing, [] { return Result(SettingsReadNumber(LONG, 7)); }, u"0"},
        {"longer", nothing, [] { return Result(SettingsWriteString(LONG, LONG)); }, u"0"},
        {"same length", nothing, [] { return Result(SettingsWriteString(LONG, u"2")); }, u"0"},
        {"new key", nothing, [] { return Result(SettingsWriteString(LONG LONG, LONG)); }, u"0"},
        {"new group", [] { SettingsSelectGroup(LONG LONG); },
         [] { return Result(SettingsWriteString(LONG, u"1")); }, u"0"},
        {"write integer", nothing,
         [] { return Result(SettingsWriteInteger(LONG, -1234567890123)); }, u"0"},
        {"flush", write, [] { return Result(SettingsFlush()); }, u"0"},
        {"flush over an edited file",
         [&] {
             write();
             WriteFile(file, Old + "[\xE9]\n");
         },
         [] { return Result(SettingsFlush()); }, u"0"},
        {"flush into a missing group",
         [&] {
             SettingsSelectGroup(LONG LONG);
             write();
             WriteFile(file, "[B]\n");
         },
         [] { return Result(SettingsFlush()); }, u"0"},
        {"flush with no file",
         [&] {
             write();
             std::filesystem::remove(file);
         },
         [] { return Result(SettingsFlush()); }, u"0"},
    };
    for (const auto& [name, prepare, run, failure] : cases) {
        Start();
        prepare();
        const std::u16string success = run();
        const std::u16string after = State();
        const std::string saved = Closed();
        bool isRefused = true;
        for (int allocation = 1; isRefused; ++allocation) {
            Start();
            prepare();
            const std::u16string before = State();
            std::u16string result;
            {
                const Faults faults({Faults::Memory, allocation, allocation, ENOMEM});
                result = run();
                isRefused = faults.HaveStruck();
            }
            EXPECT_EQ(result, isRefused ? failure : success) << name << allocation;
            if (isRefused) {
                EXPECT_EQ(State(), before) << name << allocation;
                EXPECT_EQ(run(), success) << name << allocation;
            }
            EXPECT_EQ(State(), after) << name << allocation;
            EXPECT_EQ(Closed(), saved) << name << allocation;
        }
    }
}

TEST_F(SettingsFailureTest, NeverOverwritesWhatItHadNoMemoryToOpen) {
    const std::string text = Old + "accented = \xE9\n";
    bool isRefused = true;
    for (int allocation = 1; isRefused; ++allocation) {
        WriteFile(file, text);
        {
            const Faults faults({Faults::Memory, allocation, allocation, ENOMEM});
            const bool isOpen = Open();
            isRefused = faults.HaveStruck();
            EXPECT_EQ(isOpen, !isRefused) << allocation;
        }
        if (isRefused) {
            EXPECT_TRUE(SettingsWriteString(u"k", u"1"));
            EXPECT_FALSE(SettingsFlush());
            EXPECT_NE(SettingsSaveError(), 0);
            EXPECT_EQ(Closed(), text) << allocation;
        }
    }
    SettingsWriteString(u"k", u"1");
    {
        const Faults faults({Faults::Memory, 1, 1, ENOMEM});
        SettingsClose();
    }
    EXPECT_EQ(SettingsSaveError(), ENOMEM);
    EXPECT_EQ(ReadFile(file), text);
}

TEST_F(SettingsFailureTest, LosesNothingWhicheverSystemCallFails) {
    const struct {
        const char* Name;
        std::function<void()> Edit;
        std::string Before;
    } cases[] = {
        {"as it was read", [] {}, Old},
        {"edited", [&] { WriteFile(file, Old + "[New]\n"); }, Old + "[New]\n"},
        {"gone", [&] { std::filesystem::remove(file); }, ""},
    };
    for (const auto& [name, edit, before] : cases) {
        for (const std::u16string& value : {std::u16string(), std::u16string(5000, u'v')}) {
            const auto start = [&, editFile = edit] {
                Start();
                SettingsSelectGroup(u"Other");
                ASSERT_TRUE(SettingsWriteString(u"x", value));
                editFile();
            };
            start();
            ASSERT_TRUE(SettingsFlush());
            const std::string saved = ReadFile(file);
            for (const char call : std::string(Faults::CallNames)) {
                for (const int error : {EINTR, Faults::Half, ENOSPC, EIO}) {
                    for (const bool isLasting : {false, true}) {
                        // These never end, or are no failure.
                        if ((isLasting && error == EINTR) ||
                            (error == Faults::Half && call != 'R' && call != 'W')) {
                            continue;
                        }
                        bool hasStruck = true;
                        for (int number = 1; hasStruck; ++number) {
                            start();
                            SCOPED_TRACE(std::string(name) + call + std::to_string(error) +
                                         std::to_string(isLasting) + std::to_string(number));
                            {
                                const Faults faults(
                                    {call, number, isLasting ? Faults::Always : number, error});
                                const bool isSaved = SettingsFlush();
                                hasStruck = faults.HaveStruck();
                                EXPECT_EQ(SettingsSaveError(), isSaved ? 0 : error);
                                if (isSaved || !isLasting) {
                                    EXPECT_EQ(ReadFile(file), isSaved ? saved : before);
                                }
                                EXPECT_EQ(isSaved, !hasStruck || error == EINTR ||
                                                       error == Faults::Half ||
                                                       (call == 'F' && error == EIO));
                            }
                            SettingsFlush();
                            EXPECT_EQ(ReadFile(file), saved) << "the next try";
                        }
                    }
                }
            }
        }
    }
}

TEST_F(SettingsFailureTest, NeverRewritesWhatItCouldNotRead) {
    WriteFile(file, Old);
    {
        const Faults faults({'R', 1, 1, EIO});
        EXPECT_TRUE(Open()) << "the file is there";
    }
    EXPECT_TRUE(SettingsWriteString(u"k", u"1"));
    EXPECT_FALSE(SettingsFlush());
    EXPECT_EQ(SettingsSaveError(), EIO);
    EXPECT_EQ(Closed(), Old);
}

}  // namespace
}  // namespace rotavel
