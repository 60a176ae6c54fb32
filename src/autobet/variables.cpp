#include "autobet/variables.h"

#include <array>
#include <cmath>

#include "autobet/element.h"
#include "autobet/numbertext.h"
#include "config/comps.h"
#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

constexpr double False = 0;
constexpr double Flag(bool on) { return on ? -1 : False; }

/// Results X as scripts number them.
enum : int { Wagers = 1, Wins = 2, Losses = 3, Net = 4, NetPercent = 5 };

/// Statistics Y, reduced.
enum : int {
    Average = 5,
    LastAmount = 6,
    LastRollCount = 7,
    LastRollAmount = 8,
    CountPerHour = 9,
    AmountPerHour = 10,
    Expected = 11,
    Standing = 12,
    AmountNow = 13,
    Working = 14,
    CalledOn = 15,
    CalledOff = 16,
    Vig = 17
};

int PosOf(const Reading& r, int p) { return p + r.First; }

// --- bets ---

currency Cell(const Table& t, int kind, int pos, int row, int stat) {
    switch (kind) {
        case 0:
            return BetStatWagers(t, pos, row, stat);
        case 1:
            return BetStatWins(t, pos, row, stat);
        default:
            return BetStatLosses(t, pos, row, stat);
    }
}

/// Whether the last event of the kind fell on the last roll of the session.
bool HadEventOnLastRoll(const Table& t, int kind, int pos, int row) {
    const std::int32_t rolls = SessionRolls(t);
    return rolls > 0 && Cell(t, kind, pos, row, 5) == Dollars(rolls);
}

double AverageOf(const Table& t, int kind, int pos, int row) {
    const currency count = Cell(t, kind, pos, row, 1);
    if (count.TenThousandths <= 0) return 0;
    return ToDouble(Cell(t, kind, pos, row, 2)) / ToDouble(count);
}

double PerHour(const Table& t, int pos, double figure) {
    const std::int32_t rolls = PlayerRolls(t, pos);
    return rolls < 1 ? 0 : figure * ToDouble(t.RollsPerHour) / rolls;
}

/// The amount of the last event of the kind, if it fell on the last roll.
currency LastRollCell(const Table& t, int kind, int pos, int row) {
    return HadEventOnLastRoll(t, kind, pos, row) ? Cell(t, kind, pos, row, 6) : currency{};
}

double ReadCell(RunState& run, const Reading& r, int p) {
    return ToDouble(Cell(*run.Game, r.Kind, PosOf(r, p), r.Row, r.Stat));
}
double ReadAverage(RunState& run, const Reading& r, int p) { return AverageOf(*run.Game, r.Kind, PosOf(r, p), r.Row); }
double ReadLastRollCount(RunState& run, const Reading& r, int p) {
    return HadEventOnLastRoll(*run.Game, r.Kind, PosOf(r, p), r.Row) ? 1 : 0;
}
double ReadLastRollAmount(RunState& run, const Reading& r, int p) {
    return ToDouble(LastRollCell(*run.Game, r.Kind, PosOf(r, p), r.Row));
}
double ReadPerHour(RunState& run, const Reading& r, int p) {
    const Table& t = *run.Game;
    return PerHour(t, PosOf(r, p), ToDouble(Cell(t, r.Kind, PosOf(r, p), r.Row, r.Stat)));
}

double ReadNetCell(RunState& run, const Reading& r, int p) {
    const int pos = PosOf(r, p);
    return ToDouble(Cell(*run.Game, 1, pos, r.Row, r.Stat) - Cell(*run.Game, 2, pos, r.Row, r.Stat));
}
double ReadNetAverage(RunState& run, const Reading& r, int p) {
    return AverageOf(*run.Game, 1, PosOf(r, p), r.Row) - AverageOf(*run.Game, 2, PosOf(r, p), r.Row);
}
double ReadNetLastRollCount(RunState& run, const Reading& r, int p) {
    const int pos = PosOf(r, p);
    const int won = HadEventOnLastRoll(*run.Game, 1, pos, r.Row) ? r.Kind : 0;
    const int lost = HadEventOnLastRoll(*run.Game, 2, pos, r.Row) ? r.Kind : 0;
    return won - lost;
}
double ReadNetLastRollAmount(RunState& run, const Reading& r, int p) {
    const int pos = PosOf(r, p);
    return ToDouble(LastRollCell(*run.Game, 1, pos, r.Row) - LastRollCell(*run.Game, 2, pos, r.Row));
}
double ReadNetPerHour(RunState& run, const Reading& r, int p) {
    return PerHour(*run.Game, PosOf(r, p), ReadNetCell(run, r, p));
}
double ReadExpectedRate(RunState& run, const Reading& r, int /*p*/) {
    return run.Advantages.Of(*run.Game, r.Row).EvDec;
}
double ReadExpectedAmount(RunState& run, const Reading& r, int p) {
    return ToDouble(BetStatWagers(*run.Game, PosOf(r, p), r.Row, 2)) * ReadExpectedRate(run, r, p);
}

/// `net` as a percentage of `wagers`, 0 when that isn't positive.
double PercentOf(double net, double wagers) { return wagers > 0 ? net * 100 / wagers : 0; }

double ReadPercentCell(RunState& run, const Reading& r, int p) {
    return PercentOf(ReadNetCell(run, r, p), ToDouble(BetStatWagers(*run.Game, PosOf(r, p), r.Row, r.Stat)));
}
double ReadPercentAverage(RunState& run, const Reading& r, int p) {
    return PercentOf(ReadNetAverage(run, r, p), AverageOf(*run.Game, 0, PosOf(r, p), r.Row));
}
double ReadPercentLastRollAmount(RunState& run, const Reading& r, int p) {
    return PercentOf(ReadNetLastRollAmount(run, r, p), ToDouble(LastRollCell(*run.Game, 0, PosOf(r, p), r.Row)));
}
double ReadPercentPerHour(RunState& run, const Reading& r, int p) {
    const int pos = PosOf(r, p);
    return PercentOf(ReadNetPerHour(run, r, p),
                     PerHour(*run.Game, pos, ToDouble(BetStatWagers(*run.Game, pos, r.Row, r.Stat))));
}

double ReadStanding(RunState& run, const Reading& r, int p) {
    return run.Game->BetAmount(p, r.Row) > currency{} ? 1 : 0;
}
double ReadAmount(RunState& run, const Reading& r, int p) { return ToDouble(run.Game->BetAmount(p, r.Row)); }
double ReadWorking(RunState& run, const Reading& r, int p) { return Flag(BetWorking(*run.Game, p, r.Row) > 0); }
double ReadCalledOn(RunState& run, const Reading& r, int p) { return Flag(BetWorking(*run.Game, p, r.Row) > 1); }
double ReadCalledOff(RunState& run, const Reading& r, int p) { return Flag(BetWorking(*run.Game, p, r.Row) < 0); }
double ReadLayVig(RunState& run, const Reading& r, int p) {
    return ToDouble(run.Game->LayVigCharged[static_cast<std::size_t>(p)][static_cast<std::size_t>(r.Row - Row::Lay4)]);
}
double ReadBuyVig(RunState& run, const Reading& r, int p) {
    return ToDouble(run.Game->BuyVigCharged[static_cast<std::size_t>(p)][static_cast<std::size_t>(r.Row - Row::Buy4)]);
}
double ReadNoVig(RunState& run, const Reading& /*r*/, int /*p*/) {
    run.Warn("Reference not to Lay or Buy bet.");
    return 0;
}
double ReadZero(RunState& /*run*/, const Reading& /*r*/, int /*p*/) { return 0; }

ReadFunction GrossReader(Reading& r, int statistic) {
    if (statistic < Average || statistic == LastAmount) return 1 <= statistic ? ReadCell : ReadZero;
    switch (statistic) {
        case Average:
            return ReadAverage;
        case LastRollCount:
            return ReadLastRollCount;
        case LastRollAmount:
            return ReadLastRollAmount;
        case CountPerHour:
            r.Stat = 1;
            return ReadPerHour;
        case AmountPerHour:
            r.Stat = 2;
            return ReadPerHour;
        default:
            return ReadZero;
    }
}

ReadFunction NetReader(Reading& r, int statistic) {
    if (statistic < Average || statistic == LastAmount) return 1 <= statistic ? ReadNetCell : ReadZero;
    switch (statistic) {
        case Average:
            return ReadNetAverage;
        case LastRollCount:
            r.Kind = 1;
            return ReadNetLastRollCount;
        case LastRollAmount:
            return ReadNetLastRollAmount;
        case CountPerHour:
            r.Stat = 1;
            return ReadNetPerHour;
        case AmountPerHour:
            r.Stat = 2;
            return ReadNetPerHour;
        case Expected:
            return ReadExpectedAmount;
        default:
            return ReadZero;
    }
}

ReadFunction NetPercentReader(Reading& r, int statistic) {
    if (statistic < Average || statistic == LastAmount) return 1 <= statistic ? ReadPercentCell : ReadZero;
    switch (statistic) {
        case Average:
            return ReadPercentAverage;
        case LastRollCount:
            r.Kind = 100;
            return ReadNetLastRollCount;
        case LastRollAmount:
            return ReadPercentLastRollAmount;
        case CountPerHour:
            r.Stat = 1;
            return ReadPercentPerHour;
        case AmountPerHour:
            r.Stat = 2;
            return ReadPercentPerHour;
        case Expected:
            return ReadExpectedRate;
        default:
            return ReadZero;
    }
}

ReadFunction PresentReader(int row, int statistic) {
    switch (statistic) {
        case Standing:
            return ReadStanding;
        case AmountNow:
            return ReadAmount;
        case Working:
            return ReadWorking;
        case CalledOn:
            return ReadCalledOn;
        case CalledOff:
            return ReadCalledOff;
        default:
            break;
    }
    if (IsLay(row)) return ReadLayVig;
    return IsBuy(row) ? ReadBuyVig : ReadNoVig;
}

Reading BindBet(int row, const Reference& q) {
    const int statistic = static_cast<int>(q.Statistic);
    Reading r;
    r.Row = row;
    r.Stat = statistic;
    r.First = Positions * (q.Scope - 1);
    r.Kind = q.Result - Wagers;
    r.Read = ReadZero;
    if (Standing <= statistic && statistic <= Vig) {
        if (q.Result == Wagers) r.Read = PresentReader(row, statistic);
    } else if (q.Result == Net) {
        r.Read = NetReader(r, statistic);
    } else if (q.Result == NetPercent) {
        r.Read = NetPercentReader(r, statistic);
    } else if (Wagers <= q.Result && q.Result <= Losses) {
        r.Read = GrossReader(r, statistic);
    }
    return r;
}

// --- players ---

std::size_t Seat(int p) { return static_cast<std::size_t>(p); }

double ReadAvailable(RunState& run, const Reading&, int p) {
    return ToDouble(run.Game->Bankroll[Seat(p)] - run.Game->BetsOnTable[Seat(p)]);
}
double ReadRail(RunState& run, const Reading&, int p) { return ToDouble(run.Game->RailAmount[Seat(p)]); }
double ReadWinnerHandling(RunState& run, const Reading&, int p) { return run.Game->WinnerHandling[Seat(p)] + 1; }
double ReadLoserHandling(RunState& run, const Reading&, int p) { return run.Game->LoserHandling[Seat(p)] + 1; }
double ReadTakeOdds(RunState& run, const Reading&, int p) { return Flag(run.Game->AutoTakeFullOdds[Seat(p)]); }
double ReadLayOdds(RunState& run, const Reading&, int p) { return Flag(run.Game->AutoLayFullOdds[Seat(p)]); }
double ReadDownPlace(RunState& run, const Reading&, int p) { return Flag(run.Game->AutoDownPlaceBets[Seat(p)]); }
double ReadPassDice(RunState& run, const Reading&, int p) { return Flag(run.Game->AutoPassDice[Seat(p)]); }
double ReadComps(RunState& run, const Reading& r, int p) {
    return ToDouble(FigureComps(*run.Game, PosOf(r, p), run.CompAdvantages).CompValue);
}
double ReadHours(RunState& run, const Reading& r, int /*p*/) {
    const double rate = ToDouble(run.Game->RollsPerHour);
    return rate > 0 ? RollCount(*run.Game, r.First, 0) / rate : 0;
}
double ReadBegin(RunState& run, const Reading& r, int p) {
    return ToDouble(run.Game->BankrollBegin[Seat(PosOf(r, p))]);
}
double ReadBankroll(RunState& run, const Reading& r, int p) { return ToDouble(run.Game->Bankroll[Seat(PosOf(r, p))]); }
double ReadHigh(RunState& run, const Reading& r, int p) { return ToDouble(run.Game->BankrollHigh[Seat(PosOf(r, p))]); }
double ReadLow(RunState& run, const Reading& r, int p) { return ToDouble(run.Game->BankrollLow[Seat(PosOf(r, p))]); }

ReadFunction PlayerReader(int number) {
    switch (number) {
        case 651:
            return ReadAvailable;
        case 655:
            return ReadRail;
        case 670:
            return ReadWinnerHandling;
        case 671:
            return ReadLoserHandling;
        case 700:
            return ReadTakeOdds;
        case 701:
            return ReadLayOdds;
        case 702:
            return ReadDownPlace;
        case 703:
            return ReadPassDice;
        case 1100:
            return ReadComps;
        case 1200:
            return ReadHours;
        case 1300:
            return ReadBegin;
        case 1301:
            return ReadBankroll;
        case 1302:
            return ReadHigh;
        case 1303:
            return ReadLow;
        default:
            return ReadZero;
    }
}

// --- rolls and points ---

double ReadRolls(RunState& run, const Reading& r, int p) { return RollCount(*run.Game, PosOf(r, p), r.Row); }
double ReadRollsSince(RunState& run, const Reading& r, int /*p*/) { return RollsSince(*run.Game, r.Row); }
double ReadRollPercent(RunState& run, const Reading& r, int p) {
    const std::int32_t all = RollCount(*run.Game, PosOf(r, p), 0);
    return all > 0 ? RollCount(*run.Game, PosOf(r, p), r.Row) * 100.0 / all : 0;
}
double ReadNoRolls(RunState& run, const Reading& /*r*/, int /*p*/) {
    run.Warn("Reference to rolls out of limits.");
    return 0;
}
double ReadNoPoints(RunState& run, const Reading& /*r*/, int /*p*/) {
    run.Warn("Reference to # of points out of limits.");
    return 0;
}

constexpr std::uint32_t Bit(int total) { return 1u << total; }
constexpr std::uint32_t PointTotals = Bit(4) | Bit(5) | Bit(6) | Bit(8) | Bit(9) | Bit(10);
constexpr std::uint32_t NaturalTotals = Bit(2) | Bit(3) | Bit(7) | Bit(11) | Bit(12);
constexpr std::uint32_t AllTotals = PointTotals | NaturalTotals;

double SumTally(const Table& t, int pos, std::uint32_t totals, int c) {
    double sum = 0;
    for (int total = 2; total <= 12; ++total) {
        if ((totals & Bit(total)) != 0) sum += PointTally(t, pos, total, c);
    }
    return sum;
}

/// Row: the set of totals; Stat: the tally; Kind: the set of established totals that a percentage is of.
double ReadTally(RunState& run, const Reading& r, int p) {
    return SumTally(*run.Game, PosOf(r, p), static_cast<std::uint32_t>(r.Row), r.Stat);
}
double ReadTallyPercent(RunState& run, const Reading& r, int p) {
    const double base = SumTally(*run.Game, PosOf(r, p), static_cast<std::uint32_t>(r.Kind), 1);
    return base > 0 ? ReadTally(run, r, p) * 100 / base : 0;
}

Reading BindRolls(int number, const Reference& q) {
    Reading r;
    r.First = Positions * (q.Scope - 1);
    if (number <= 2502) {
        r.Row = RollEventOf(q.Statistic);
        r.Read = number == 2500 ? ReadRolls : number == 2501 ? ReadRollsSince : ReadRollPercent;
        if (r.Row < 0) r.Read = ReadNoRolls;
        return r;
    }
    const int total = static_cast<int>(q.Statistic);
    std::uint32_t totals = 2 <= total && total <= 12 && total == q.Statistic ? Bit(total) : 0;
    if (total == 0) totals = AllTotals;
    if (total == 14) totals = NaturalTotals;
    if (total == 15) totals = PointTotals;
    r.Row = static_cast<std::int32_t>(totals);
    r.Kind = static_cast<std::int32_t>(AllTotals);
    r.Stat = (number - 2600) / 2 + 1;
    r.Read = number < 2600 || number > 2605 ? ReadZero : number % 2 == 0 ? ReadTally : ReadTallyPercent;
    if (totals == 0) r.Read = ReadNoRolls;
    return r;
}

Reading BindPoints(int number, const Reference& q) {
    Reading r;
    r.First = Positions * (q.Scope - 1);
    r.Stat = q.Result - 5;
    r.Kind = static_cast<std::int32_t>(PointTotals);
    r.Read = number == 4606 ? ReadTally : ReadTallyPercent;
    const int total = static_cast<int>(q.Statistic);
    if (q.Statistic == 0) {
        r.Row = static_cast<std::int32_t>(PointTotals);
    } else if (IsPointNumber(total) && total == q.Statistic) {
        r.Row = static_cast<std::int32_t>(Bit(total));
    } else {
        r.Read = ReadNoPoints;
    }
    if (r.Stat < 1 || r.Stat > 3) r.Read = ReadZero;
    return r;
}

// --- the table ---

bool AnyRolls(const Table& t) { return SessionRolls(t) > 0; }

bool FileIsOpen(RunState& run) {
    if (!run.Game->DiceRollFileName.empty()) return true;
    run.Warn("Dice roll file not open.");
    return false;
}

double ReadInitializing(RunState& run, const Reading&, int) { return Flag(run.Initializing || run.HotKeyRunning); }
double ReadNewSession(RunState& run, const Reading&, int) { return Flag(!AnyRolls(*run.Game)); }
double ReadNewHand(RunState& run, const Reading&, int) { return Flag(HandRolls(*run.Game) == 0); }
double ReadFileEnd(RunState& run, const Reading&, int) {
    return FileIsOpen(run) ? Flag(run.Game->DiceFileNextRecord > run.Game->DiceFileLength) : False;
}
double ReadFileNext(RunState& run, const Reading&, int) { return FileIsOpen(run) ? run.Game->DiceFileNextRecord : 0; }
double ReadFileLength(RunState& run, const Reading&, int) { return FileIsOpen(run) ? run.Game->DiceFileLength : 0; }
double ReadPlayerNumber(RunState& run, const Reading& r, int) { return PlayerOfCode(run, r.Row); }
double ReadPasses(RunState& run, const Reading&, int) {
    const Table& t = *run.Game;
    const bool natural = t.PrevPoint == 0 && (t.DiceTotal == 7 || t.DiceTotal == 11);
    return Flag(AnyRolls(t) && (natural || t.DiceTotal == t.PrevPoint));
}
double ReadMisses(RunState& run, const Reading&, int) {
    const Table& t = *run.Game;
    const bool craps = t.PrevPoint == 0 && (t.DiceTotal == 2 || t.DiceTotal == 3 || t.DiceTotal == 12);
    return Flag(AnyRolls(t) && (craps || (t.PrevPoint > 0 && t.DiceTotal == 7)));
}
double ReadPoint(RunState& run, const Reading&, int) { return run.Game->Point; }
double ReadLastPoint(RunState& run, const Reading&, int) { return run.Game->LastPoint; }
double ReadPrevPoint(RunState& run, const Reading&, int) { return run.Game->PrevPoint; }
double ReadTotal(RunState& run, const Reading&, int) { return run.Game->DiceTotal; }
double ReadCombination(RunState& run, const Reading&, int) { return run.Game->Die1 + run.Game->Die2 * 0.1; }
double ReadDie1(RunState& run, const Reading&, int) { return run.Game->Die1; }
double ReadDie2(RunState& run, const Reading&, int) { return run.Game->Die2; }
double ReadRollsPerHour(RunState& run, const Reading&, int) { return ToDouble(run.Game->RollsPerHour); }
double ReadMinimum(RunState& run, const Reading&, int) { return ToDouble(run.Game->MinPlacardBet); }
double ReadMaximum(RunState& run, const Reading&, int) { return ToDouble(run.Game->MaxPlacardBet); }
double ReadSeed(RunState& run, const Reading&, int) { return run.Game->LastSeed; }
double ReadRng(RunState& run, const Reading&, int) { return run.Game->RngIndex + 1; }
double ReadCompRate(RunState& run, const Reading&, int) { return ToDouble(run.Game->CompRate) / 100; }
double ReadClock(RunState& run, const Reading&, int) {
    return run.Game->Front == nullptr ? 0 : run.Game->Front->Milliseconds();
}
double ReadAnswer(RunState& run, const Reading&, int) { return run.Answer; }
double ReadRandom(RunState& run, const Reading&, int) { return Uniform(*run.Game); }
double ReadPointOff(RunState& run, const Reading&, int) { return Flag(run.Game->Point == 0); }
double ReadPointOn(RunState& run, const Reading&, int) { return Flag(run.Game->Point > 0); }
double ReadWasComeOut(RunState& run, const Reading&, int) {
    return Flag(run.Game->PrevPoint == 0 && AnyRolls(*run.Game));
}
double ReadWasPoint(RunState& run, const Reading&, int) { return Flag(run.Game->PrevPoint > 0); }
double ReadSevenOut(RunState& run, const Reading&, int) {
    return Flag(run.Game->DiceTotal == 7 && run.Game->PrevPoint > 0);
}
double ReadDecided(RunState& run, const Reading&, int) { return Flag(run.Game->Point == 0 && run.Game->PrevPoint > 0); }

ReadFunction FileOrSessionReader(int number) {
    switch (number) {
        case 3000:
            return ReadInitializing;
        case 3001:
            return ReadNewSession;
        case 3002:
            return ReadNewHand;
        case 3005:
            return ReadFileEnd;
        case 3006:
            return ReadFileNext;
        case 3007:
            return ReadFileLength;
        case 3300:
            return ReadPasses;
        case 3301:
            return ReadMisses;
        case 3603:
            return ReadRollsPerHour;
        case 3610:
            return ReadMinimum;
        case 3611:
            return ReadMaximum;
        case 3655:
            return ReadSeed;
        case 3672:
            return ReadRng;
        case 3691:
            return ReadCompRate;
        case 3693:
        case 3696:
            return ReadClock;
        case 3697:
            return ReadAnswer;
        case 3698:
            return ReadRandom;
        default:
            return ReadZero;
    }
}

ReadFunction TableReader(int number) {
    switch (number) {
        case 3500:
            return ReadPoint;
        case 3501:
            return ReadLastPoint;
        case 3502:
            return ReadPrevPoint;
        case 3510:
            return ReadTotal;
        case 3511:
            return ReadCombination;
        case 3512:
            return ReadDie1;
        case 3513:
            return ReadDie2;
        case 3704:
        case 3711:
            return ReadPointOff;
        case 3705:
        case 3710:
            return ReadPointOn;
        case 3706:
            return ReadWasComeOut;
        case 3707:
            return ReadWasPoint;
        case 3708:
            return ReadSevenOut;
        case 3709:
            return ReadDecided;
        default:
            return FileOrSessionReader(number);
    }
}

int PointRow(int first, double n) {
    return n == std::floor(n) && IsPointNumber(static_cast<int>(n)) ? first + PointIndex(static_cast<int>(n)) : 0;
}

constexpr std::array<int, 17> HopNumbers = {13, 14, 15, 16, 22, 23, 24, 25, 26, 33, 34, 35, 36, 44, 45, 46, 55};

int HopRow(int n) {
    for (std::size_t i = 0; i < HopNumbers.size(); ++i) {
        if (HopNumbers[i] == n) return Row::Hop13 + static_cast<int>(i);
    }
    return 0;
}

}  // namespace

Reading BindVariable(int number, const Reference& qualifiers) {
    if (IsLayoutRow(number)) return BindBet(number, qualifiers);
    if (number == 4606 || number == 4607) return BindPoints(number, qualifiers);
    if (2000 <= number && number < 3000) return BindRolls(number, qualifiers);
    Reading r;
    r.Row = number;
    if (IsStack(number)) {
        r.Read = ReadAmount;
    } else if (number < 2000) {
        r.First = number >= 1000 ? Positions * (qualifiers.Scope - 1) : 0;
        r.Read = PlayerReader(number);
    } else if (3200 <= number && number <= 3204) {
        r.Row = number - 3190;
        r.Read = ReadPlayerNumber;
    } else {
        r.Read = TableReader(number);
    }
    return r;
}

bool IsQuietVariable(int number, const Reference& qualifiers) {
    if (number == 3698 || (3005 <= number && number <= 3007)) return false;
    if (800 <= number && number <= 899) return true;
    const ReadFunction read = BindVariable(number, qualifiers).Read;
    return read != ReadNoVig && read != ReadNoRolls && read != ReadNoPoints;
}

int VariableOfFunction(int function, double argument) {
    constexpr std::array<int, 8> families = {0,          Row::Lay4,      Row::DontCome4, Row::DontCome4Odds,
                                             Row::Come4, Row::Come4Odds, Row::Place4,    Row::Buy4};
    const std::optional<std::int32_t> whole = RoundToInt32(argument);
    if (!whole) return 0;
    const int n = *whole;
    switch (function) {
        case 8:
            return n == 6 ? Row::Big6 : n == 8 ? Row::Big8 : 0;
        case 9:
            return n == 4 || n == 6 || n == 8 || n == 10 ? Row::Hard4 + n / 2 - 2 : 0;
        case 10:
            return HopRow(n);
        case 21:
            return 0 <= n && n <= 99 ? Row::FirstStack + n : 0;
        case 800:
            return 0 <= n && n <= 99 ? 800 + n : 0;
        default:
            return 1 <= function && function <= 7 ? PointRow(families[static_cast<std::size_t>(function)], n) : 0;
    }
}

std::string_view OutOfLimitsText(int function) {
    switch (function) {
        case 1:
            return "Reference to Lay bet out of limits.";
        case 2:
            return "Reference to Don't Come bet out of limits.";
        case 3:
            return "Reference to Don't Come Odds bet out of limits.";
        case 4:
            return "Reference to Come bet out of limits.";
        case 5:
            return "Reference to Come Odds bet out of limits.";
        case 6:
            return "Reference to Place bet out of limits.";
        case 7:
            return "Reference to Buy bet out of limits.";
        case 8:
            return "Reference to Big bet out of limits.";
        case 9:
            return "Reference to Hard bet out of limits.";
        case 10:
            return "Reference to Hop bet out of limits.";
        case 21:
            return "Reference to CheckStack out of limits.";
        case 50:
            return "Reference to Player out of limits.";
        case 190:
            return "Reference to die out of limits.";
        case 800:
            return "Reference to CheckStack name out of limits.";
        case 850:
            return "Reference to player name out of limits.";
        default:
            return "Function error.";
    }
}

int PairEvent(int die1, int die2) {
    constexpr std::array<std::array<int, 6>, 6> events = {{{2, 22, 24, 27, 33, 39},
                                                           {23, 13, 29, 35, 41, 48},
                                                           {25, 30, 14, 43, 50, 54},
                                                           {28, 36, 44, 15, 56, 60},
                                                           {34, 42, 51, 57, 16, 63},
                                                           {40, 49, 55, 61, 64, 12}}};
    return events[static_cast<std::size_t>(die1 - 1)][static_cast<std::size_t>(die2 - 1)];
}

int RollEventOf(double statistic) {
    if (!(statistic >= 0 && statistic < 90)) return -1;
    const int tenths = static_cast<int>(std::nearbyint(statistic * 10));
    const int whole = tenths / 10;
    const int die2 = tenths % 10;
    if (std::fabs(statistic * 10 - tenths) > 1e-9) return -1;
    if (die2 == 0) return whole == 0 || (2 <= whole && whole <= 12) || (78 <= whole && whole <= 89) ? whole : -1;
    return 1 <= whole && whole <= 6 && die2 <= 6 ? PairEvent(whole, die2) : -1;
}

const std::string& StackNameOf(const Table& t, int p, int index) {
    return t.CheckStackName[static_cast<std::size_t>(p)][static_cast<std::size_t>(index)];
}

std::string SpecialTextOf(RunState& run, double value) {
    const Table& t = *run.Game;
    const int n = RoundToInt32(value).value_or(0);
    switch (n) {
        case SpecialText::Empty:
        case SpecialText::FromRoll:
            return {};
        case SpecialText::Date:
            return t.Front == nullptr ? std::string() : t.Front->DateText();
        case SpecialText::Time:
            return t.Front == nullptr ? std::string() : t.Front->TimeText();
        case SpecialText::AskValue:
            return "Please enter a value";
        case SpecialText::AskString:
            return "Please enter a string";
        default:
            break;
    }
    if (-908 <= n && n <= -901) return t.PlayerName[static_cast<std::size_t>(-900 - n)];
    const int p = -n / 1000;
    const int index = -n % 1000 - 800;
    if (1 <= p && p <= 8 && 0 <= index && index <= 99) return StackNameOf(t, p, index);
    run.Warn("Error building string.");
    return {};
}

}  // namespace tarnwick
