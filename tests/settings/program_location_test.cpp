#include "settings/program_location.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel {
namespace {

namespace fs = std::filesystem;

constexpr const char* TellOnly = "ROTAVEL_TELL_LOCATION";

// What this program writes to the file of its place when a shell starts it by `command`.
std::string Told(const std::string& command, const std::string& file) {
    const std::string tell = std::string(TellOnly) + "='" + file + "' bash -c '" + command;
    const std::string one = " \"$@\"' - --gtest_filter=ProgramLocation.IsWhere* >/dev/null";
    EXPECT_EQ(std::system((tell + one).c_str()), 0);
    return tests::ReadFile(file);
}

TEST(ProgramLocation, IsWhereTheProgramWasStartedIfSettingsAreKeptThere) {
    if (const char* const file = std::getenv(TellOnly)) {
        EnterBundleContents();
        tests::WriteFile(file, ToUtf8(ProgramFilename()) + " in " + fs::current_path().string());
        return;
    }
    const tests::TemporaryFolder folder;
    const std::string root = fs::canonical(folder.Path());
    const std::string house = root + "/own place";
    const fs::path executable = fs::read_symlink("/proc/self/exe");
    fs::create_directories(house + "/bin");
    fs::create_directories(house + "/Resources");
    fs::create_directories(root + "/bare/bin");
    fs::create_symlink(executable, house + "/bin/Link");
    fs::create_symlink(house + "/bin/Link", root + "/bare/bin/Link");
    const std::string latin = root + "/Sp\xE4t";  // not UTF-8
    fs::copy(house, latin, fs::copy_options::recursive | fs::copy_options::copy_symlinks);

    const std::string there = house + "/bin/Link in " + house;
    const std::pair<std::string, std::string> cases[] = {
        {"\"" + house + "/bin/Link\"", there},
        {"exec -a Other \"" + house + "/bin/Link\"", there},
        {"PATH=\"" + house + "/bin:$PATH\"; Link", there},
        {"cd \"" + house + "\" && bin/../bin/Link", house + "/bin/../bin/Link in " + house},
        {"cd " + latin + " && bin/Link", "/proc/self/cwd/bin/Link in " + latin},
        {root + "/bare/bin/Link",
         executable.string() + " in " + executable.parent_path().parent_path().string()}};
    for (const auto& [command, told] : cases) {
        EXPECT_EQ(Told(command, folder.File("told")), told);
    }
}

}  // namespace
}  // namespace rotavel
