#include "settings/program_location.h"

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <tuple>

#include "tests/support/temporary_folder.h"
#include "text/utf.h"

namespace rotavel {
namespace {

namespace fs = std::filesystem;

constexpr const char* TellOnly = "ROTAVEL_TELL_LOCATION";

TEST(ProgramLocation, IsWhereTheProgramWasStartedIfSettingsAreKeptThere) {
    if (const char* const file = std::getenv(TellOnly)) {
        EnterBundleContents();
        tests::WriteFile(file, ToUtf8(ProgramFilename()) + " in " + fs::current_path().string());
        return;
    }
    const tests::TemporaryFolder folder;
    const std::string told = folder.File("told");
    const std::string house = fs::canonical(folder.Path()).string() + "/own place";
    const fs::path executable = fs::read_symlink("/proc/self/exe");
    fs::create_directories(house + "/bin/bin");
    fs::create_directories(house + "/Resources");
    fs::create_symlink(executable, house + "/bin/Link");
    fs::create_symlink(house + "/bin/Link", house + "/bin/bin/Link");

    const std::pair<std::string, std::string> cases[] = {
        {"exec -a Other \"" + house + "/bin/Link\"", house + "/bin/Link in " + house},
        {"cd \"" + house + "\" && bin/../bin/Link", house + "/bin/../bin/Link in " + house},
        {"\"" + house + "/bin/bin/Link\"",
         executable.string() + " in " + executable.parent_path().parent_path().string()}};
    for (const auto& [command, place] : cases) {
        const std::string started = std::string(TellOnly) + "='" + told + "' bash -c '" + command +
                                    " --gtest_filter=ProgramLocation.*' >/dev/null";
        EXPECT_EQ(std::system(started.c_str()), 0);
        EXPECT_EQ(tests::ReadFile(told), place);
    }
}

TEST(ProgramLocation, NamesThePartsOfAPath) {
    const std::tuple<const char16_t*, std::uint32_t, const char16_t*> cases[] = {
        {u"\"/a.b/c.txt\" d", StripExtension, u"c"},
        {u"\"/a.b/c.txt\"", 0, u"c.txt"},
        {u"/a/.profile", StripExtension, u".profile"},
        {u"/a/b.", StripExtension, u"b."},
        {u"/a/b. c", StripExtension, u"b. c"}};
    for (const auto& [path, flags, name] : cases) {
        EXPECT_EQ(FilePart(path, flags), name);
    }
}

}  // namespace
}  // namespace rotavel
