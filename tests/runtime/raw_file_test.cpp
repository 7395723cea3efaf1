#include "runtime/raw_file.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/support/faults.h"
#include "tests/support/temporary_folder.h"

namespace rotavel {
namespace {

using namespace tests;

constexpr Replacement Done = Replacement::Done;
constexpr Replacement Refused = Replacement::Refused;
constexpr Replacement Mixed = Replacement::Mixed;

TEST(RawFile, ReplacesWholeOrPutsTheOldContentBack) {
    const std::string old = "old text";
    const std::string shorter = "new";
    const std::string longer = "a longer text";
    const struct {
        std::string Content;
        Faults::Plan Fault;
        Replacement Outcome;
        std::string After;
        const char* Calls;
    } cases[] = {
        {shorter, {}, Done, shorter, "FWSTS"},
        {longer, {}, Done, longer, "FWS"},
        {"", {}, Done, "", "STS"},
        {shorter, {'F', 1, 1, EOPNOTSUPP}, Done, shorter, "FWSTS"},
        {longer, {'F', 1, 1, ENOSPC}, Refused, old, "FT"},
        {longer, {'W', 1, 3, Faults::Half}, Done, longer, "FWWWWS"},
        {longer, {'W', 1, 1, ENOSPC}, Refused, old, "FWWTS"},
        {longer, {'W', 1, Faults::Always, EIO}, Mixed, "old ngxt", "FWWTS"},
        {longer, {'S', 1, 1, EINVAL}, Done, longer, "FWS"},
        {longer, {'S', 1, 1, EIO}, Refused, old, "FWSWTS"},
        {longer, {'S', 1, Faults::Always, EIO}, Mixed, old, "FWSWTS"},
        {shorter, {'T', 1, 1, EIO}, Refused, old, "FWSTWTS"},
        {longer, {'T', 1, Faults::Always, EIO}, Done, longer, "FWS"},
        {shorter, {'S', 2, 2, ENOSPC}, Refused, old, "FWSTSWTS"},
    };
    const TemporaryFolder folder;
    const std::string path = folder.File("file");
    for (const auto& [content, fault, outcome, after, calls] : cases) {
        WriteFile(path, old);
        RawFile file;
        ASSERT_TRUE(file.OpenForUpdate(path));
        const Faults faults(fault);
        EXPECT_EQ(file.Replace(content, old), outcome) << calls;
        EXPECT_EQ(faults.Trace(), calls);
        EXPECT_EQ(ReadFile(path), after) << calls;
        if (outcome != Done) {
            EXPECT_EQ(file.Error(), fault.Error) << calls;
        }
    }
}

TEST(RawFile, MakesAWholeFileOrNone) {
    const TemporaryFolder folder;
    const std::string path = folder.File("file");
    const std::string link = folder.File("link");
    std::filesystem::create_symlink("file", link);
    RawFile model;
    WriteFile(folder.File("model"), "");
    ASSERT_EQ(chmod(folder.File("model").c_str(), 0602), 0);
    ASSERT_TRUE(model.OpenForReading(folder.File("model")));
    for (const Faults::Plan& fault : {Faults::Plan{'F', 1, 1, ENOSPC}, Faults::Plan{'W', 1, 1, EIO},
                                      Faults::Plan{'S', 1, 1, EIO}}) {
        RawFile file;
        const Faults faults(fault);
        EXPECT_FALSE(file.Create(link, "text", &model));
        EXPECT_EQ(file.Error(), fault.Error);
        EXPECT_FALSE(std::filesystem::exists(path)) << fault.Call;
        EXPECT_TRUE(std::filesystem::is_symlink(link)) << fault.Call;
    }
    RawFile file;
    EXPECT_TRUE(file.Create(link, "text", &model));
    EXPECT_EQ(ReadFile(path), "text");
    EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms(0602));
    EXPECT_FALSE(RawFile().Create(path, "other"));
    EXPECT_EQ(ReadFile(path), "text") << "a file that holds something is left alone";
}

}  // namespace
}  // namespace rotavel
