// Files replaced as a whole, also where the disk refuses.

#include "files/atomicfile.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>

#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testsupport::TemporaryFolder;

TEST(ReplaceFile, MakesAndReplaces) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("table.dta");
    for (const std::string& bytes : {std::string("first, and longer"), std::string("a\0b\r\n", 5), std::string()}) {
        EXPECT_THAT(ReplaceFile(path, bytes), IsEmpty());
        EXPECT_EQ(folder.Read("table.dta"), bytes);
        EXPECT_EQ(folder.Count(), 1);
    }
}

TEST(ReplaceFile, KeepsPermissionsAndFollowsLinks) {
    const TemporaryFolder folder;
    const std::string path = folder.Write("real", "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real", folder.Path("link"));
    EXPECT_THAT(ReplaceFile(folder.Path("link"), "new"), IsEmpty());
    EXPECT_TRUE(fs::is_symlink(folder.Path("link")));
    EXPECT_EQ(folder.Read("real"), "new");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(folder.Count(), 2);
}

TEST(ReplaceFile, AFaultLeavesTheOldFile) {
    const TemporaryFolder folder;
    folder.Write("good", "old");
    fs::create_directory(folder.Path("folder"));
    fs::create_directory(folder.Path("good.tmp~"));  // stands where the new file must be written
    const int before = folder.Count();
    const struct {
        std::string Path, Fault;
    } cases[] = {{"", "not a file name"},
                 {std::string("a\0b", 3), "not a file name"},
                 {folder.Path("folder"), "not a file"},
                 {folder.Path("missing/new"), "No such file"},
                 {folder.Path("good"), "directory"},
                 {folder.Path(std::string(300, 'x')), "too long"}};
    for (const auto& c : cases) EXPECT_THAT(ReplaceFile(c.Path, "new"), HasSubstr(c.Fault)) << c.Path;
    EXPECT_EQ(folder.Read("good"), "old");
    EXPECT_EQ(folder.Count(), before);
}

TEST(ReplaceFile, AFullDiskLeavesTheOldFile) {
    if (!fs::exists("/dev/full")) GTEST_SKIP() << "needs /dev/full";
    const TemporaryFolder folder;
    const std::string path = folder.Write("good", "old");
    fs::create_symlink("/dev/full", path + ".tmp~");
    EXPECT_THAT(ReplaceFile(path, "new"), HasSubstr("No space left"));
    EXPECT_EQ(folder.Read("good"), "old");
}

TEST(ReplaceFile, AFolderThatMayNotBeWrittenKeepsTheOldFile) {
    if (geteuid() == 0) GTEST_SKIP() << "the superuser may write everywhere";
    const TemporaryFolder folder;
    const std::string path = folder.Write("good", "old");
    fs::permissions(folder.Path(""), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THAT(ReplaceFile(path, "new"), Not(IsEmpty()));
    EXPECT_EQ(folder.Read("good"), "old");
}

TEST(ReadWholeFile, ReadsFilesUpToALength) {
    const TemporaryFolder folder;
    const std::string bytes(70'000, 'b');
    const struct {
        std::string Path;
        std::size_t Longest;
        std::string Fault;
    } cases[] = {{folder.Write("whole", bytes), bytes.size(), ""},
                 {folder.Write("empty", ""), 0, ""},
                 {folder.Path("whole"), bytes.size() - 1, "longer than 69999 bytes"},
                 {folder.Path("missing"), 100, "No such file or directory"},
                 {folder.Path(""), 100, "not a file"},
                 {"/dev/zero", 100, "not a file"},
                 {"", 100, "not a file name"}};
    for (const auto& c : cases) {
        std::string read = "as before";
        EXPECT_EQ(ReadWholeFile(c.Path, c.Longest, read), c.Fault) << c.Path;
        if (!c.Fault.empty()) {
            EXPECT_EQ(read, "as before") << c.Path;
        }
    }
    std::string read;
    EXPECT_THAT(ReadWholeFile(folder.Path("whole"), 1u << 20, read), IsEmpty());
    EXPECT_EQ(read, bytes);
}

}  // namespace
}  // namespace tarnwick
