#include "autobet/actions.h"

#include <algorithm>
#include <cmath>

#include "autobet/functions.h"
#include "autobet/handling.h"
#include "autobet/numbertext.h"
#include "autobet/variables.h"
#include "autoplay/autoplay.h"
#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/placement.h"
#include "table/screen.h"

namespace tarnwick {

namespace {

std::size_t Seat(int p) { return static_cast<std::size_t>(p); }

bool Refuse(RunState& run, std::string_view text) {
    run.Warn(text);
    return false;
}

/// Setting 702: the Place bets on numbers of Come bets, and on the point of a Pass Line bet, come down.
void SetAutoDown(Table& t, int p, bool on) {
    t.AutoDownPlaceBets[Seat(p)] = on;
    if (!on) return;
    for (int i = 0; i < 6; ++i) {
        if (t.BetAmount(p, Row::Come4 + i) > currency{}) RemoveBet(t, p, Row::Place4 + i);
    }
    if (IsPointNumber(t.Point) && t.BetAmount(p, Row::PassLine) > currency{}) {
        RemoveBet(t, p, Row::Place4 + PointIndex(t.Point));
    }
}

bool SetFlag(Table& t, int number, int p, bool on) {
    switch (number) {
        case 700:
            SetAutoTakeFullOdds(t, p, on);
            break;
        case 701:
            SetAutoLayFullOdds(t, p, on);
            break;
        case 702:
            SetAutoDown(t, p, on);
            break;
        default:
            t.AutoPassDice[Seat(p)] = on;
            break;
    }
    return true;
}

bool SetBankrollAtStart(RunState& run, int p, currency amount) {
    Table& t = *run.Game;
    if (SessionRolls(t) > 0) {
        return Refuse(run,
                      "Bankroll can only be set at the beginning of a session.  To make adjustments later, use ATM "
                      "deposits and/or withdrawals.");
    }
    amount = std::clamp(amount, -BankrollLimit, BankrollLimit);
    SetBeginningBankroll(t, p, amount);
    t.BankrollStartAmount[Seat(p)] = amount;
    return true;
}

bool SetSeed(RunState& run, double value) {
    Table& t = *run.Game;
    const currency before = t.SeedEntry;
    t.SeedEntry = ToCurrency(value);
    if (SeedRNG(t, SeedMode::Entry, false)) return true;
    t.SeedEntry = before;
    return Refuse(run, "Seed value out of limits.");
}

/// Targets that belong to the whole table.
bool SetTableTarget(RunState& run, int number, double value) {
    Table& t = *run.Game;
    switch (number) {
        case 3603:
            if (!(value >= 0.0001 && value <= 36'000'000)) return Refuse(run, "Rolls per hour value out of limits.");
            t.RollsPerHour = ToCurrency(value);
            return true;
        case 3655:
            return SetSeed(run, value);
        case 3672: {
            const int n = RoundToInt32(value).value_or(0);
            if (n < 1 || n > 8) return Refuse(run, "Reference to RNG out of limits.");
            t.RngIndex = n - 1;
            return true;
        }
        case 3691:
            if (!(value >= 0)) return Refuse(run, "Comp rate out of limits.");
            t.CompRate = ToCurrency(value);
            return true;
        default:
            return false;
    }
}

bool SetNumber(RunState& run, int number, int p, double value) {
    Table& t = *run.Game;
    if (IsLayoutRow(number)) {
        SetBet(t, p, number, ToCurrency(value));
        return true;
    }
    if (IsStack(number)) {
        SetStack(t, p, number, ToCurrency(value));
        return true;
    }
    if (700 <= number && number <= 703) return SetFlag(t, number, p, value != 0);
    if (number == 1300 || number == 1301) return SetBankrollAtStart(run, p, ToCurrency(value));
    return SetTableTarget(run, number, value);
}

bool IsTableTarget(int number) { return number >= 3000; }
bool IsNameTarget(int number) { return 800 <= number && number <= 899; }

/// Adds to a bet or CheckStack exactly, without going through a double.
bool AddAmount(Table& t, int number, int p, double value) {
    const currency amount = ToCurrency(value);
    if (IsLayoutRow(number)) {
        PlaceBet(t, p, number, amount);
    } else {
        SetStack(t, p, number, SaturatedSum(t.BetAmount(p, number), amount));
    }
    return true;
}

bool RoundTarget(RunState& run, int action, int number, int p, double unit) {
    if (unit == 0) return false;
    std::string kept;
    const currency q = ToCurrency(NumberOfValue(ReadTarget(run, number, p, kept)) / unit);
    const currency whole = FloorTo(q, Dollars(1));
    if (whole == q) return false;
    double count = ToDouble(whole);
    if (action == 489 || (action == 487 && q - whole >= currency{CurrencyScale / 2})) count += 1;
    return SetTarget(run, number, p, {false, count * unit, {}});
}

}  // namespace

double NumberOfValue(const ScriptValue& value) { return value.IsText ? NumberAtStart(value.Text) : value.Number; }

std::string TextOfValue(const ScriptValue& value) {
    return value.IsText ? std::string(value.Text) : GeneralNumber(value.Number);
}

bool MayActOn(RunState& run, int p) {
    const Table& t = *run.Game;
    if (p < 1 || p > 8) return false;
    if (t.PlayerName[Seat(p)].empty()) {
        if (run.CollectWarnings) run.Warn("There's not a player at position " + std::to_string(p) + ".");
        return false;
    }
    if (p == run.RunningPlayer || t.AllowAct4Others[Seat(run.RunningPlayer)]) return true;
    if (run.CollectWarnings) {
        run.Warn(t.PlayerName[Seat(run.RunningPlayer)] +
                 " is not allowed to perform actions for other players.\nSee Options - Permissions.");
    }
    return false;
}

bool SetTarget(RunState& run, int number, int p, const ScriptValue& value, bool absolute) {
    Table& t = *run.Game;
    if (!std::isfinite(NumberOfValue(value)) || number == 0) return false;
    if (!IsTableTarget(number) && !MayActOn(run, p)) return false;
    if (IsNameTarget(number)) {
        std::string& name = t.CheckStackName[Seat(p)][static_cast<std::size_t>(number - 800)];
        if (absolute) {
            name = TextOfValue(value);
        } else {
            name += TextOfValue(value);
        }
        return true;
    }
    double n = NumberOfValue(value);
    if (!absolute) {
        if (IsLayoutRow(number) || IsStack(number)) return AddAmount(t, number, p, n);
        std::string kept;
        n += NumberOfValue(ReadTarget(run, number, p, kept));
    }
    if (number == 670 || number == 671) {
        return SetHandling(run, p, number == 670, absolute ? value : ScriptValue{false, n, {}});
    }
    return SetNumber(run, number, p, n);
}

ScriptValue ReadTarget(RunState& run, int number, int p, std::string& text) {
    if (number == 0 || p < 0 || p > 8) return {};
    if (IsNameTarget(number)) {
        text = StackNameOf(*run.Game, p, number - 800);
        return {true, 0, text};
    }
    Reference present;
    present.Scope = 3;
    present.Result = 1;
    present.Statistic = 13;
    return {false, BindVariable(number, present)(run, p), {}};
}

bool ApplyAmount(RunState& run, int action, int number, int p, const ScriptValue& value) {
    if (action == 481) return SetTarget(run, number, p, value);
    const double n = NumberOfValue(value);
    switch (action) {
        case 484:
            return SetTarget(run, number, p, {false, n, {}}, false);
        case 485:
            return SetTarget(run, number, p, {false, -n, {}}, false);
        case 482:
        case 483: {
            std::string kept;
            double product = 0;
            const double present = NumberOfValue(ReadTarget(run, number, p, kept));
            if (!Arithmetic(run, action == 482 ? 61 : 62, present, n, product)) return false;
            return SetTarget(run, number, p, {false, product, {}});
        }
        default:
            return RoundTarget(run, action, number, p, n);
    }
}

bool ApplyToTarget(RunState& run, int action, int number, int p) {
    Table& t = *run.Game;
    if (action == 460) return SetTarget(run, number, p, {IsNameTarget(number), 0, {}});
    if (!IsLayoutRow(number) || !MayActOn(run, p)) return false;
    switch (action) {
        case 450:
            BuyPlaceBet(t, p, number);
            return true;
        case 451:
            return CallBet(t, p, number, false, true);
        case 452:
            return CallBet(t, p, number, true, true);
        case 453:
            ResetBetWorking(t, p, number);
            if (t.Front != nullptr && !t.HyperDriveActive) t.Front->RedrawBet(p, number);
            return true;
        case 454:
            t.BetStreak(p, number) = 0;
            t.PrevBetStreak(p, number) = 0;
            return true;
        default:
            return false;
    }
}

bool SwapTargets(RunState& run, int first, int firstPlayer, int second, int secondPlayer) {
    if (first == 0 || second == 0) return false;
    std::string firstText, secondText;
    const ScriptValue a = ReadTarget(run, first, firstPlayer, firstText);
    const ScriptValue b = ReadTarget(run, second, secondPlayer, secondText);
    const bool setFirst = SetTarget(run, first, firstPlayer, b);
    const bool setSecond = SetTarget(run, second, secondPlayer, a);
    return setFirst || setSecond;
}

}  // namespace tarnwick
