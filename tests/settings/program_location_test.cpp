#include "settings/program_location.h"

#include <filesystem>
#include <gtest/gtest.h>

#include "text/utf.h"

namespace rotavel {
namespace {

TEST(ProgramLocation, SplitsPaths) {
    const struct {
        const char16_t* Path;
        const char16_t* Directory;
        const char16_t* File;
        const char16_t* Stripped;
    } cases[] = {
        {u"/Applications/X.app/Contents/MacOS/X", u"/Applications/X.app/Contents/MacOS/", u"X",
         u"X"},
        {u"\"/a/b.txt\"", u"/a/", u"b.txt", u"b"},
        {u"/a/.profile", u"/a/", u".profile", u".profile"},
        {u"/a/b.", u"/a/", u"b.", u"b."},
        {u"a b.c", u"", u"a b.c", u"a b"},
        {u"x.tar gz", u"", u"x.tar gz", u"x.tar gz"},
        {u"x.tar.gz", u"", u"x.tar.gz", u"x.tar"},
        {u"/a.b/", u"/a.b/", u"", u""},
        {u"\"", u"", u"", u""},
    };
    for (const auto& [path, directory, file, stripped] : cases) {
        EXPECT_EQ(DirectoryPart(path), directory);
        EXPECT_EQ(FilePart(path, 0), file);
        EXPECT_EQ(FilePart(path, StripExtension), stripped);
    }
}

TEST(ProgramLocation, FindsTheRunningProgram) {
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
    EXPECT_EQ(ProgramFilename(), ToUtf16(program.string()));
    std::filesystem::current_path("/");
    EnterBundleContents();
    EXPECT_EQ(std::filesystem::current_path(), program.parent_path().parent_path());
}

}  // namespace
}  // namespace rotavel
