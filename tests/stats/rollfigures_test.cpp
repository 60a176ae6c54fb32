// Figures of rolls and hands: small games worked out by hand.

#include "stats/rollfigures.h"

#include <gmock/gmock.h>

#include <set>

#include "dice/dice.h"
#include "dice/matrix.h"
#include "stats/handfigures.h"
#include "stats/rollevents.h"
#include "stats/summaryfigures.h"
#include "support/table_fixture.h"

namespace tarnwick {
namespace {

using testing::ElementsAre;

constexpr SeatMask Ann = 1u << 1, Bob = 1u << 3, Both = Ann | Bob, All = 0x1fe;

/// Ann shoots 7, then 4, 12, 7; Bob's hand begins with a 10.
struct RollFigures : TableTest {
    void Play() {
        Seat(1, "Ann");
        Seat(3, "Bob");
        Roll(3, 4);
        Roll(2, 2);
        Roll(6, 6);
        Roll(3, 4);
        Roll(5, 5);
        ASSERT_EQ(t.Shooter, 3);
    }
};

const RollTotalsEntry& Entry(const RollTotalsFigures& figures, const std::string& heading) {
    for (const RollTotalsEntry& entry : figures.Entries)
        if (entry.Heading == heading) return entry;
    ADD_FAILURE() << heading;
    return figures.Entries.front();
}

TEST_F(RollFigures, CaptionsOfSelections) {
    struct {
        SeatMask Present, Selected;
        const char* Caption;
    } const cases[] = {
        {0, All, "No players present"},
        {Ann, 0, "No players selected"},
        {Ann, Bob, "No players selected"},
        {Ann, All, "1 player selected"},
        {Both, Ann, "1 player selected"},
        {Both, Both, "Both players selected"},
        {Both, All, "Both players selected"},
        {Both | 16, Both, "2 players selected"},
        {Both | 16, Both | 16, "All players selected"},
        {All, 0x0fe, "7 players selected"},
        {All, 0x1ff, "All players selected"},
    };
    for (const auto& c : cases) {
        for (int p = 1; p < Positions; ++p) t.PlayerName[At(p)] = (c.Present >> p & 1) != 0 ? "x" : "";
        EXPECT_EQ(PlayersCaption(t, c.Selected), c.Caption) << c.Present << " " << c.Selected;
    }
}

TEST_F(RollFigures, RollTotals) {
    Play();
    struct {
        int Scope;
        SeatMask Players;
        RollTotalsMode Mode;
        const char* Heading;
        const char *Rolls, *Appeared, *Since, *Actual, *Probable;
    } const cases[] = {
        {Scope::Session, Both, RollTotalsMode::Number, "7", "5", "2", "1", "40.00", "16.67"},
        {Scope::Session, Both, RollTotalsMode::Number, "2", "5", "0", "5", "0.00", "2.78"},
        {Scope::Session, Ann, RollTotalsMode::Number, "7", "4", "2", "1", "50.00", "16.67"},
        {Scope::Session, Bob, RollTotalsMode::Number, "7", "1", "0", "1", "0.00", "16.67"},
        {Scope::Session, Bob, RollTotalsMode::Number, "10", "1", "1", "0", "100.00", "8.33"},
        {Scope::Session, 0, RollTotalsMode::Number, "7", "0", "0", "1", "0.00", "16.67"},
        {Scope::LastHand, Ann, RollTotalsMode::Number, "12", "4", "1", "2", "25.00", "2.78"},
        {Scope::Hand, Both, RollTotalsMode::Number, "12", "1", "0", "2", "0.00", "2.78"},
        {Scope::All, Both, RollTotalsMode::Combinations, "3.4", "5", "2", "1", "40.00", "2.78"},
        {Scope::All, Both, RollTotalsMode::Combinations, "4.3", "5", "0", "5", "0.00", "2.78"},
        {Scope::All, Both, RollTotalsMode::Combinations, "1.1", "5", "0", "5", "0.00", "2.78"},
        {Scope::All, Both, RollTotalsMode::Die1, "3", "5", "2", "1", "40.00", "16.67"},
        {Scope::All, Both, RollTotalsMode::Die2, "3", "5", "0", "5", "0.00", "16.67"},
        {Scope::All, Both, RollTotalsMode::Die2, "4", "5", "2", "1", "40.00", "16.67"},
    };
    for (const auto& c : cases) {
        const RollTotalsFigures figures = FiguresOfRollTotals(t, c.Scope, c.Players, c.Mode);
        const RollTotalsEntry& entry = Entry(figures, c.Heading);
        SCOPED_TRACE(std::string(RollTotalsModeText(c.Mode)) + " " + c.Heading + " " + std::to_string(c.Scope));
        EXPECT_EQ(figures.TotalRolls.Text, c.Rolls);
        EXPECT_EQ(entry.Appeared.Text, c.Appeared);
        EXPECT_EQ(entry.SinceLast.Text, c.Since);
        EXPECT_EQ(entry.Actual.Text, c.Actual);
        EXPECT_EQ(entry.Probable.Text, c.Probable);
    }
    for (const auto mode :
         {RollTotalsMode::Number, RollTotalsMode::Combinations, RollTotalsMode::Die1, RollTotalsMode::Die2}) {
        std::int64_t appeared = 0, probable = 0;
        for (const RollTotalsEntry& entry : FiguresOfRollTotals(t, Scope::Session, Both, mode).Entries) {
            appeared += entry.Appeared.Value.TenThousandths;
            probable += entry.Probable.Value.TenThousandths;
        }
        EXPECT_EQ(appeared, Dollars(5).TenThousandths) << "every roll is listed once";
        EXPECT_NEAR(static_cast<double>(probable), 1e6, 20);
    }
}

TEST_F(RollFigures, WithoutPlayersTheTableCounts) {
    Roll(3, 4);
    const RollTotalsFigures figures = FiguresOfRollTotals(t, Scope::Session, 0, RollTotalsMode::Number);
    EXPECT_EQ(figures.Players, "No players present");
    EXPECT_EQ(Entry(figures, "7").Appeared.Text, "1");
    EXPECT_EQ(FiguresOfHands(t, Scope::Session, 0).Rows[5].Counts[1].Text, "1");
}

TEST_F(RollFigures, ProbablePercentOfSkewedDice) {
    for (const MatrixCell& cell : MatrixWalk) t.ProbabilityMatrix[1][cell.Col][cell.Row] = 0;
    for (const MatrixCell& cell : MatrixWalk) {
        if (cell.Die1 == 6 && cell.Die2 == 1) t.ProbabilityMatrix[1][cell.Col][cell.Row] = 25'000;
        if (cell.Die1 == 2 && cell.Die2 == 2) t.ProbabilityMatrix[1][cell.Col][cell.Row] = 75'000;
    }
    struct {
        int Event;
        double Percent;
    } const cases[] = {{0, 100}, {1, 0}, {7, 25}, {40, 25}, {39, 0}, {13, 75}, {4, 75}, {83, 25}, {84, 25}, {85, 75}};
    for (const auto& c : cases) EXPECT_DOUBLE_EQ(ProbablePercent(t, c.Event, true), c.Percent) << c.Event;
    EXPECT_DOUBLE_EQ(ProbablePercent(t, 7, false), 100.0 / 6);
    t.UseSkewedProbability = true;
    EXPECT_EQ(Entry(FiguresOfRollTotals(t, 2, 0, RollTotalsMode::Number), "7").Probable.Text, "25.00");
    for (const bool skewed : {true, false}) {
        const RollFrequencyFigures figures = FiguresOfRollFrequency(t, 7, skewed);
        EXPECT_EQ(figures.ProbableCaption, skewed ? "Skewed probable %:" : "True probable %:");
        EXPECT_EQ(figures.Probable.Text, skewed ? "25.00" : "16.67");
    }
    t.UseSkewedProbability = false;
    EXPECT_EQ(FiguresOfRollFrequency(t, 7, true).ProbableCaption, "True probable %:");
    t.ProbabilityMatrix = {};
    EXPECT_DOUBLE_EQ(ProbablePercent(t, 7, true), 100.0 / 6) << "no chances at all: the dice are fair";
}

TEST_F(RollFigures, TheListNamesEachEventOnce) {
    std::set<int> events;
    for (const RollEventName& name : RollFrequencyList()) {
        EXPECT_TRUE(events.insert(name.Event).second) << name.Text;
        // The dice in the text are the event's dice.
        PairMask pairs = 0;
        const std::string text(name.Text);
        for (std::size_t at = text.find('('); at != std::string::npos; at = text.find('(', at + 1))
            pairs |= PairMask{1} << PairIndex(text[at + 1] - '0', text[at + 3] - '0');
        EXPECT_TRUE(pairs == 0 || pairs == PairsOfEvent[At(name.Event)]) << text;
    }
    EXPECT_EQ(events.size(), 88u);
    for (const int k : {0, 1, 90}) EXPECT_EQ(RollEventText(k), "");
    EXPECT_EQ(RollEventText(65), "Numbers 2,3,7,11,12");
    EXPECT_EQ(RollEventText(89), "Die 2, face 6");
}

TEST_F(RollFigures, RollFrequencies) {
    Play();
    const RollFrequencyFigures sevens = FiguresOfRollFrequency(t, 7, false);
    EXPECT_EQ(sevens.Event, "Any 7");
    EXPECT_EQ(sevens.TotalRolls.Text, "5");
    EXPECT_EQ(sevens.TimesRolled.Text, "2");
    EXPECT_EQ(sevens.Actual.Text, "40.00");
    EXPECT_EQ(sevens.Since.Text, "1");
    EXPECT_EQ(sevens.Average.Text, "2.00");
    EXPECT_EQ(sevens.Gaps[1], 1);
    EXPECT_EQ(sevens.Gaps[3], 1);
    EXPECT_EQ(sevens.CountPattern, "000");
    const RollFrequencyFigures none = FiguresOfRollFrequency(t, 2, false);
    EXPECT_EQ(none.Actual.Text, "0.00");
    EXPECT_EQ(none.Average.Text, "0");
    EXPECT_EQ(none.Since.Text, "5");

    for (int i = 0; i < 1000; ++i) Roll(2, 2);
    EXPECT_EQ(FiguresOfRollFrequency(t, 13, false).CountPattern, "000") << "999 gaps of 1 and one of 4";
    Roll(2, 2);
    EXPECT_EQ(FiguresOfRollFrequency(t, 13, false).CountPattern, "0000");
    Roll(3, 4);
    const RollFrequencyFigures longGap = FiguresOfRollFrequency(t, 7, false);
    EXPECT_EQ(longGap.Gaps[200], 1);
    EXPECT_EQ(longGap.Average.Text, "335.67") << "(1 + 3 + 1003) / 3, though gaps from 200 on are not told apart";
    EXPECT_EQ(GapText(199), "199");
    EXPECT_EQ(GapText(200), "200+");
}

TEST_F(RollFigures, Hands) {
    Play();
    struct {
        int Scope;
        SeatMask Players;
        const char *Hands, *Rolls, *MostRolls, *AvgRolls, *AvgComeouts, *AvgPasses, *AvgMisses;
        std::array<const char*, 3> Sevens, Fours, Sums;
    } const cases[] = {
        {Scope::Session,
         Both,
         "2",
         "5",
         "4",
         "2.50",
         "1.5",
         ".50",
         ".50",
         {"1", "1", "0"},
         {"1", "0", "1"},
         {"3", "1", "1"}},
        {Scope::Session,
         Ann,
         "1",
         "4",
         "4",
         "4.00",
         "2",
         "1.00",
         "1.00",
         {"1", "1", "0"},
         {"1", "0", "1"},
         {"2", "1", "1"}},
        {Scope::LastHand, Bob, "0", "0", "0", "0", "0", "0", "0", {"0", "0", "0"}, {"0", "0", "0"}, {"0", "0", "0"}},
        {Scope::LastHand,
         Both,
         "1",
         "4",
         "0",
         "4.00",
         "2",
         "1.00",
         "1.00",
         {"1", "1", "0"},
         {"1", "0", "1"},
         {"2", "1", "1"}},
        {Scope::Hand, Ann, "0", "0", "0", "0", "0", "0", "0", {"0", "0", "0"}, {"0", "0", "0"}, {"0", "0", "0"}},
        {Scope::Session, 0, "0", "0", "0", "0", "0", "0", "0", {"0", "0", "0"}, {"0", "0", "0"}, {"0", "0", "0"}},
        {Scope::LastSession,
         Both,
         "0",
         "0",
         "0",
         "0",
         "0",
         "0",
         "0",
         {"0", "0", "0"},
         {"0", "0", "0"},
         {"0", "0", "0"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(ScopeText(c.Scope)) + " " + std::to_string(c.Players));
        const HandsFigures f = FiguresOfHands(t, c.Scope, c.Players);
        EXPECT_EQ(f.Hands.Text, c.Hands);
        EXPECT_EQ(f.Rolls.Text, c.Rolls);
        EXPECT_EQ(f.MostRolls.Text, c.MostRolls);
        EXPECT_EQ(f.AverageRolls.Text, c.AvgRolls);
        EXPECT_EQ(f.AverageComeouts.Text, c.AvgComeouts);
        EXPECT_EQ(f.AveragePasses.Text, c.AvgPasses);
        EXPECT_EQ(f.AverageMisses.Text, c.AvgMisses);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(f.Rows[5].Counts[i].Text, c.Sevens[i]);
            EXPECT_EQ(f.Rows[2].Counts[i].Text, c.Fours[i]);
            EXPECT_EQ(f.Rows[11].Counts[i].Text, c.Sums[i]);
        }
    }
    const HandsFigures both = FiguresOfHands(t, Scope::Session, Both);
    EXPECT_EQ(both.MostComeouts.Text, "2");
    EXPECT_EQ(both.Rows[5].Percents[1].Text, "33.33");
    EXPECT_EQ(both.Rows[11].Percents[0].Text, "100.00");
}

TEST_F(RollFigures, HoursAndRates) {
    struct {
        std::int64_t Rolls;
        currency Rate;
        const char *OnGraph, *InSummary;
    } const cases[] = {
        {0, Dollars(120), "0", "0"},
        {120, Dollars(120), "1", "1"},
        {1, Dollars(120), ".0083", "0.0083"},
        {150, Dollars(120), "1.25", "1.25"},
        {1199, Dollars(120), "9.992", "9.992"},
        {1080, Dollars(120), "9", "9"},
        {11'941, Dollars(120), "99.51", "99.51"},
        {119'941, Dollars(120), "999.5", "999.5"},
        {150'000'001, Dollars(120), "1,250,000.0", "1,250,000.0"},
        {1, Dollars(100'000), "< 0.0001", "< 0.0001"},
        {1, Dollars(10'000), ".0001", "0.0001"},
        {7, currency{}, "0", "0"},
        {1, currency{5'000}, "2", "2"},
    };
    for (const auto& c : cases) {
        t.RollsPerHour = c.Rate;
        EXPECT_EQ(SimulatedHoursFigure(t, c.Rolls, true).Text, c.OnGraph) << c.Rolls;
        EXPECT_EQ(SimulatedHoursFigure(t, c.Rolls, false).Text, c.InSummary) << c.Rolls;
    }
    struct {
        currency Rate;
        const char *OnGraph, *InSummary;
    } const rates[] = {
        {Dollars(1200), "1,200", "1,200"}, {{5'000}, ".5", "0.5"}, {{1'234'567}, "123.4567", "123.4567"}};
    for (const auto& c : rates) {
        t.RollsPerHour = c.Rate;
        EXPECT_EQ(RollsPerHourFigure(t, true).Text, c.OnGraph);
        EXPECT_EQ(RollsPerHourFigure(t, false).Text, c.InSummary);
    }
}

TEST_F(RollFigures, Summary) {
    Seat(1, "Ann", 1000);
    Seat(3, "Bob", 500);
    t.RollsPerHour = Dollars(100);
    Bet(1, Row::PassLine, 10);
    Bet(3, Row::Field, 4);
    Roll(3, 4);  // Ann wins 10, Bob loses 4
    Bet(1, Row::PassLine, 10);
    Roll(2, 2);
    Roll(3, 4);  // Ann loses 10; the dice go to Bob
    Bet(3, Row::PassLine, 5);
    Roll(5, 5);
    const SummaryFigures both = FiguresOfSummary(t, Scope::Session, Both);
    EXPECT_EQ(both.Players, "Both players selected");
    EXPECT_EQ(both.Table.Hands.Text, "2");
    EXPECT_EQ(both.Table.Rolls.Text, "4");
    EXPECT_EQ(both.Table.SimulatedHours.Text, "0.04");
    EXPECT_EQ(both.Amounts.Made.Text, "24");
    EXPECT_EQ(both.Amounts.Won.Text, "10");
    EXPECT_EQ(both.Amounts.Lost.Text, "14");
    EXPECT_EQ(both.Amounts.Net.Text, "-4");
    EXPECT_EQ(both.Amounts.NetPercent.Text, "-16.67%");
    EXPECT_EQ(both.Numbers.Made.Text, "3");
    EXPECT_EQ(both.Numbers.Net.Text, "-1");
    EXPECT_EQ(both.Numbers.NetPercent.Text, "-33.33%");
    EXPECT_EQ(both.BankrollBeginning.Text, "1,500");
    EXPECT_EQ(both.BankrollCurrent.Text, "1,496");
    EXPECT_EQ(both.BankrollHigh.Text, "1,510");
    EXPECT_EQ(both.BankrollLow.Text, "1,496");
    EXPECT_EQ(both.CurrentCaption, "Current");
    const SummaryFigures ann = FiguresOfSummary(t, Scope::Session, Ann);
    EXPECT_EQ(ann.Player.Hands.Text, "1");
    EXPECT_EQ(ann.Player.Rolls.Text, "3");
    EXPECT_EQ(ann.PlayerPercent.Text, "75.0%");
    EXPECT_EQ(ann.BankrollAverage.Text, "1,004") << "1000, 1010, 1010, 1000, 1000";
    EXPECT_EQ(ann.Amounts.NetPercent.Text, "0%");
    const SummaryFigures hand = FiguresOfSummary(t, Scope::LastHand, Both);
    EXPECT_EQ(hand.CurrentCaption, "Ending");
    EXPECT_EQ(hand.Table.Rolls.Text, "3");
    const SummaryFigures nobody = FiguresOfSummary(t, Scope::LastSession, 0);
    EXPECT_EQ(nobody.PlayerPercent.Text, "0%");
    EXPECT_EQ(nobody.Amounts.NetPercent.Text, "0%");
    EXPECT_EQ(nobody.BankrollCurrent.Text, "0");
    EXPECT_FALSE(nobody.HasComps);

    // A share below one percent shows more places.
    for (int i = 0; i < 600; ++i) Roll(2, 2);
    EXPECT_EQ(FiguresOfSummary(t, Scope::Session, Ann).PlayerPercent.Text, "0.4967%");
}

TEST_F(RollFigures, SummaryMarksTheCompsThatCount) {
    for (int base = 0; base < 3; ++base) {
        CompMeasures comps{{12'345}, Dollars(1200), {}, base};
        const SummaryFigures figures = FiguresOfSummary(t, Scope::Session, 0, comps);
        ASSERT_TRUE(figures.HasComps);
        const char* const plain[] = {"Theoretical vig $", "Total comp action $", "Avg action x time $"};
        const char* const amounts[] = {"1.23", "1,200.00", "0"};
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_EQ(figures.Comps[i].Caption, (static_cast<int>(i) == base ? "* " : "") + std::string(plain[i]));
            EXPECT_EQ(figures.Comps[i].Amount.Text, amounts[i]);
        }
    }
}

}  // namespace
}  // namespace tarnwick
