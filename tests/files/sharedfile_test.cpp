#include "files/sharedfile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>

#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

using testsupport::TemporaryFolder;
using Use = SharedFile::Use;

TEST(SharedFileTest, WhatCanBeOpened) {
    const TemporaryFolder folder;
    folder.Write("there", "abc");
    std::filesystem::create_directory(folder.Path("sub"));
    ASSERT_EQ(mkfifo(folder.Path("pipe").c_str(), 0600), 0);
    struct Case {
        std::string Name;
        Use How;
        bool Opens;
    };
    const Case cases[] = {
        {"there", Use::Read, true},
        {"there", Use::ChangeExisting, true},
        {"there", Use::Change, true},
        {"missing", Use::Read, false},
        {"missing", Use::ChangeExisting, false},
        {"made", Use::Change, true},
        {"sub", Use::Read, false},
        {"sub", Use::Change, false},
        {"pipe", Use::Read, false},
        {"no/folder", Use::Change, false},
        {std::string("nul\0inside", 10), Use::Change, false},
    };
    for (const Case& c : cases) {
        SharedFile file;
        const std::string fault = file.Open(folder.Path(c.Name), c.How);
        EXPECT_EQ(fault.empty(), c.Opens) << c.Name << ": " << fault;
        EXPECT_EQ(file.IsOpen(), c.Opens) << c.Name;
    }
    SharedFile file;
    EXPECT_NE(file.Open("", Use::Read), "");
}

TEST(SharedFileTest, ReadsAndWritesAtPlaces) {
    const TemporaryFolder folder;
    SharedFile file;
    ASSERT_EQ(file.Open(folder.Path("f"), Use::Change), "");
    ASSERT_EQ(file.WriteAt(3, "defg"), "");
    ASSERT_EQ(file.WriteAt(0, "abc"), "");
    ASSERT_EQ(file.Cut(6), "");
    char bytes[8] = {};
    EXPECT_EQ(file.ReadAt(2, bytes, sizeof bytes), 4u);
    EXPECT_STREQ(bytes, "cdef");
    EXPECT_EQ(file.Length(), 6);
    EXPECT_EQ(file.ReadAt(6, bytes, 1), 0u);
}

TEST(SharedFileTest, SecondHandleWaitsForTheLock) {
    const TemporaryFolder folder;
    SharedFile first;
    ASSERT_EQ(first.OpenLocked(folder.Path("f")), "");
    std::atomic<bool> released = false, early = false;
    std::thread other([&] {
        SharedFile second;
        EXPECT_EQ(second.OpenLocked(folder.Path("f")), "");
        early = !released;
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    released = true;
    first.Close();
    other.join();
    EXPECT_FALSE(early);
}

TEST(SharedFileTest, LockIsOfTheFileThatThePathLeadsTo) {
    const TemporaryFolder folder;
    SharedFile first;
    ASSERT_EQ(first.OpenLocked(folder.Path("f")), "");
    std::thread other([&] {
        SharedFile second;
        EXPECT_EQ(second.OpenLocked(folder.Path("f")), "");
        EXPECT_EQ(second.WriteAt(0, "new"), "");
    });
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    ASSERT_EQ(first.WriteAt(0, "old"), "");
    ASSERT_EQ(first.Remove(), "");
    EXPECT_FALSE(first.IsStillThere());
    first.Close();
    other.join();
    EXPECT_EQ(folder.Read("f"), "new");
}

}  // namespace
}  // namespace tarnwick
