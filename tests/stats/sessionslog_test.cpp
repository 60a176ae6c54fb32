#include "stats/sessionslog.h"

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "stats/sessionsview.h"
#include "support/temporaryfolder.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testsupport::TemporaryFolder;

/// A session with a net result; all other fields tell which it was.
SessionRecord Session(std::int64_t number, std::int64_t net = 0) {
    SessionRecord record{};
    for (std::size_t i = 0; i < record.size(); ++i) {
        record[i] = currency{number * 100 + static_cast<std::int64_t>(i)};
    }
    record[SessionStat::MoneyNet] = Dollars(net);
    return record;
}

struct SessionsLogTest : testing::Test {
    std::string Path() const { return Folder.Path("ann.slg"); }
    std::string Bytes() const { return Folder.Read("ann.slg"); }
    void Write(const std::string& bytes) const { Folder.Write("ann.slg", bytes); }
    void AppendSessions(int first, int last) const {
        for (int n = first; n <= last; ++n) ASSERT_EQ(AppendSessionRecord(Path(), Session(n)), "");
    }
    /// Numbers that the sessions were made with, by what the file says.
    std::vector<int> Numbers() const {
        SessionsLog log;
        EXPECT_EQ(log.Open(Path()), "");
        std::vector<int> numbers;
        log.ForEach([&](std::int32_t, const SessionRecord& record) {
            numbers.push_back(static_cast<int>(record[0].TenThousandths / 100));
            return true;
        });
        return numbers;
    }

    TemporaryFolder Folder;
};

TEST_F(SessionsLogTest, BytesOfALog) {
    ASSERT_EQ(AppendSessionRecord(Path(), Session(0x12345, -1)), "");
    const std::string bytes = Bytes();
    ASSERT_EQ(bytes.size(), 512u);
    std::string title = "Tarnwick Sessions Log, Data Format 5.0";
    title.resize(92, ' ');
    EXPECT_EQ(bytes.substr(0, 92), title);
    EXPECT_EQ(bytes.substr(92, 4), std::string("\1\0\0\0", 4));
    EXPECT_EQ(bytes.substr(96, 160), std::string(160, '\0'));
    const auto money = [](std::int64_t n) {
        std::string text;
        for (int i = 0; i < 8; ++i) text += static_cast<char>(static_cast<std::uint64_t>(n) >> 8 * i & 0xFF);
        return text;
    };
    for (int i = 0; i < SessionStatCount; ++i) {
        EXPECT_EQ(bytes.substr(256 + 8 * static_cast<std::size_t>(i), 8), money(i == 8 ? -10'000 : 7456500 + i)) << i;
    }
    AppendSessions(2, 3);
    EXPECT_EQ(Bytes().substr(92, 4), std::string("\3\0\0\0", 4));
    EXPECT_THAT(Numbers(), ElementsAre(0x12345, 2, 3));
}

TEST_F(SessionsLogTest, DefaultNames) {
    EXPECT_EQ(DefaultSessionsLogName("Ann"), "ann.slg");
    EXPECT_EQ(DefaultSessionsLogName("A/B\\C:D*E?F\"G<H>I|J"), "a_b_c_d_e_f_g_h_i_j.slg");
}

TEST_F(SessionsLogTest, WhatIsNoLogIsLeftAlone) {
    AppendSessions(1, 1);
    std::string older = Bytes();
    older.replace(older.find("5.0"), 3, "3.9");
    for (const std::string& bytes : {std::string("short"), std::string(600, 'x'), older}) {
        Write(bytes);
        SessionsLog log;
        EXPECT_NE(log.Open(Path()), "");
        EXPECT_EQ(log.Count(), 0);
        EXPECT_NE(AppendSessionRecord(Path(), Session(1)), "");
        EXPECT_NE(DeleteSessions(Path(), 1, 1), "");
        EXPECT_THAT(SessionsLogRefusal(Path()),
                    HasSubstr(" is either from an older version, has been corrupted, or is not a true Tarnwick "
                              "Sessions Log."));
        EXPECT_EQ(Bytes(), bytes);
    }
    EXPECT_NE(SessionsLogRefusal(Folder.Path("missing.slg")), "");
    SessionsLog log;
    EXPECT_EQ(log.Open(Folder.Path("missing.slg")), "");
    EXPECT_EQ(log.Count(), 0);
}

TEST_F(SessionsLogTest, TheCountIsOnlyTrustedAsFarAsTheFileGoes) {
    AppendSessions(1, 3);
    const std::string good = Bytes();
    struct Case {
        const char* What;
        std::string Count;
        std::size_t FileLength;
        int Sessions;
    };
    const Case cases[] = {
        {"as written", std::string("\3\0\0\0", 4), 1024, 3},
        {"less than the file holds", std::string("\2\0\0\0", 4), 1024, 2},
        {"more than the file holds", std::string("\4\0\0\0", 4), 1024, 3},
        {"far more", std::string("\377\377\377\177", 4), 1024, 3},
        {"negative", std::string("\377\377\377\377", 4), 1024, 0},
        {"last record cut", std::string("\3\0\0\0", 4), 1023, 2},
        {"header cut", std::string("\3\0\0\0", 4), 200, 0},
        {"records gone", std::string("\3\0\0\0", 4), 256, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.What);
        Write((good.substr(0, 92) + c.Count + good.substr(96)).substr(0, c.FileLength));
        EXPECT_EQ(Numbers().size(), static_cast<std::size_t>(c.Sessions));
        AppendSessions(9, 9);
        EXPECT_EQ(Numbers().size(), static_cast<std::size_t>(c.Sessions) + 1);
        EXPECT_EQ(Numbers().back(), 9) << "the new session overwrites what lay behind the count";
    }
}

TEST_F(SessionsLogTest, ACrashLosesOneSessionAtMost) {
    AppendSessions(1, 1);
    const std::string one = Bytes();
    AppendSessions(2, 2);
    const std::string two = Bytes();
    // Ahead of the header nothing tells of the second record yet.
    for (std::size_t written = 0; written <= 256; written += 64) {
        Write(one + two.substr(512, written));
        EXPECT_THAT(Numbers(), ElementsAre(1));
        AppendSessions(3, 3);
        EXPECT_THAT(Numbers(), ElementsAre(1, 3));
    }
    // The very first record goes ahead of the header too.
    Write(std::string(256, '\0') + one.substr(256, 100));
    EXPECT_THAT(Numbers(), IsEmpty());
    AppendSessions(4, 4);
    EXPECT_THAT(Numbers(), ElementsAre(4));
}

TEST_F(SessionsLogTest, Deleting) {
    struct Case {
        std::int64_t First, Last;
        std::vector<int> Left;
        bool Good;
    };
    const Case cases[] = {
        {2, 3, {1, 4, 5}, true},    {3, 2, {1, 4, 5}, true}, {1, 1, {2, 3, 4, 5}, true},
        {5, 5, {1, 2, 3, 4}, true}, {1, 5, {}, true},        {0, 1, {}, false},
        {5, 6, {}, false},          {-1, -1, {}, false},     {4'294'967'297, 4'294'967'297, {}, false},
    };
    for (const Case& c : cases) {
        ASSERT_EQ(DeleteSessionsLog(Path()), "");
        AppendSessions(1, 5);
        EXPECT_EQ(DeleteSessions(Path(), c.First, c.Last), c.Good ? "" : SessionsOutOfRange) << c.First;
        EXPECT_EQ(Numbers(), c.Good ? c.Left : (std::vector<int>{1, 2, 3, 4, 5})) << c.First << " to " << c.Last;
        EXPECT_EQ(Bytes().size(), 6u * 256) << "the file keeps its length";
        EXPECT_EQ(Folder.Count(), 1);
        AppendSessions(7, 7);
        EXPECT_EQ(Numbers().back(), 7);
    }
    ASSERT_EQ(CreateSessionsLog(Path()), "");
    EXPECT_THAT(Numbers(), IsEmpty());
    EXPECT_EQ(Bytes().size(), 256u);
    EXPECT_EQ(SessionsLogRefusal(Path()), "");
}

TEST_F(SessionsLogTest, ReadingParts) {
    AppendSessions(1, 5);
    SessionsLog log;
    ASSERT_EQ(log.Open(Path()), "");
    struct Case {
        int First, Count;
        std::size_t Got;
    };
    for (const Case& c :
         {Case{1, 5, 5}, {1, 99, 5}, {5, 2, 1}, {6, 1, 0}, {0, 1, 0}, {-3, 9, 0}, {2, 0, 0}, {2, -1, 0}}) {
        std::vector<SessionRecord> records;
        log.Read(c.First, c.Count, records);
        EXPECT_EQ(records.size(), c.Got) << c.First << "+" << c.Count;
    }
}

TEST_F(SessionsLogTest, TwoProgramsAtOnceLoseNothing) {
    constexpr int count = 300;
    for (int k = 1; k <= 2; ++k) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child != 0) continue;
        bool good = true;
        for (int i = 0; i < count; ++i) {
            good = AppendSessionRecord(Path(), Session(k)).empty() && good;
            // A deletion replaces the file under the other one.
            if (i % 10 == 9) good = AppendSessionRecord(Path(), Session(3)).empty() && good;
            if (k == 1 && i == 150) good = DeleteSessions(Path(), 1, 1).empty() && good;
        }
        _exit(good ? 0 : 1);
    }
    for (int k = 1; k <= 2; ++k) {
        int status = -1;
        wait(&status);
        EXPECT_EQ(status, 0);
    }
    const std::vector<int> numbers = Numbers();
    EXPECT_EQ(numbers.size(), 2u * count + 2 * count / 10 - 1);
    EXPECT_EQ(std::count(numbers.begin(), numbers.end(), 3), 2 * count / 10);
}

TEST_F(SessionsLogTest, RawData) {
    const std::int64_t nets[] = {10, 0, -5, 1'234, -5, 10};
    for (const std::int64_t net : nets) ASSERT_EQ(AppendSessionRecord(Path(), Session(1, net)), "");
    SessionsLog log;
    ASSERT_EQ(log.Open(Path()), "");
    const auto page = [&](const SessionsQuery& view, int top, int count) {
        std::vector<std::string> lines;
        for (const RawDataLine& line : RawDataPage(log, view, top, count)) {
            lines.push_back(std::to_string(line.Session) + " " + line.Outcome + " " + line.Value);
        }
        return lines;
    };
    SessionsQuery view;
    EXPECT_THAT(page(view, 2, 3), ElementsAre("2 Broke-even 0", "3 Lost -5.0", "4 Won 1,234.0"));
    EXPECT_THAT(page(view, 6, 3), ElementsAre("6 Won 10.0"));
    EXPECT_THAT(page(view, 7, 3), IsEmpty());
    view.Lost = false;
    EXPECT_THAT(page(view, 2, 2), ElementsAre("2 Broke-even 0", "4 Won 1,234.0"));
    view.BreakLow = Dollars(-5);
    view.BreakHigh = Dollars(10);
    EXPECT_THAT(page(view, 1, 4), ElementsAre("1 -5 - 10 10.0", "2 -5 - 10 0", "3 -5 - 10 -5.0", "4 > 10 1,234.0"));
    view.Won = view.Even = false;
    EXPECT_THAT(page(view, 1, 4), IsEmpty());
}

TEST_F(SessionsLogTest, FindingAValue) {
    const std::int64_t nets[] = {10, 0, -5, 1'234, -5, 10};
    for (const std::int64_t net : nets) ASSERT_EQ(AppendSessionRecord(Path(), Session(1, net)), "");
    SessionsLog log;
    ASSERT_EQ(log.Open(Path()), "");
    struct Case {
        const char* Text;
        int From;
        bool Forward;
        bool WithLost;
        int Found;
    };
    const Case cases[] = {
        {"10", 1, true, true, 6},       {"10", 6, true, true, 1},   {"10", 2, false, true, 1},
        {"10", 1, false, true, 6},      {"-5", 3, true, true, 5},   {"-5", 5, true, true, 3},
        {"-5", 1, true, false, 0},      {"1234", 1, true, true, 4}, {"$1,234.00", 4, true, true, 4},
        {"1,234.0", 4, false, true, 4}, {"7", 1, true, true, 0},    {"ten", 1, true, true, 0},
        {"0", 99, true, true, 2},       {"", 1, true, true, 0},
    };
    for (const Case& c : cases) {
        SessionsQuery view;
        view.Lost = c.WithLost;
        EXPECT_EQ(FindSession(log, view, c.Text, c.From, c.Forward), c.Found) << c.Text << " from " << c.From;
    }
    EXPECT_EQ(FindSession(SessionsLog(), {}, "1", 1, true), 0);
}

TEST(SessionsScrollBar, GoesByProportion) {
    EXPECT_EQ(SessionsScrollValue(1, 0), 0);
    EXPECT_EQ(SessionsScrollValue(1, 1), 1);
    EXPECT_EQ(SessionsScrollValue(1, 100), 1);
    EXPECT_EQ(SessionsScrollValue(100, 100), 30'000);
    EXPECT_EQ(SessionsScrollValue(51, 101), 15'000);
    EXPECT_EQ(TopSessionOf(1, 100), 1);
    EXPECT_EQ(TopSessionOf(15'000, 101), 51);
    EXPECT_EQ(TopSessionOf(30'000, 2'147'483'647), 2'147'483'647);
    EXPECT_EQ(TopSessionOf(30'000, 0), 1);
}

}  // namespace
}  // namespace tarnwick
