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

class SettingsFailureTest : public SettingsTest {
  protected:
    void StartWithOld() {
        Start(Old);
        SettingsSelectGroup(LONG);
    }
    // All that the store shows without being changed.
    std::u16string State() const {
        return SettingsGroupName() + ToUtf16(ReadFile(file)) + SettingsReadString(LONG, u"none") +
               SettingsReadString(u"x", u"none") + SettingsReadString(LONG LONG, u"none");
    }
};

std::u16string Told(double result) {
    return ToUtf16(std::to_string(static_cast<int>(result)));
}

TEST_F(SettingsFailureTest, ChangesNothingWhereMemoryIsShort) {
    const auto nothing = [] {};
    const auto leave = [] { SettingsSelectGroup(LONG LONG); };
    const auto write = [] { SettingsWriteString(LONG LONG, LONG); };
    const auto flush = [] { return Told(SettingsFlush()); };
    const std::pair<std::function<void()>, std::function<std::u16string()>> cases[] = {
        {nothing, [] { return Told(SettingsSelectGroup(u"Other")); }},
        {leave, [] { return Told(SettingsSelectGroup(LONG)); }},
        {nothing, [] { return Told(SettingsSelectGroup(LONG LONG)); }},
        {nothing, [] { return SettingsGroupName(); }},
        {nothing, [] { return SettingsReadString(LONG, u""); }},
        {nothing, [] { return SettingsReadString(u"none", LONG); }},
        {nothing, [] { return Told(double(SettingsReadInteger(LONG, 7))); }},
        {nothing, [] { return Told(SettingsReadNumber(LONG, 7)); }},
        {nothing, [] { return Told(SettingsWriteString(LONG, LONG)); }},
        {nothing, [] { return Told(SettingsWriteString(LONG, u"2")); }},
        {nothing, [] { return Told(SettingsWriteString(LONG LONG, LONG)); }},
        {leave, [] { return Told(SettingsWriteString(LONG, u"1")); }},
        {nothing, [] { return Told(SettingsWriteInteger(LONG, -1234567890123)); }},
        {write, flush},
        {[&] { write(), WriteFile(file, Old + "[\xE9]\n"); }, flush},
        {[&] { leave(), write(), WriteFile(file, "[B]\n"); }, flush},
        {[&] { write(), std::filesystem::remove(file); }, flush},
    };
    for (const auto& [prepare, run] : cases) {
        StartWithOld();
        prepare();
        const std::u16string success = run();
        const std::u16string after = State();
        const std::string saved = Closed();
        bool isRefused = true;
        for (int allocation = 1; isRefused; ++allocation) {
            SCOPED_TRACE(std::to_string(&run - &cases[0].second) + " " +
                         std::to_string(allocation));
            StartWithOld();
            prepare();
            const std::u16string before = State();
            std::u16string result;
            {
                const Faults faults({Faults::Memory, allocation, allocation, ENOMEM});
                result = run();
                isRefused = faults.HaveStruck();
            }
            if (isRefused) {
                EXPECT_TRUE(result.empty() || result == u"0");
                EXPECT_EQ(State(), before);
                result = run();
            }
            EXPECT_EQ(result, success);
            EXPECT_EQ(State(), after);
            EXPECT_EQ(Closed(), saved);
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
