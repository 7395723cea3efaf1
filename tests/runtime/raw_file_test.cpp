#include "runtime/raw_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "temporary_folder.h"

namespace rotavel {
namespace {

using tests::ReadFile;
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

TEST(RawFile, ReplacesTheWholeContent) {
    const TemporaryFolder folder;
    const std::string path = folder.File("file");
    RawFile file;
    EXPECT_FALSE(file.OpenForUpdate(path));
    ASSERT_TRUE(file.Create(path));
    for (const std::string& content : {std::string(100000, 'a'), std::string("short"),
                                       std::string(), std::string("new\0zero", 8)}) {
        EXPECT_TRUE(file.Replace(content));
        EXPECT_EQ(ReadFile(path), content);
        EXPECT_EQ(file.Size(), content.size());
    }
    char block[20];
    EXPECT_EQ(file.Read(block, 3), 3U);
    EXPECT_EQ(file.Read(block, sizeof block), 8U);
    ASSERT_TRUE(file.OpenForReading(path));
    EXPECT_FALSE(file.Replace("x"));
    ASSERT_TRUE(file.Create(path));
    EXPECT_EQ(file.Size(), 0U);
}

}  // namespace
}  // namespace rotavel
