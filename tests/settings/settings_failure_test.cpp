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
                        "one = 1\n\n[Other]\nx = " + std::string(1000, 'x') + "\n";

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
    Start(Old);
    ASSERT_TRUE(Use());
    const std::string saved = Closed();
    bool isRefused = true;
    for (int allocation = 1; isRefused; ++allocation) {
        Start(Old);
        const bool isDone = Faults{Faults::Memory, allocation, allocation, ENOMEM}.During(Use);
        isRefused = Faults::HaveStruck();
        EXPECT_EQ(isDone, !isRefused) << allocation;
        EXPECT_TRUE(isDone || Use()) << allocation;
        EXPECT_EQ(Closed(), saved) << allocation;
    }
}

TEST_F(SettingsFailureTest, NeverOverwritesWhatItCouldNotRead) {
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

TEST_F(SettingsFailureTest, LosesNothingWhicheverCallFails) {
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
            std::filesystem::remove(before.empty() ? file : "");
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
