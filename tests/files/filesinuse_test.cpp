// Where the files of a game lie.
#include "files/filesinuse.h"

#include <gmock/gmock.h>

#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using Entry = PathGroup::Entry;
using testing::ElementsAre;
using testing::IsEmpty;

struct FilesInUseTest : TableTest {
    TableLogs Logs{"/home/ann/craps"};
    std::vector<PathGroup> Groups() const { return FilesInUse(t, Logs, "/usr/bin", "/home/ann/craps"); }
    std::vector<Entry> Of(const std::string& heading) const {
        for (PathGroup& group : Groups()) {
            if (group.Heading == heading) return group.Entries;
        }
        ADD_FAILURE() << heading;
        return {};
    }
};

TEST_F(FilesInUseTest, AnEmptyTableHasItsStandingFiles) {
    std::vector<std::string> headings;
    for (const PathGroup& group : Groups()) headings.push_back(group.Heading);
    EXPECT_THAT(headings, ElementsAre("Tarnwick location:", "Game File:", "Events Log File:", "Dice Roll File:",
                                      "Probability File:", "Auto-Bet Files:", "Sessions Log Files:"));
    EXPECT_THAT(Of("Tarnwick location:"), ElementsAre(Entry{"", "/usr/bin"}, Entry{"", "/home/ann/craps"}));
    EXPECT_THAT(Of("Game File:"), ElementsAre(Entry{"", "/home/ann/craps/default.crp"}));
    EXPECT_THAT(Of("Events Log File:"), ElementsAre(Entry{"", "/home/ann/craps/Events Log.txt"}));
    for (const char* none : {"Dice Roll File:", "Probability File:", "Auto-Bet Files:", "Sessions Log Files:"}) {
        EXPECT_THAT(Of(none), IsEmpty()) << none;
    }
    EXPECT_THAT(FilesInUse(t, Logs, "/opt/t", "/opt/t/")[0].Entries, ElementsAre(Entry{"", "/opt/t"}))
        << "one folder for both";
}

TEST_F(FilesInUseTest, FilesOfTheGameAndItsPlayers) {
    Seat(2, "Ann");
    Seat(7, "Bo B");
    t.GameFolder = "/games";
    t.GameFileName = "/games/friday.crp";
    t.EventsLogFileName = "/logs/mine.txt";
    t.DiceRollFileName = "rolls.rol";
    t.ProbabilityFileName = "/prob/sixes.prb";
    t.ScriptName[7] = "/bets/iron cross.bet";
    t.ScriptName[3] = "/bets/nobody.bet";
    t.SessionsLogName[2] = "/logs/ann.slg";
    t.SessionsLogName[7].clear();
    EXPECT_THAT(Of("Game File:"), ElementsAre(Entry{"", "/games/friday.crp"}));
    EXPECT_THAT(Of("Events Log File:"), ElementsAre(Entry{"", "/logs/mine.txt"}));
    EXPECT_THAT(Of("Dice Roll File:"), ElementsAre(Entry{"", "/games/rolls.rol"}));
    EXPECT_THAT(Of("Probability File:"), ElementsAre(Entry{"", "/prob/sixes.prb"}));
    EXPECT_THAT(Of("Auto-Bet Files:"), ElementsAre(Entry{"Bo B", "/bets/iron cross.bet"}));
    EXPECT_THAT(Of("Sessions Log Files:"),
                ElementsAre(Entry{"Ann", "/logs/ann.slg"}, Entry{"Bo B", "/home/ann/craps/bo b.slg"}));
}

}  // namespace
}  // namespace tarnwick
