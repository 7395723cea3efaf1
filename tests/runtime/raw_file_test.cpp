#include "runtime/raw_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/temporary_folder.h"

namespace rotavel {
namespace {

using tests::TemporaryFolder;

TEST(RawFile, RefusesWhatIsNoRegularFile) {
    const TemporaryFolder folder;
    const std::string pipe = folder.File("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    RawFile file;
    for (const std::string& path :
         {folder.Path(), pipe, std::string("/dev/null"), folder.File("no/file"), std::string()}) {
        EXPECT_FALSE(file.OpenForUpdate(path)) << path;
        EXPECT_FALSE(file.OpenForReading(path)) << path;
        EXPECT_FALSE(file.Create(path)) << path;
        EXPECT_FALSE(file.IsOpen()) << path;
    }
}

}  // namespace
}  // namespace rotavel
