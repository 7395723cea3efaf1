#include "runtime/raw_file.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "temporary_folder.h"

namespace rotavel {
namespace {

using tests::ReadFile;
using tests::TemporaryFolder;
using tests::WriteFile;

TEST(RawFile, RefusesWhatIsNoRegularFile) {
    const TemporaryFolder folder;
    const std::string pipe = folder.File("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string socketFile = folder.File("socket");
    sockaddr_un address = {.sun_family = AF_UNIX, .sun_path = {}};
    socketFile.copy(address.sun_path, sizeof address.sun_path - 1);
    const int endpoint = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(endpoint, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);

    RawFile file;
    for (const std::string& path : {folder.Path(), pipe, socketFile, std::string("/dev/null"),
                                    folder.File("missing/file"), std::string()}) {
        EXPECT_FALSE(file.OpenForUpdate(path)) << path;
        EXPECT_FALSE(file.OpenForReading(path)) << path;
        EXPECT_FALSE(file.Create(path)) << path;
        EXPECT_FALSE(file.IsOpen()) << path;
    }
    close(endpoint);
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

TEST(RawFile, LeavesTheOldContentOnAFullDisk) {
    const TemporaryFolder folder;
    // A mount name space of this process alone, so that nothing outlives it.
    if (unshare(CLONE_NEWNS) != 0 ||
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        mount("none", folder.Path().c_str(), "tmpfs", 0, "size=64k") != 0) {
        GTEST_SKIP() << "mounting a small file system takes a privileged user";
    }
    const std::string path = folder.File("file");
    const std::string old(10000, 'o');
    WriteFile(path, old);
    RawFile file;
    ASSERT_TRUE(file.OpenForUpdate(path));
    EXPECT_FALSE(file.Replace(std::string(100000, 'n')));
    EXPECT_EQ(ReadFile(path), old);
    EXPECT_TRUE(file.Replace(std::string(20000, 'n')));
    file.Close();
    EXPECT_EQ(umount(folder.Path().c_str()), 0);
}

}  // namespace
}  // namespace rotavel
