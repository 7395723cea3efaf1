#include <cerrno>
#include <functional>

#include "settings_test.h"
#include "tests/support/faults.h"

namespace rotavel {
namespace {

using namespace tests;

// Long enough not to fit into a text object itself.
#define LONG u"A text longer than a short one"

const std::string Old = Mark + "\n[A text longer than a short one]\nA text longer than a short " +
                        "one = 1\n\n[Other]\nx = " + std::string(300, 'x') + "\n";

using SettingsFailureTest = SettingsTest;

// Every operation, until one fails.
bool Use() {
    return SettingsSelectGroup(u"Other") && SettingsSelectGroup(LONG) &&
           SettingsGroupName() == LONG && SettingsReadInteger(LONG, 0) > 0 &&
           SettingsReadNumber(LONG, 0) > 0 && SettingsReadString(LONG, u"") != u"" &&
           SettingsReadString(u"none", LONG) == LONG && SettingsWriteString(LONG, u"2") &&
           SettingsWriteString(LONG, u"3" LONG) && SettingsWriteInteger(LONG LONG, 1234567890123) &&
           (SettingsSelectGroup(LONG LONG), SettingsReadString(LONG, u"new") == u"new") &&
           SettingsWriteString(LONG, LONG) && SettingsSelectGroup(u"Other");
}

TEST_F(SettingsFailureTest, ChangesNothingWhereMemoryIsShort) {
    const std::function<void()> edits[] = {[] {}, [&] { WriteFile(file, Old + "[\xE9]\n"); },
                                           [&] { std::filesystem::remove(file); }};
    const std::pair<bool (*)(), bool (*)()> runs[] = {{[] { return true; }, Use},
                                                      {Use, SettingsFlush}};
    for (const auto& edit : edits) {
        Start(Old);
        ASSERT_TRUE(Use());
        edit();
        const std::string saved = Closed();
        for (const auto& [prepare, run] : runs) {
            bool isRefused = true;
            for (int allocation = 1; isRefused; ++allocation) {
                Start(Old);
                ASSERT_TRUE(prepare());
                edit();
                const std::string before = ReadFile(file);
                {
                    const Faults faults({Faults::Memory, allocation, allocation, ENOMEM});
                    const bool isDone = run();
                    isRefused = faults.HaveStruck();
                    EXPECT_EQ(isDone, !isRefused) << allocation;
                }
                if (isRefused) {
                    EXPECT_EQ(ReadFile(file), before) << allocation;
                    EXPECT_TRUE(run()) << allocation;
                }
                EXPECT_EQ(Closed(), saved) << allocation;
            }
        }
    }
}

TEST_F(SettingsFailureTest, NeverOverwritesWhatItCouldNotOpen) {
    const std::string text = Old + "accented = \xE9\n";
    const auto expectNoOverwriting = [&] {
        EXPECT_TRUE(SettingsWriteString(u"k", u"1"));
        EXPECT_FALSE(SettingsFlush());
        EXPECT_NE(SettingsSaveError(), 0);
        EXPECT_EQ(Closed(), text);
    };
    WriteFile(file, text);
    bool isRefused = true;
    for (int allocation = 1; isRefused; ++allocation) {
        {
            const Faults faults({Faults::Memory, allocation, allocation, ENOMEM});
            const bool isOpen = SettingsOpen(path, GroupSpacing);
            isRefused = faults.HaveStruck();
            EXPECT_EQ(isOpen, !isRefused) << allocation;
        }
        if (isRefused) {
            expectNoOverwriting();
        }
    }
    {
        const Faults faults({'R', 1, 1, EIO});
        EXPECT_TRUE(SettingsOpen(path, GroupSpacing)) << "the file is there";
    }
    expectNoOverwriting();
    SettingsOpen(path, GroupSpacing);
    SettingsWriteString(u"k", u"1");
    {
        const Faults faults({Faults::Memory, 1, 1, ENOMEM});
        SettingsClose();
    }
    EXPECT_EQ(SettingsSaveError(), ENOMEM);
    EXPECT_EQ(ReadFile(file), text);
}

TEST_F(SettingsFailureTest, LosesNothingWhicheverSystemCallFails) {
    const std::pair<std::function<void()>, std::string> edits[] = {
        {[] {}, Old},
        {[&] { WriteFile(file, Old + "[New]\n"); }, Old + "[New]\n"},
        {[&] { std::filesystem::remove(file); }, ""},
    };
    // How calls fail: with which error, each alone or all from there on.
    const std::pair<int, bool> failures[] = {{EINTR, false}, {Faults::Half, false}, {ENOSPC, false},
                                             {EIO, false},   {ENOSPC, true},        {EIO, true}};
    for (const auto& [edit, before] : edits) {
        for (const std::u16string& value : {std::u16string(), std::u16string(5000, u'v')}) {
            const auto start = [&, editFile = edit] {
                Start(Old);
                SettingsSelectGroup(u"Other");
                ASSERT_TRUE(SettingsWriteString(u"x", value));
                editFile();
            };
            start();
            ASSERT_TRUE(SettingsFlush());
            const std::string saved = ReadFile(file);
            for (const char call : std::string("FRWST")) {
                for (const auto& [error, isLasting] : failures) {
                    const bool isHarmless =
                        error == EINTR || error == Faults::Half || (call == 'F' && error == EIO);
                    bool hasStruck = error != Faults::Half || call == 'R' || call == 'W';
                    for (int number = 1; hasStruck; ++number) {
                        start();
                        SCOPED_TRACE(call + std::to_string(error) + ' ' + std::to_string(number));
                        {
                            const int last = isLasting ? Faults::Always : number;
                            const Faults faults({call, number, last, error});
                            const bool isSaved = SettingsFlush();
                            hasStruck = faults.HaveStruck();
                            EXPECT_EQ(isSaved, !hasStruck || isHarmless);
                            EXPECT_EQ(SettingsSaveError(), isSaved ? 0 : error);
                            if (isSaved || !isLasting) {
                                EXPECT_EQ(ReadFile(file), isSaved ? saved : before);
                            }
                        }
                        SettingsFlush();
                        EXPECT_EQ(ReadFile(file), saved) << "the next try";
                    }
                }
            }
        }
    }
}

}  // namespace
}  // namespace rotavel
