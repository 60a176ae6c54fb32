// Hot keys and their file, byte by byte, and files that are damaged.

#include "autobet/hotkeys.h"

#include <gmock/gmock.h>

#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testsupport::TemporaryFolder;

/// A record as the file holds it: three texts padded with blanks, the rest 0.
std::string FileRecord(const std::string& key, std::string name, std::string file) {
    name.resize(100, ' ');
    file.resize(100, ' ');
    std::string record = key + name + file;
    record.resize(256, '\0');
    return record;
}
std::string FileHead(const std::string& count) { return FileRecord(" ", "Tarnwick Hot-Key File", count); }

const HotKeyList& SomeKeys() {
    static const HotKeyList list{{"B", "Press the six", "/home/ann/press 6.bet"},
                                 {"A", "Zo\u00EB's \u20AC5", "C:\\Bets\\a.bet"},
                                 {"B", "never runs", "b.bet"}};
    return list;
}

std::string BytesOfSomeKeys() {
    return FileHead("3") + FileRecord("B", "Press the six", "/home/ann/press 6.bet") +
           FileRecord("A",
                      "Zo\xEB's \x80"
                      "5",
                      "C:\\Bets\\a.bet") +
           FileRecord("B", "never runs", "b.bet");
}

TEST(HotKeys, FileHoldsEveryByteAtItsPlace) {
    EXPECT_EQ(HotKeyFileBytes(SomeKeys()), BytesOfSomeKeys());
    EXPECT_EQ(HotKeyFileBytes({}), FileHead("0"));
    EXPECT_EQ(HotKeysFromBytes(BytesOfSomeKeys()), SomeKeys());
}

TEST(HotKeys, FirstRowOfALetterRuns) {
    const HotKeyList& list = SomeKeys();
    const struct {
        char Letter;
        const HotKey* Row;
    } cases[] = {{'A', &list[1]}, {'a', &list[1]}, {'B', &list[0]}, {'C', nullptr}, {' ', nullptr}, {'\0', nullptr}};
    for (const auto& c : cases) EXPECT_EQ(FindHotKey(list, c.Letter), c.Row) << c.Letter;
    EXPECT_EQ(FindHotKey({{"", "", "x"}, {"1", "", "x"}, {"AB", "", "x"}}, '1'), nullptr);
}

TEST(HotKeys, CountIsReadAsANumberAndTheFileEndsTheList) {
    const std::string rows = BytesOfSomeKeys().substr(256);
    const struct {
        std::string Count;
        std::size_t Rows;
    } cases[] = {{"3", 3},  {"2", 2},   {"0", 0},     {"", 0},           {"none", 0},   {" 2 rows", 2}, {"-1", 0},
                 {"99", 3}, {"2.5", 2}, {"1e300", 3}, {"4294967297", 3}, {"-1e300", 0}, {"nan", 0},     {"1 ", 1}};
    for (const auto& c : cases) EXPECT_EQ(HotKeysFromBytes(FileHead(c.Count) + rows).size(), c.Rows) << c.Count;
}

TEST(HotKeys, CutFilesGiveTheRowsThatAreWhole) {
    const std::string bytes = BytesOfSomeKeys();
    for (std::size_t length = 0; length <= bytes.size(); ++length) {
        const HotKeyList list = HotKeysFromBytes(bytes.substr(0, length));
        // The last 55 bytes of a record hold nothing.
        const std::size_t whole = length < 256 ? 0 : (length - 256 + 55) / 256;
        ASSERT_EQ(list, HotKeyList(SomeKeys().begin(), SomeKeys().begin() + static_cast<std::ptrdiff_t>(whole)))
            << length;
    }
}

TEST(HotKeys, FlippedBytesNeverGrowTheList) {
    const std::string bytes = BytesOfSomeKeys();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        for (const int flip : {0x01, 0x08, 0x80, bytes[at] & 0xFF, bytes[at] ^ '\n'}) {
            std::string damaged = bytes;
            damaged[at] = static_cast<char>(damaged[at] ^ flip);
            const HotKeyList list = HotKeysFromBytes(damaged);
            ASSERT_LE(list.size(), 3u) << at;
            ASSERT_EQ(HotKeysFromBytes(HotKeyFileBytes(list)), list) << at;
        }
    }
}

TEST(HotKeys, RefusesPathsThatTheFileWouldChange) {
    constexpr const char* NoFile = "Please enter an Auto-Bet filename to define this Hot-Key.";
    constexpr const char* BadPath = "Path, file, or device error.";
    const struct {
        std::string File, Refusal;
    } cases[] = {{"a.bet", ""},
                 {std::string(100, 'x'), ""},
                 {std::string(101, 'x'), BadPath},
                 {"", NoFile},
                 {"\u0141\u00F3d\u017A.bet", BadPath},
                 {"\u00E9t\u00E9.bet", ""},
                 {"a.bet ", BadPath},
                 {"a\nb.bet", BadPath},
                 {"a\xFF.bet", BadPath}};
    const TemporaryFolder folder;
    const std::string path = folder.Path("HotKeys.dta");
    for (const auto& c : cases) {
        EXPECT_EQ(HotKeyRefusal({"A", "", c.File}), c.Refusal) << c.File;
        folder.Write("HotKeys.dta", "old");
        // A row without a file, as an old list may hold, is no reason to lose the others.
        EXPECT_EQ(SaveHotKeys(path, {{"B", "", "b.bet"}, {"A", "", c.File}}), c.Refusal == BadPath ? BadPath : "");
        if (c.Refusal == BadPath) {
            EXPECT_EQ(folder.Read("HotKeys.dta"), "old") << c.File;
        }
    }
    const HotKey accents{"A", std::string(100, 'x'), std::string()};
    EXPECT_EQ(HotKeysFromBytes(HotKeyFileBytes({{"A", accents.Description + "beyond", ""}})), HotKeyList{accents});
}

TEST(HotKeys, LoadAndSave) {
    const TemporaryFolder folder;
    const std::string path = folder.Path("HotKeys.dta");
    HotKeyList list = SomeKeys();
    EXPECT_THAT(LoadHotKeys(path, list), IsEmpty());
    EXPECT_THAT(list, IsEmpty());
    EXPECT_THAT(SaveHotKeys(path, SomeKeys()), IsEmpty());
    EXPECT_EQ(folder.Read("HotKeys.dta"), BytesOfSomeKeys());
    EXPECT_THAT(LoadHotKeys(path, list), IsEmpty());
    EXPECT_EQ(list, SomeKeys());
    EXPECT_THAT(LoadHotKeys(folder.Path(""), list), HasSubstr("can't be read: not a file"));
    EXPECT_EQ(list, SomeKeys());
    EXPECT_THAT(SaveHotKeys(folder.Path("none/HotKeys.dta"), list), HasSubstr("can't be written: No such file"));
}

}  // namespace
}  // namespace tarnwick
