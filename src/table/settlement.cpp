#include "table/settlement.h"

#include "config/payoffs.h"
#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "table/dicepayoffs.h"
#include "table/handling.h"
#include "table/marks.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

/// The payoff of a win, under the point before the roll.
const PayoffEntry& WinningPayoff(const Table& t, int row, int outcome) {
    const int point = t.PrevPoint;
    switch (row) {
        case Row::PassLine:
            return t.Payoff[At(point == 0 ? Row::Come : Row::Come4 + PointIndex(point))];
        case Row::PassLineOdds:
            return t.Payoff[At(point == 0 ? row : Row::Come4Odds + PointIndex(point))];
        case Row::DontPass:
            return t.Payoff[At(point == 0 ? Row::DontCome : Row::DontCome4 + PointIndex(point))];
        case Row::DontPassOdds:
            return t.Payoff[At(point == 0 ? row : Row::DontCome4Odds + PointIndex(point))];
        case Row::CandE:
        case Row::Horn:
        case Row::World:
            return t.Payoff[At(PartRow(row, t.DiceTotal))];
        case Row::Midway:
            return t.MidwayPayoff[At(MidwayIndex(t.DiceTotal, t.Die1, t.Die2))];
        case Row::SevenPoint7:
            return t.SevenPointSevenPayoff[At(outcome)];
        default:
            return t.Payoff[At(row)];
    }
}

/// (amount / parts) * Pays / For less the other parts, exact to the ten-thousandth.
currency SplitResult(currency amount, int parts, const PayoffEntry& payoff) {
    const int128 pays = payoff.Pays.TenThousandths, per = payoff.For.TenThousandths;
    const int128 net = amount.TenThousandths * (pays - (parts - 1) * per);
    return {Saturate(HalfEvenDivide<int128>(net, parts * per))};
}

currency VigOnResult(const Table& t, int p, int row, currency gross) {
    const bool won = gross > currency{};
    if (IsLay(row) && (won || t.LayVigOnAllBets)) return t.LayVigCharged[At(p)][At(row - Row::Lay4)];
    if (IsBuy(row) && (won || t.BuyVigOnAllBets)) return t.BuyVigCharged[At(p)][At(row - Row::Buy4)];
    return {};
}

/// Whether the bet that was just settled on `row` can't stand where it is.
bool CannotStay(const Table& t, int p, int row) {
    if (row == Row::Come || row == Row::DontCome) return t.DiceTotal == 7;
    if (row == Row::PassLineOdds || row == Row::DontPassOdds || IsDontComeNumber(row) || IsDontComeOdds(row))
        return true;
    if (IsComeNumber(row)) return !t.AllowPutBets;
    if (IsComeOdds(row)) return IsZero(t.BetAmount(p, FlatRowOf(row)));
    if (row == Row::AllSmall) return (t.MarkedNumbers & SmallMarks) != 0;
    if (row == Row::AllTall) return (t.MarkedNumbers & TallMarks) != 0;
    if (row == Row::Point7 || row == Row::SevenPoint7) return t.Point != 0;
    return false;
}

void CountStreak(Table& t, int p, int row, currency net) {
    std::int32_t& streak = t.BetStreak(p, row);
    if (net > currency{}) {
        streak = streak < 0 ? 1 : streak + 1;
    } else if (net < currency{}) {
        streak = streak > 0 ? -1 : streak - 1;
    }
}

/// Books the result of a standing, working bet: statistics, log, money, streak. False when the payoff of 0 means "no
/// decision".
bool BookResult(Table& t, DecidedBet& bet, int outcome) {
    const int p = bet.Position, row = bet.BetRow;
    const currency amount = t.BetAmount(p, row);
    bet.Result = ComputePayoff(t, p, row, outcome, amount);
    const currency net = bet.Result.NetResult;
    RecordBetResult(t, p, row, amount, net);
    if (IsComeNumber(row)) t.ComeFlatNow[At(p)][At(row - Row::Come4)] = currency{};
    if (t.EventsLogOn) LogBetResult(t, p, row, net);
    if (IsZero(bet.Result.CurrentPayoff.Pays) && IsZero(net)) return false;
    if (!IsZero(net)) SetBankroll(t, p, t.Bankroll[At(p)] + net);
    t.EstablishedBet(p, row) = currency{};
    TouchBet(t, p, row);
    CountStreak(t, p, row, net);
    return true;
}

}  // namespace

Settlement ComputePayoff(const Table& t, int p, int row, int outcome, currency amount) {
    Settlement s;
    if (row == Row::Field) {
        s.CurrentPayoff = t.FieldPayoff[At(FieldIndex(t.Die1, t.Die2))];
    } else if (row == Row::Fire) {
        s.CurrentPayoff = t.FirePayoff[At(t.PointsMadeCount)];
    } else if (outcome > 0) {
        s.CurrentPayoff = WinningPayoff(t, row, outcome);
    } else {
        s.CurrentPayoff = {t.Payoff[At(row)].Unit, Dollars(-1), t.Payoff[At(row)].ToForm, Dollars(1)};
    }
    const PayoffEntry& payoff = s.CurrentPayoff;
    const int parts = outcome > 0 ? PartsOf(row) : 0;
    s.GrossResult = parts > 0 ? SplitResult(amount, parts, payoff) : MultiplyDivide(amount, payoff.Pays, payoff.For);
    s.GrossResult -= VigOnResult(t, p, row, s.GrossResult);
    s.NetResult = FloorTo(s.GrossResult, SmallestCheck(t));
    return s;
}

void SettleSeat(Table& t, int p, int outcome, int row) {
    if (IsZero(t.BetAmount(p, row))) return;
    DecidedBet bet{p, row, SettleKind::Winner, {}, false};
    if (BetWorking(t, p, row) <= 0) {
        // Odds that are off can't stay behind a flat bet that was decided.
        if ((outcome == 2 || outcome == -2) && IsOddsRow(row)) HandleReturnedBet(t, bet);
        return;
    }
    if (!BookResult(t, bet, outcome)) return;
    bet.MustTakeDown = CannotStay(t, p, row);
    if (bet.Result.NetResult < currency{}) {
        bet.Kind = SettleKind::Loser;
        HandleLoser(t, bet);
    } else {
        HandleWinner(t, bet);
    }
}

void SettleRow(Table& t, int outcome, int row) {
    const unsigned seats = t.SeatsOn[At(row)];
    if (seats == 0) return;
    for (int i = 1; i < Positions; ++i) {
        const int p = PayOrder[At(i)];
        if ((seats >> p & 1u) != 0) SettleSeat(t, p, outcome, row);
    }
}

void SettleAbandoned(Table& t, int p, int row) {
    if (IsZero(t.BetAmount(p, row))) return;
    DecidedBet bet{p, row, SettleKind::Loser, {}, true};
    if (!BookResult(t, bet, -1)) return;
    ReleaseVig(t, bet);
    TakeBetDown(t, bet);
}

}  // namespace tarnwick
