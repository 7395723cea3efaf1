#include "settings/program_location.h"

#include <gtest/gtest.h>

namespace rotavel {
namespace {

TEST(ProgramLocation, SplitsPaths) {
    const struct {
        const char16_t *Path, *Directory, *File, *Stripped;
    } cases[] = {{u"/Programs/Rotavel/bin/X", u"/Programs/Rotavel/bin/", u"X", u"X"},
                 {u"\"/a/b.txt\"", u"/a/", u"b.txt", u"b"},
                 {u"/a/.profile", u"/a/", u".profile", u".profile"},
                 {u"/a/b.", u"/a/", u"b.", u"b."},
                 {u"x.tar gz", u"", u"x.tar gz", u"x.tar gz"},
                 {u"x.tar.gz", u"", u"x.tar.gz", u"x.tar"},
                 {u"/a.b/", u"/a.b/", u"", u""},
                 {u"\"", u"", u"", u""}};
    for (const auto& [path, directory, file, stripped] : cases) {
        EXPECT_EQ(DirectoryPart(path), directory);
        EXPECT_EQ(FilePart(path, 0), file);
        EXPECT_EQ(FilePart(path, StripExtension), stripped);
    }
}

}  // namespace
}  // namespace rotavel
