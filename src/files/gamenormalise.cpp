// Makes a sound table of what a game file says, whatever it says.
#include <algorithm>
#include <bit>
#include <limits>
#include <variant>

#include "config/configure.h"
#include "config/payoffs.h"
#include "config/settingtable.h"
#include "dice/dice.h"
#include "files/gameimage.h"
#include "stats/bankrollgraph.h"
#include "table/marks.h"
#include "table/placement.h"

namespace tarnwick {

namespace {

std::size_t At(int i) { return static_cast<std::size_t>(i); }

// Beyond what any game comes to. What is more than a hundred times as much becomes this; so what play adds to it stays.
constexpr currency MostBet = Dollars(999'999'999);
constexpr currency MostBankroll = Dollars(9'999'999'999);
constexpr currency MostStack = {999'999'999'999'999'999};  // 99,999,999,999,999.9999
constexpr std::int32_t MostStreak = 1'000'000'000;

void Clamp(std::int32_t& value, std::int32_t low, std::int32_t high) { value = std::clamp(value, low, high); }
void Clamp(currency& value, currency low, currency high) { value = std::clamp(value, low, high); }

/// Money of a game, within +-`most` or near it.
currency SoundMoney(currency value, currency most) {
    return value > most * 100 ? most : value < most * -100 ? -most : value;
}

/// A count within +-`most` or near it, by the same rule.
void FixCount(std::int32_t& value, std::int32_t most) {
    if (value > 2 * most) value = most;
    if (value < -2 * most) value = -most;
}

// --- settings ---

/// Brings one setting into its range; what no step reaches becomes the default.
struct CellFixer {
    const SettingRow& Row;
    SettingCell Default;

    std::int64_t Fixed(std::int64_t value, std::int64_t standard) const {
        const bool limited = Row.Low != 0 || Row.High != 0;
        if (limited) value = std::clamp(value, Row.Low, Row.High);
        return limited && (value - Row.Low) % Row.Step != 0 ? standard : value;
    }
    void Fix(currency& value, currency standard) const {
        value.TenThousandths = Fixed(value.TenThousandths, standard.TenThousandths);
    }
    void operator()(std::monostate) const {}
    void operator()(bool*) const {}
    void operator()(std::int32_t* value) const {
        *value = static_cast<std::int32_t>(Fixed(*value, *std::get<std::int32_t*>(Default)));
    }
    void operator()(currency* value) const { Fix(*value, *std::get<currency*>(Default)); }
    void operator()(RateCell rate) const { Fix(*rate.Value, *std::get<RateCell>(Default).Value); }
    void operator()(double* value) const {
        *value = ToDouble(
            {Fixed(ToCurrency(*value).TenThousandths, ToCurrency(*std::get<double*>(Default)).TenThousandths)});
    }
    void operator()(PayoffEntry* payoff) const {
        constexpr currency most = Dollars(9'999'999);
        const PayoffEntry& standard = *std::get<PayoffEntry*>(Default);
        payoff->ToForm = IsZero(payoff->ToForm) ? ForWord : ToWord;
        const bool sound = payoff->For > currency{} && payoff->For <= most && Abs(payoff->Pays) <= most;
        if (!sound) *payoff = standard;
    }
    template <class Other>
    void operator()(Other) const {}
};

void FixSetting(const SettingRow& row, Settings& settings, Settings& standard) {
    if (row.At == nullptr) return;
    const int last = std::max(row.FirstIndex, row.LastIndex);
    const int last2 = std::max(row.FirstIndex2, row.LastIndex2);
    for (int i = row.FirstIndex; i <= last; ++i) {
        for (int j = row.FirstIndex2; j <= last2; ++j) {
            std::visit(CellFixer{row, row.At(standard, i, j)}, row.At(settings, i, j));
        }
    }
}

bool ChecksAreSound(const Table& t) {
    const auto& checks = t.CheckDenominations;
    for (std::size_t i = 1; i <= 5; ++i) {
        if (checks[i] <= (i == 1 ? currency{} : checks[i - 1]) || checks[i] > MostBet) return false;
    }
    return true;
}

void FixSettings(Table& t) {
    const auto standard = std::make_unique<Table>();
    SetDefaultSettings(*standard);
    for (const SettingRow& row : SettingTable()) FixSetting(row, t, *standard);
    for (std::size_t row = Row::LastBet + 1; row < t.Payoff.size(); ++row) t.Payoff[row] = standard->Payoff[row];
    t.FirePayoff[0] = standard->FirePayoff[0];
    if (!ChecksAreSound(t)) t.CheckDenominations = standard->CheckDenominations;
    for (currency* limit : {&t.MinPlacardBet, &t.MinPlacardPropBet, &t.MaxPlacardBet, &t.MaxFireBet}) {
        Clamp(*limit, currency{}, MostBet);
    }
    if (t.RollsPerHour <= currency{}) t.RollsPerHour = standard->RollsPerHour;
    UpdatePayoffUnits(t);
}

// --- the state of play ---

bool IsPoint(std::int32_t n) { return n == 0 || (4 <= n && n <= 10 && n != 7); }

std::int32_t SeatedPositions(const Table& t) {
    std::int32_t seated = 0;
    for (int p = 1; p < Positions; ++p) seated |= IsSeated(t, p) ? 1 << p : 0;
    return seated;
}

void FixPlay(Table& t) {
    t.PlayerName[0] = "House";
    t.PlayerCount = std::popcount(static_cast<unsigned>(SeatedPositions(t)));
    for (std::int32_t* p : {&t.ActivePlayer, &t.Shooter, &t.HandShooter, &t.LastHandShooter}) {
        if (*p < 0 || *p >= Positions || !IsSeated(t, *p)) *p = 0;
    }
    for (std::int32_t* point : {&t.Point, &t.PrevPoint, &t.PrevPrevPoint, &t.LastPoint}) {
        if (!IsPoint(*point)) *point = 0;
    }
    Clamp(t.Die1, 1, 6);
    Clamp(t.Die2, 1, 6);
    t.DiceTotal = t.Die1 + t.Die2;
    t.PointsMadeMask &= 63;
    t.PointsMadeCount = std::popcount(static_cast<unsigned>(t.PointsMadeMask));
    t.MarkedNumbers &= AllMarks;
    Clamp(t.FourRollsCount, 0, 3);
    for (std::int32_t* count : {&t.HandComeouts, &t.HandPasses, &t.HandMisses}) {
        *count = std::max(*count, 0);
        FixCount(*count, MaxSessionRolls);
    }
    t.RollInProgress = t.AutoRollActive = t.HyperDriveActive = t.PadRollPending = false;
    t.ScriptRunning = t.ScriptStopRequested = t.FireHandReset = t.PointMoving = false;
    t.StopReason.clear();
}

// --- bets ---

currency SoundAmount(currency amount, int row) {
    if (IsLayoutRow(row)) return std::max(SoundMoney(amount, MostBet), currency{});
    return IsStack(row) ? std::clamp(amount, -MostStack, MostStack) : currency{};
}

/// What goes with the six bets from `row` on is gone with them.
void FixBesideBets(std::array<currency, 6>& cells, const Table& t, int p, int row) {
    for (currency& cell : cells)
        cell = IsZero(t.BetAmount(p, row++)) ? currency{} : std::max(SoundMoney(cell, MostBet), currency{});
}

void SetCells(Table& t, const PlayerImage& player, int p) {
    for (int row = 1; row <= Row::LastRow; ++row) {
        SetBetAmount(t, p, row, SoundAmount(player.BetAmount[At(row)], row));
        t.PrevBetAmount(p, row) = SoundAmount(player.PrevBetAmount[At(row)], row);
        t.BetAfterRoll(p, row) = SoundAmount(player.BetAfterRoll[At(row)], row);
    }
    for (int row = 0; row < 100; ++row) {
        t.EstablishedBet(p, row) = row <= 85 ? SoundAmount(t.EstablishedBet(p, row), row) : currency{};
    }
    for (int row = 0; row <= 100; ++row) {
        FixCount(t.BetStreak(p, row), MostStreak);
        FixCount(t.PrevBetStreak(p, row), MostStreak);
    }
    FixBesideBets(t.BuyVigCharged[At(p)], t, p, Row::Buy4);
    FixBesideBets(t.LayVigCharged[At(p)], t, p, Row::Lay4);
    FixBesideBets(t.ComeFlatNow[At(p)], t, p, Row::Come4);
    t.PrevBankroll[At(p)] = SoundMoney(player.PrevBetAmount[0], MostBankroll);
    t.PrevScriptOn[At(p)] = false;
}

/// An empty position has the list of the table.
void SetWorkingCells(Table& t, const GameImage& image, int p) {
    const bool seated = IsSeated(t, p);
    const auto& comeOut = seated ? image.Players[At(p)].ComeOutWorking : image.HouseComeOutWorking;
    for (int row = 0; row <= 100; ++row) {
        t.ComeOutWorking(p, row) = comeOut[At(row)] != 0 ? 1 : 0;
        const int standard = t.Point == 0 ? t.ComeOutWorking(p, row) : 1;
        const int state = seated ? image.Players[At(p)].BetWorking[At(row)] : p == 0 ? comeOut[At(row)] != 0 : standard;
        t.WorkingCells(p, row) = static_cast<std::int8_t>(-1 <= state && state <= 2 ? state : standard);
        if (state == -1 || state == 2) t.SeatsCalled = static_cast<SeatMask>(t.SeatsCalled | (1u << p));
    }
}

void FixSeat(Table& t, const GameImage& image, int p) {
    const std::size_t i = At(p);
    SetCells(t, image.Players[i], p);
    const std::array<std::int32_t, 5> usual = {0, 101, 102, 103, 104};
    auto& visible = t.VisibleStack[i];
    visible[0] = 0;
    for (std::size_t n = 1; n <= 4; ++n) {
        if (!IsStack(visible[n]) || std::find(visible.begin() + 1, visible.begin() + static_cast<std::ptrdiff_t>(n),
                                              visible[n]) != visible.begin() + static_cast<std::ptrdiff_t>(n)) {
            visible = usual;
        }
    }
    t.PrevScriptOn[i] = IsSeated(t, p) && ((image.PrevAutoBetOnMask >> p) & 1) != 0;
    t.ScriptName[i] = image.Players[i].Script.Name;
    if (!IsSeated(t, p)) t.ScriptOn[i] = false;
    t.BankrollInvested[i] = SoundMoney(t.BankrollInvested[i], MostBankroll);
}

void FixMoney(Table& t) {
    for (auto* figures : {&t.Bankroll, &t.BankrollBegin, &t.BankrollHigh, &t.BankrollLow}) {
        for (currency& amount : *figures) amount = SoundMoney(amount, MostBankroll);
    }
    for (std::size_t p = 0; p < Positions; ++p) {
        t.Bankroll[p + 18] = t.Bankroll[p + 36] = t.Bankroll[p];
        t.BetsOnTable[p] = p == 0 ? currency{} : BetsOnTableOf(t, static_cast<int>(p));
        t.RailAmount[p] = t.Bankroll[p] - t.BetsOnTable[p];
        t.BankrollAtRollStart[p] = t.Bankroll[p];
    }
    // Whatever is touched is compared and copied by the next roll.
    for (int p = 1; p < Positions; ++p) {
        for (int row = 1; row <= Row::LastRow; ++row) TouchBet(t, p, row);
    }
}

// --- what windows show ---

bool IsGraphScale(currency scale) {
    return NextGraphScale(NextGraphScale(scale, true), false) == scale ||
           NextGraphScale(NextGraphScale(scale, false), true) == scale;
}

void FixGraph(Table& t) {
    for (currency* scale : {&t.GraphScale, &t.GraphBaseScale}) {
        if (!IsGraphScale(*scale)) *scale = Dollars(1);
    }
    t.GraphTop = SoundMoney(t.GraphTop, MostBankroll);
    Clamp(t.GraphPlotType, 0, 1);
    Clamp(t.GraphAdjustType, 0, 3);
    Clamp(t.GraphStyle, 0, 2);
    Clamp(t.GraphColor, 0, 9);
    Clamp(t.GraphAverageRolls, 0, GraphPage);
    Clamp(t.GraphRefLine1, 1, GraphPage);
    Clamp(t.GraphRefLine2, 1, GraphPage);
    Clamp(t.GraphPlayer, 1, 8);
    Clamp(t.GraphsPerPage, 0, 99);
    Clamp(t.GraphsOnPage, 0, 99);
    Clamp(t.LastPrintedRoll, 0, MaxSessionRolls);
}

void FixStatisticsWindows(Table& t) {
    const std::int32_t seated = SeatedPositions(t);
    for (std::int32_t* players :
         {&t.RollTotalsPlayers, &t.BetResultsPlayers, &t.HandsPlayers, &t.SummaryPlayers, &t.AutoPlayPlayers}) {
        *players &= seated;
    }
    for (std::int32_t* scope : {&t.RollTotalsScope, &t.BetResultsScope, &t.HandsScope, &t.SummaryScope}) {
        Clamp(*scope, 0, Scopes - 1);
    }
    for (std::int32_t* p : {&t.CheckStacksPlayer, &t.BetTrendsPlayer, &t.EditorPlayer, &t.ConfigBankrollPlayer}) {
        Clamp(*p, 1, 8);
    }
    Clamp(t.RollFreqsEvent, 2, 89);
    Clamp(t.RollTotalsDisplay, 0, 3);
    t.BetResultsBets[1] &= 0x7FFFFFFF;
    t.BetResultsBets[2] &= 0x7FFFFFFF;
    t.BetResultsBets[3] &= 0x1FFFFFFF;
    Clamp(t.SessionsPlayer, 0, 8);
    Clamp(t.SessionsStat, 0, 31);
    t.SessionsDisplay &= 15;
    if (t.GraphBarWidth != 1 && t.GraphBarWidth != 25 && t.GraphBarWidth != 105) t.GraphBarWidth = 5;
    t.TopSession = std::max(t.TopSession, 1);
    Clamp(t.BreakLow, -MostStack, MostStack);
    Clamp(t.BreakHigh, -MostStack, MostStack);
}

void FixViews(Table& t) {
    constexpr std::int32_t far = 100'000;  // pixels
    for (FormPlacement& place : t.FormPlacements) {
        Clamp(place.Left, -far, far);
        Clamp(place.Top, -far, far);
        Clamp(place.Width, 0, far);
        Clamp(place.Height, 0, far);
    }
    Clamp(t.MainWindowState, 0, 2);
    for (auto* places : {&t.StatusBoxLeft, &t.StatusBoxTop}) {
        for (std::int32_t& place : *places) Clamp(place, -far, far);
    }
    SetTableAngle(t, t.TableAngle);
    SetTableWidth(t, t.TableWidth);
    Clamp(t.TableOffsetX, -far, far);
    Clamp(t.TableOffsetY, -far, far);
    for (auto& view : t.SavedView) {
        Clamp(view[0], 0, 5000);
        view[1] = (view[1] % 360 + 360) % 360;
        Clamp(view[2], -far, far);
        Clamp(view[3], -far, far);
    }
    Clamp(t.StatusAlign, 0, 4);
    t.StatusLines &= 63;
    Clamp(t.SelectedCheck, 1, 5);
    Clamp(t.TexturePicture, 0, 99);
    for (std::int32_t* size : {&t.EventsLogFontSize, &t.CheckStacksFontSize, &t.EditorFontSize}) {
        Clamp(*size, FontSize::Smaller, FontSize::Larger);
    }
    t.EventsLogTopLine = std::max(t.EventsLogTopLine, 1);
    t.EventsLogLineCount = std::max(t.EventsLogLineCount, 0);
    Clamp(t.ConfigTab, 0, 9);
    t.AdvantageScroll = std::max(t.AdvantageScroll, 0);
    t.PayoffsScroll = std::max(t.PayoffsScroll, 0);
    Clamp(t.PadMode, 0, 3);
    Clamp(t.PadButtonColor, 0, 2);
}

void FixDiceWindow(Table& t) {
    Clamp(t.DiceFormat[1], 0, 1);
    Clamp(t.DiceFormat[2], FontSize::Smaller, FontSize::Larger);
    t.DiceFormat[3] &= 31;
    Clamp(t.DiceFormat[4], 0, 6);
    t.DiceSelectedRoll = std::max(t.DiceSelectedRoll, 1);
    for (auto& row : t.DiceTotalsMatrix) {
        for (std::int32_t& color : row) Clamp(color, 0, 99);
    }
}

/// The open file is no part of the table yet; `image` keeps what it was at.
void DetachFiles(Table& t, GameImage& image) {
    Clamp(t.DiceFileMode, 0, 2);
    t.DiceFileNextRecord = std::clamp(t.DiceFileNextRecord, 1, std::numeric_limits<std::int32_t>::max() - 1);
    t.DiceFileLastRecord = std::max(t.DiceFileLastRecord, 0);
    t.DiceFilePosition = std::max(t.DiceFilePosition, 1);
    t.DiceFileEnd = std::max(t.DiceFileEnd, 0);
    image.DiceFileState = t;
    image.DiceFileState.DiceRollFileName = image.DiceFile.Name;
    image.DiceFileState.DiceFileMemory = {};
    static_cast<DiceRollFile&>(t) = DiceRollFile{};
    ResetProbabilityMatrix(t);
    t.ProbabilityMatrix[0][0][0] = image.ProbabilityFormMode != 0 ? 1 : 0;
    t.ProbabilityFileName.clear();
    t.ProbabilitiesChanged = false;
    t.EventsLogFileName = image.EventsLog.Name;
    t.EventsLogHeading = EventsHeadingOf(image.EventsLogHeadingCode);
}

}  // namespace

Table& TableOfImage(GameImage& image) {
    Table& t = *image.T;
    DetachFiles(t, image);
    FixPlay(t);
    t.SeatsCalled = 0;
    for (int p = 0; p < Positions; ++p) SetWorkingCells(t, image, p);
    t.WorkingOverlay = 0;
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) image.Players[At(p)] = {};
        FixSeat(t, image, p);
    }
    FixSettings(t);
    FixMoney(t);
    t.PrevBetWorking = t.WorkingCells;
    FixGraph(t);
    FixStatisticsWindows(t);
    FixViews(t);
    FixDiceWindow(t);
    SetFigures(t, *image.Figures);
    return t;
}

}  // namespace tarnwick
