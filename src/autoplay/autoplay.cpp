#include "autoplay/autoplay.h"

#include <algorithm>

#include "config/payoffs.h"
#include "table/betrules.h"
#include "table/format.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

constexpr int Nearest = 0, Increase = 1, Decrease = 2;
constexpr int MinorCorrection = 1, ColorCorrection = 2;

std::size_t At(int p) { return static_cast<std::size_t>(p); }

int BiasOf(const Table& t, int p, int row) {
    if (IsLay(row)) return t.LayBias[At(p)];
    if (IsPlace(row)) return t.PlaceBias[At(p)];
    if (row == Row::PassLineOdds || IsComeOdds(row)) return t.DoBias[At(p)];
    if (row == Row::DontPassOdds || IsDontComeOdds(row)) return t.DontBias[At(p)];
    return Nearest;
}

void AddSentence(std::string& text, const std::string& sentence) {
    if (!text.empty()) text += "\n\n";
    text += sentence;
}

bool Mentions(const std::string& text, std::string_view lowerCaseWord) {
    return LowerCase(text).find(lowerCaseWord) != std::string::npos;
}

/// One request on its way to a multiple of what pays exactly.
class Adjustment {
  public:
    Adjustment(const Table& table, int position, int betRow, AdjustRequest& request)
        : T(table), P(position), BetRow(betRow), Asked(request), Bet(table.BetAmount(position, betRow)) {}

    void Run() {
        if (Asked.Delta <= -Bet) return;
        Mode = T.AutoAdjustMode[At(P)];
        if (IsOddsRow(BetRow) && Bet + Asked.Delta == Asked.MaxBet) Mode = std::min(Mode, MinorCorrection);
        FindNeighbours();
        if (OverMax() && UnderMin() && Asked.Delta >= currency{} && Mode == ColorCorrection) {
            Mode = MinorCorrection;
            FindNeighbours();
        }
        if (OverMax() && UnderMin()) {
            Asked.Delta = HoldContract(FitNone());
        } else {
            Asked.Delta = HoldContract(KeepLimits(Chosen()));
            TellLimits();
        }
    }

  private:
    const Table& T;
    const int P, BetRow;
    AdjustRequest& Asked;
    const currency Bet;
    int Mode = MinorCorrection;
    currency High, Low;  ///< the changes to the multiples above and below the total asked for

    bool OverMax() const { return Bet + High > Asked.MaxBet; }
    bool UnderMin() const { return Bet + Low < Asked.MinBet; }
    currency Established() const { return T.EstablishedBet(P, BetRow); }

    /// The unit in the highest color of check that the change consists of and is large enough for.
    currency ColorUnit(currency unit) const {
        const currency size = IsZero(Asked.Delta) ? Bet : Abs(Asked.Delta);
        for (std::size_t i = 5; i >= 2; --i) {
            const currency check = T.CheckDenominations[i];
            if (check <= currency{} || !IsMultipleOf(Asked.Delta, check)) continue;
            const currency colored = MultiplyDivide(unit, check, SmallestCheck(T));
            if (size >= colored) return colored;
        }
        return unit;
    }

    void FindNeighbours() {
        // A larger unit than any bet says no more than this one, and sums with it stay in range.
        constexpr currency enough = BankrollLimit * 10'000;
        currency unit = std::min(AdjustUnit(T, BetRow), enough);
        if (Mode == ColorCorrection) unit = ColorUnit(unit);
        High = Low = Asked.Delta;
        const currency total = Bet + Asked.Delta;
        if (IsMultipleOf(total, unit)) return;
        Low = FloorTo(total, unit) - Bet;
        High = Low + unit;
    }

    currency Chosen() const {
        const currency none{}, delta = Asked.Delta;
        switch (BiasOf(T, P, BetRow)) {
            case Increase:
                return delta < none ? Low : High;
            case Decrease: {
                // The change shrinks as long as something is left of it.
                const bool shrinksToHigh = delta < none ? !IsZero(High) : delta > none && Low <= none;
                return shrinksToHigh ? High : Low;
            }
            default:
                return NearestChange();
        }
    }

    /// Whether a change leaves a whole number of the steps that the player is making.
    bool IsWholeSteps(currency change) const {
        return !IsZero(Asked.Delta) && !IsZero(change) && IsMultipleOf(Bet + change, Asked.Delta);
    }

    currency NearestChange() const {
        const currency none{}, delta = Asked.Delta;
        const bool doFlat = BetRow == Row::PassLine || IsComeNumber(BetRow);
        const bool dontFlat = BetRow == Row::DontPass || IsDontComeNumber(BetRow);
        if (doFlat && Bet + Low < Established()) return High;
        if (dontFlat && Established() > none && Bet + High > Established()) return Low;
        if (IsWholeSteps(High)) return High;
        if (IsWholeSteps(Low)) return Low;
        if (delta > none && Low <= none) return High;
        if (delta < none && High >= none) return Low;
        return Abs(High - delta) <= Abs(Low - delta) ? High : Low;
    }

    currency KeepLimits(currency x) const {
        if (x == Low && UnderMin()) x = Asked.Delta > currency{} ? High : -Bet;
        if (Bet + x > Asked.MaxBet) x = Low;
        if (Bet + x < Asked.MinBet && x != -Bet) x = High;
        return x;
    }

    /// No multiple lies within the limits.
    currency FitNone() const {
        if (Asked.Delta < currency{}) {
            if (Asked.Text != nullptr) Asked.Text->clear();
            return -Bet;
        }
        if (Asked.Text != nullptr) AddSentence(*Asked.Text, "Unable to auto-adjust bet for proper odds payoff.");
        return std::max(currency{}, Asked.MaxBet - Bet);
    }

    /// No multiple is worth a contract: what the dice have established stays.
    currency HoldContract(currency x) const { return IsContract(T, BetRow) ? std::max(x, Established() - Bet) : x; }

    void TellLimits() const {
        if (Asked.Text == nullptr) return;
        std::string& text = *Asked.Text;
        const std::string amount = FormatCommas(Bet + Asked.Delta);
        if (OverMax() || Mentions(text, "maximum")) {
            AddSentence(text, "Maximum bet for proper odds payoff is: $" + amount);
        }
        if (Mentions(text, "minimum") && Asked.Delta != -Bet) {
            AddSentence(text, "Minimum bet for proper odds payoff is: $" + amount);
        }
    }
};

}  // namespace

currency AdjustUnit(const Table& t, int row) {
    const currency unit = PayoffOf(t, row).Unit;
    return unit > currency{} ? unit : SmallestCheck(t);
}

void AutoAdjustBet(const Table& t, int p, int row, AdjustRequest& request) {
    if (t.AutoAdjustMode[At(p)] > 0) Adjustment(t, p, row, request).Run();
}

void SetAutoTakeFullOdds(Table& t, int p, bool on) {
    t.AutoTakeFullOdds[At(p)] = on;
    t.GameChanged = true;
    if (on) MaxAllOdds(t, p);
}

void SetAutoLayFullOdds(Table& t, int p, bool on) {
    t.AutoLayFullOdds[At(p)] = on;
    t.GameChanged = true;
    if (on) MaxAllDontOdds(t, p);
}

void SetAutoDownPlaceBets(Table& t, int p, bool on) {
    t.AutoDownPlaceBets[At(p)] = on;
    t.GameChanged = true;
    // No slip: the order to lay full odds decides whether present Place bets come down, whichever way this one went.
    if (!t.AutoLayFullOdds[At(p)]) return;
    constexpr int placeBehindCome = Row::Place4 - Row::Come4;
    for (int row = Row::Come4; row <= Row::Come10; ++row) {
        if (!IsZero(t.BetAmount(p, row))) RemoveBet(t, p, row + placeBehindCome);
    }
    if (t.Point != 0 && !IsZero(t.BetAmount(p, Row::PassLine))) RemoveBet(t, p, Row::Place4 + PointIndex(t.Point));
}

void ApplyNewPointOrders(Table& t) {
    if (t.Point == 0) return;
    const int index = PointIndex(t.Point);
    for (int p = 1; p < Positions; ++p) {
        const unsigned onLine = t.SeatsOn[Row::PassLine] | t.SeatsOn[Row::DontPass];
        if ((onLine >> p & 1u) == 0) continue;
        const bool onPass = !IsZero(t.BetAmount(p, Row::PassLine));
        if (onPass && t.AutoTakeFullOdds[At(p)]) MaxOutBet(t, p, Row::PassLineOdds);
        if (onPass && t.AutoDownPlaceBets[At(p)]) {
            RemoveBet(t, p, Row::Place4 + index);
            RemoveBet(t, p, Row::Buy4 + index);
        }
        if (t.AutoLayFullOdds[At(p)] && !IsZero(t.BetAmount(p, Row::DontPass))) MaxOutBet(t, p, Row::DontPassOdds);
    }
}

void ResetStandingOrders(Table& t, int p) {
    const std::size_t i = At(p);
    for (auto* flags : {&t.AutoTakeFullOdds, &t.AutoLayFullOdds, &t.AutoDownPlaceBets, &t.AutoPassDice}) {
        (*flags)[i] = false;
    }
    for (auto* codes :
         {&t.AutoAdjustMode, &t.LayBias, &t.PlaceBias, &t.DoBias, &t.DontBias, &t.WinnerHandling, &t.LoserHandling}) {
        (*codes)[i] = 0;
    }
    t.HandleOperator[i] = {};
    t.HandleAmount[i] = {};
    t.HandleUnit[i] = {};
    for (int row = 0; row <= Row::FirstStack; ++row) SetComeOutWorking(t, p, row, t.ComeOutWorking(0, row) != 0);
}

}  // namespace tarnwick
