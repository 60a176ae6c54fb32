// A whole evening at the table in the Events Log, all kinds of event on, against a file that was read line by line.

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "dice/dice.h"
#include "stats/checkstacks.h"
#include "stats/eventslog.h"
#include "stats/tablelogs.h"
#include "support/table_fixture.h"
#include "support/temporaryfolder.h"
#include "support/transcript.h"
#include "table/bankroll.h"
#include "table/rundriver.h"

namespace tarnwick {
namespace {

using testsupport::TemporaryFolder;

constexpr const char* GoldenFile = "tests/golden/events/evening.txt";

struct EveningScreen : WatchingScreen {
    std::string DateText() override { return "3/9/2024"; }
    std::string TimeText() override { return "8:15 PM"; }
};

struct EveningLogTest : testing::Test {
    EveningLogTest() {
        SubMain(t, &Front);
        t.Logs = &Logs;
        SeedEverything(t, 20'240'309);
        t.NotifyBits = 0;
        SetEventsLogOn(t, true);
    }

    void Seat(int p, const char* name, std::int64_t dollars) {
        ASSERT_EQ(AddPlayer(t, p, name, Dollars(dollars)), "");
        t.WinnerHandling[static_cast<std::size_t>(p)] = t.LoserHandling[static_cast<std::size_t>(p)] = 1;
    }
    void Bet(int p, int row, std::int64_t dollars) { PlaceBet(t, p, row, Dollars(dollars)); }

    void Arrive() {
        Seat(1, "Ann", 500);
        Seat(8, "Zo\u00eb", 300);
        NewSession(t, {});
        SetCheckStack(t, 1, 7, currency{125'000});
    }

    /// A point with everything on it: Come and Don't Come bets that travel, calls, an ATM, a stack.
    void FirstHand() {
        Bet(1, Row::PassLine, 10);
        Bet(8, Row::DontPass, 10);
        PadRoll(t, 4, 4);
        Bet(1, Row::PassLineOdds, 20);
        Bet(1, Row::Come, 5);
        Bet(8, Row::DontCome, 5);
        Bet(8, Row::Place4 + 2, 12);
        SetCheckStack(t, 1, 7, Dollars(-3));
        PadRoll(t, 6, 3);
        CallBet(t, 8, Row::Place4 + 2, false);
        Bet(1, Row::Field, 5);
        AtmTransaction(t, 8, Dollars(100));
        PadRoll(t, 5, 1);
        CallBet(t, 8, Row::Place4 + 2, true);
        Bet(1, Row::Hard8, 2);
        PadRoll(t, 4, 2);
        Bet(8, Row::Place4 + 2, -12);
        Bet(1, Row::Come4 + 4, 3);
        AtmTransaction(t, 8, Dollars(-40));
        PadRoll(t, 4, 4);
    }

    void SevenOuts() {
        Bet(1, Row::PassLine, 10);
        PadRoll(t, 2, 2);
        PadRoll(t, 3, 4);  // Zoe shoots next
        Bet(8, Row::PassLine, 10);
        PadRoll(t, 1, 2);
        Bet(8, Row::PassLine, 10);
        PadRoll(t, 6, 5);
        Bet(8, Row::PassLine, 10);
        PadRoll(t, 5, 5);
        t.AutoPassDice[1] = true;
        PadRoll(t, 5, 2);  // Ann doesn't want to
    }

    void ComingAndGoing() {
        t.AutoPassDice[1] = false;
        PassTheDice(t, PassMode::Request);
        RenamePlayer(t, 8, "Zed");
        MovePlayer(t, 1, 4);
        Seat(2, "Bo", 200);
        Bet(4, Row::PassLine, 10);
        Bet(2, Row::PassLine, 25);
        PadRoll(t, 3, 3);
        RemovePlayer(t, 2);
        Seat(3, "Cy", 100);
        Bet(3, Row::Field, 5);
        PadRoll(t, 1, 1);
        RemovePlayer(t, 3);
        Seat(3, "Di", 100);
        Bet(3, Row::Seven, 5);
        Bet(3, Row::Place4 + 3, 6);
        CallBet(t, 3, Row::Place4 + 3, true);
        PadRoll(t, 1, 1);
        RemovePlayer(t, 3);
        Front.Clock = 123'456;
        SeedRNG(t, SeedMode::Normal, false);
    }

    void ARun() {
        t.ShooterBetRequirement = 0;
        t.WinnerHandling[4] = t.LoserHandling[4] = 2;
        t.RunUntilRoll = SessionRolls(t) + 12;
        ToggleAutoRoll(t);
        t.RecordBetsLost = false;
        t.RecordShooterChanges = false;
        t.RunUntilRoll = SessionRolls(t) + 6;
        ToggleAutoRoll(t);
        t.RecordBetsLost = t.RecordShooterChanges = true;
    }

    void NextSession() {
        SessionOptions options;
        options.KeepData = false;
        NewSession(t, options);
        RemovePlayer(t, 4);
        RemovePlayer(t, 8);
        NewSession(t, options);
    }

    std::unique_ptr<Table> Game = std::make_unique<Table>();
    Table& t = *Game;
    EveningScreen Front;
    TemporaryFolder Folder;
    TableLogs Logs{Folder.Path("")};
};

TEST_F(EveningLogTest, ComesOutAsItStands) {
    Arrive();
    FirstHand();
    SevenOuts();
    ComingAndGoing();
    ARun();
    NextSession();
    const std::string log = Folder.Read("Events Log.txt");
    const char* renew = std::getenv("TARNWICK_RENEW_GOLDEN");
    if (renew != nullptr && *renew == '1') std::ofstream(GoldenFile, std::ios::binary) << log;
    EXPECT_EQ(testsupport::SplitLines(log), testsupport::SplitLines(testsupport::ReadWholeFile(GoldenFile)));
    EventsLogReader reader;
    ASSERT_EQ(reader.Open(Logs.EventsLog(t)), "");
    EXPECT_EQ(reader.Find("zo\u00eb joined", reader.Lines(), true), 2);
    EXPECT_GT(reader.Find("NET WIN", 1, true) + reader.Find("net loss", 1, true), 0);
}

}  // namespace
}  // namespace tarnwick
