#include "table/settledialog.h"

#include <array>

#include "config/payoffs.h"
#include "table/format.h"
#include "table/handling.h"

namespace tarnwick {

namespace {

// Slots of the arithmetic that the dialog itself shows.
constexpr int WinnersSame = 0, WinnersBet = 1, LosersSame = 2, LosersBet = 3;

std::size_t At(int i) { return static_cast<std::size_t>(i); }

std::string Money(currency amount) { return "$" + FormatCommas(amount); }

/// "7 to 6", or "13 for 6" in the other form. A loss reads as what it takes, or as what it leaves of the bet.
std::string RateText(const PayoffEntry& payoff) {
    const bool forForm = IsZero(payoff.ToForm);
    return PlainAmount(forForm ? payoff.Pays + payoff.For : Abs(payoff.Pays)) + (forForm ? " for " : " to ") +
           PlainAmount(payoff.For);
}

/// A bet that is split over several results, all but one of which lose.
struct Split {
    int Parts = 0;
    const char* Part = "";
    const char* Rest = "";
};

Split SplitOf(int row) {
    if (row == Row::CandE) return {2, "1/2 of bet:", "Less 1/2 of bet:"};
    if (row == Row::Horn) return {4, "1/4 of bet:", "Less 3/4 of bet:"};
    if (row == Row::World) return {5, "1/5 of bet:", "Less 4/5 of bet:"};
    return {};
}

/// The vig that the result holds: of a win always, of a loss when it was reserved up front.
struct Vig {
    currency Amount;
    currency Rate;
};

Vig VigOf(const Table& t, const DecidedBet& bet) {
    const int row = bet.BetRow;
    const bool lost = bet.Kind == SettleKind::Loser;
    if (IsLay(row) && (t.LayVigOnAllBets || !lost)) {
        return {t.LayVigCharged[At(bet.Position)][At(row - Row::Lay4)], t.LayVigRate};
    }
    if (IsBuy(row) && (t.BuyVigOnAllBets || !lost)) {
        return {t.BuyVigCharged[At(bet.Position)][At(row - Row::Buy4)], t.BuyVigRate};
    }
    return {};
}

SettleQuestion::Line BetLine(const Table& t, const DecidedBet& bet, currency amount) {
    std::string name(BetName(bet.BetRow));
    if (bet.BetRow == Row::Fire) {
        const int count = t.PointsMadeCount;
        name += " bet (" + std::to_string(count) + (count == 1 ? " point made):" : " points made):");
    } else {
        name += " bet:";
    }
    return {name, Money(amount)};
}

void AddVigLine(const Vig& vig, std::vector<SettleQuestion::Line>& lines) {
    if (!IsZero(vig.Amount)) lines.push_back({PlainAmount(vig.Rate * 100) + "% vig:", Money(-vig.Amount)});
}

void AddWinnersLines(const Table& t, const DecidedBet& bet, currency amount, std::vector<SettleQuestion::Line>& lines) {
    const Settlement& result = bet.Result;
    const Split split = SplitOf(bet.BetRow);
    const Vig vig = VigOf(t, bet);
    currency payoff = result.GrossResult + vig.Amount, lost;
    if (split.Parts > 0) {
        const currency part = MultiplyDivide(amount, Dollars(1), Dollars(split.Parts));
        lost = MultiplyDivide(amount, Dollars(split.Parts - 1), Dollars(split.Parts));
        payoff += lost;
        lines.push_back({split.Part, Money(part)});
    }
    lines.push_back({"Payoff at " + RateText(result.CurrentPayoff) + ":", Money(payoff)});
    if (split.Parts > 0) lines.push_back({split.Rest, Money(-lost)});
    AddVigLine(vig, lines);
    if (result.NetResult != result.GrossResult) {
        lines.push_back({"Net payoff (rounded): ", Money(result.NetResult)});
    } else if (split.Parts > 0 || !IsZero(vig.Amount)) {
        lines.push_back({"Net payoff: ", Money(result.NetResult)});
    }
}

void AddLosersLines(const Table& t, const DecidedBet& bet, currency amount, std::vector<SettleQuestion::Line>& lines) {
    const Settlement& result = bet.Result;
    const Vig vig = VigOf(t, bet);
    const currency loss = -(result.GrossResult + vig.Amount);
    if (loss != amount) lines.push_back({"Loss at " + RateText(result.CurrentPayoff) + ":", Money(loss)});
    AddVigLine(vig, lines);
    const bool rounded = result.NetResult != result.GrossResult;
    lines.push_back({rounded ? "Net loss (rounded): " : "Net loss: ", Money(-result.NetResult)});
    const currency remainder = amount + result.NetResult;
    if (remainder > currency{}) lines.push_back({"Remainder: ", Money(remainder)});
}

std::vector<SettleQuestion::Line> LinesOf(const Table& t, const DecidedBet& bet) {
    const currency amount = t.BetAmount(bet.Position, bet.BetRow);
    const std::string& name = t.PlayerName[At(bet.Position)];
    if (bet.Kind == SettleKind::Returned) return {BetLine(t, bet, amount), {"wasn't working!", ""}};

    std::vector<SettleQuestion::Line> lines;
    if (bet.Kind == SettleKind::Loser) {
        lines = {{name + " lost", ""}, BetLine(t, bet, amount)};
        AddLosersLines(t, bet, amount, lines);
    } else {
        const bool push = IsZero(bet.Result.NetResult);
        lines = {{name + (push ? " pushes" : " wins!"), ""}, BetLine(t, bet, amount)};
        AddWinnersLines(t, bet, amount, lines);
    }
    return lines;
}

/// The operand of a slot as its controls show it: "$5", "5%", "2 $25 Units".
std::string OperandText(const Table& t, int p, int slot) {
    const currency amount = t.HandleAmount[At(p)][At(slot)];
    const int unit = t.HandleUnit[At(p)][At(slot)];
    if (unit == 0) return Money(amount);
    return FormatCommas(amount) + (unit == 1 ? "" : " ") + UnitText(t, unit);
}

std::vector<SettleQuestion::Choice> ChoicesOf(const Table& t, const DecidedBet& bet) {
    const int p = bet.Position, row = bet.BetRow;
    const bool lost = bet.Kind == SettleKind::Loser;
    const std::string press = "Press &1 Unit - Add " + Money(PressUnit(t, row)) + " to Bet";
    std::vector<SettleQuestion::Choice> choices;
    if (bet.Kind == SettleKind::Winner) {
        choices = {{1, "&Take Bet and Winnings"},
                   {2, "&Same Bet - Take Winnings"},
                   {3, press},
                   {4, "Press - Add Winnings to &Double Bet"},
                   {5, "Parlay - Add &All Winnings to Bet"}};
    } else if (lost) {
        choices = {{1, "&No Bet"}, {2, "&Same Bet"}};
        if (t.BetAmount(p, row) + bet.Result.NetResult > currency{}) choices.push_back({3, "Bet &Remainder"});
        choices.push_back({4, press});
        choices.push_back({5, "&Double Bet"});
    } else {
        const bool onWinningStreak = t.BetStreak(p, row) > 1;
        choices = {{1, onWinningStreak ? "&Take Returned Bet" : "&No Bet/Take Back"},
                   {2, "&Same Bet"},
                   {3, press},
                   {4, "Press - &Double Bet"},
                   {ReturnedMaxOdds, "Take M&ax Odds"}};
    }
    if (bet.MustTakeDown) {
        choices.resize(1);
        return choices;
    }
    const int same = lost ? LosersSame : WinnersSame, exact = lost ? LosersBet : WinnersBet;
    choices.push_back(
        {6, "Sa&me Bet: " + OperatorText(t.HandleOperator[At(p)][At(same)]) + " " + OperandText(t, p, same)});
    choices.push_back({7, "&Bet: " + OperandText(t, p, exact)});
    return choices;
}

}  // namespace

SettleQuestion DescribeSettlement(const Table& t, const DecidedBet& bet) {
    SettleQuestion question;
    question.Position = bet.Position;
    question.BetRow = bet.BetRow;
    question.Winner = bet.Kind != SettleKind::Loser;
    question.Lines = LinesOf(t, bet);
    question.Choices = ChoicesOf(t, bet);
    return question;
}

currency PressUnit(const Table& t, int row) { return MultiplyBy(SmallestCheck(t), PayoffOf(t, row).For); }

std::string OperatorText(int handleOperator) {
    constexpr std::array<const char*, 4> signs = {"+", "-", "x", "/"};
    return signs[At(handleOperator & 3)];
}

std::string UnitText(const Table& t, int handleUnit) {
    if (handleUnit <= 0) return "$";
    if (handleUnit == 1) return "%";
    const std::size_t check = At(handleUnit - 1);
    return (check < t.CheckDenominations.size() ? Money(t.CheckDenominations[check]) : std::string{}) + " Units";
}

}  // namespace tarnwick
