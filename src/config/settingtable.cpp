#include "config/settingtable.h"

#include <limits>
#include <type_traits>

#include "table/format.h"

namespace tarnwick {

namespace {

template <class T>
SettingCell CellOf(T& value) {
    if constexpr (std::is_same_v<T, std::uint32_t>) {
        return ColorCell{&value};
    } else {
        return &value;
    }
}

/// The cell of a member of Settings: a value, an array, or an array of arrays.
template <auto Member>
SettingCell At(Settings& s, int index, int index2) {
    auto& member = s.*Member;
    const auto i = static_cast<std::size_t>(index);
    const auto j = static_cast<std::size_t>(index2);
    if constexpr (requires { member[i][j]; }) {
        return CellOf(member[i][j]);
    } else if constexpr (requires { member[i]; }) {
        return CellOf(member[i]);
    } else {
        return CellOf(member);
    }
}

template <auto Member>
SettingCell RateAt(Settings& s, int, int) {
    return RateCell{&(s.*Member)};
}

constexpr std::int64_t Most = 999'999'999 * CurrencyScale;
constexpr std::int64_t MostBankroll = 9'999'999 * CurrencyScale;
constexpr std::int64_t MostOdds = 9'999 * CurrencyScale;

template <auto Member>
constexpr SettingRow Flag(std::string_view name, std::string_view meaning) {
    return {.Name = name, .Meaning = meaning, .At = At<Member>};
}

template <auto Member>
constexpr SettingRow Whole(std::string_view name, std::string_view meaning, std::int64_t low, std::int64_t high) {
    return {.Name = name, .Meaning = meaning, .At = At<Member>, .Low = low, .High = high};
}

/// An amount within low..high ten-thousandths.
template <auto Member>
constexpr SettingRow Amount(std::string_view name, std::string_view meaning, std::int64_t low, std::int64_t high) {
    return Whole<Member>(name, meaning, low, high);
}

/// An amount whose limits the checks of its group tell.
template <auto Member>
constexpr SettingRow Checked(std::string_view name, std::string_view meaning, CheckGroup group) {
    SettingRow row = Amount<Member>(name, meaning, -Most, Most);
    row.Group = group;
    return row;
}

constexpr SettingRow ByPosition(SettingRow row) {
    row.FirstIndex = 1;
    row.LastIndex = 8;
    return row;
}

constexpr SettingRow Indexed(SettingRow row, int first, int last) {
    row.FirstIndex = first;
    row.LastIndex = last;
    return row;
}

constexpr SettingRow BySlot(SettingRow row) {
    row = ByPosition(row);
    row.FirstIndex2 = 0;
    row.LastIndex2 = 7;
    return row;
}

constexpr SettingRow Vig(SettingRow row) {
    row.MovesVig = true;
    return row;
}

template <auto Member>
constexpr SettingRow Rate(std::string_view name, std::string_view meaning) {
    return Vig({.Name = name, .Meaning = meaning, .At = RateAt<Member>, .Low = 0, .High = CurrencyScale});
}

template <auto Member>
constexpr SettingRow Payoffs(std::string_view name, std::string_view meaning, int first, int last) {
    SettingRow row{.Name = name, .Meaning = meaning, .At = At<Member>};
    row.Group = CheckGroup::Payoffs;
    return Vig(Indexed(row, first, last));
}

constexpr SettingRow ChecksRow() {
    return Vig(Indexed(Checked<&Settings::CheckDenominations>("CheckDenominations", "Check values", CheckGroup::Checks),
                       1, 5));
}

constexpr SettingRow ComeOutRow() {
    return {.Name = "ComeOutWorking",
            .Meaning = "Works on a come-out roll, by position (0 the table) and bet",
            .FirstIndex = 0,
            .LastIndex = 8,
            .FirstIndex2 = 1,
            .LastIndex2 = Row::LastBet};
}

SettingCell MaskAt(Settings& s, int index, int) { return BitsCell{&s.CompBetMasks[static_cast<std::size_t>(index)]}; }

constexpr SettingRow MasksRow() {
    return Indexed({.Name = "CompBetMasks", .Meaning = "Bits of the bets figured in comps", .At = MaskAt}, 1, 3);
}

constexpr SettingRow BarRow() {
    SettingRow row = Whole<&Settings::BarDont>("BarDont", "Number barred on the don't side, 2 or 12", 2, 12);
    row.Step = 10;
    return row;
}

constexpr SettingRow AutoStopRow() {
    SettingRow row =
        Amount<&Settings::AutoStopRolls>("AutoStopRolls", "Rolls between automatic stops, 0 none", 0, Most);
    row.Step = CurrencyScale;
    return row;
}

constexpr SettingRow With(SettingRow row, std::string (*afterwards)(Table& t, int index)) {
    row.Afterwards = afterwards;
    return row;
}

/// Generators that lean on a missing library give way to #4.
std::string AvoidMissingGenerator(Table& t, int) {
    constexpr int ofLibrary1 = 1 << 0 | 1 << 5 | 1 << 7;
    constexpr int ofLibrary2 = 1 << 1 | 1 << 6;
    const int chosen = 1 << t.RngIndex;
    const bool missing1 = (t.MissingRngLibraries & 1) != 0 && (chosen & ofLibrary1) != 0;
    const bool missing2 = (t.MissingRngLibraries & 2) != 0 && (chosen & ofLibrary2) != 0;
    if (missing1 || missing2) t.RngIndex = 3;
    return {};
}

std::string RefuseNegativeBankroll(Table& t, int p) {
    return t.AllowNegativeBankroll[static_cast<std::size_t>(p)] ? std::string{} : NegativeBankrollFault(t, p).Text;
}

using S = Settings;
constexpr auto Limits = CheckGroup::Limits;

constexpr SettingRow Rows[] = {
    // Checks and dice
    ChecksRow(),
    Flag<&S::UseCentsSymbol>("UseCentsSymbol", "Draw cents with the cents symbol"),
    Flag<&S::AutoArrangeChips>("AutoArrangeChips", "Auto-arrange checks"),
    Whole<&S::DiceAction>("DiceAction", "Dice: 0 normal, 1 stationary, 2 stationary in the center", 0, 2),
    Checked<&S::RollsPerHour>("RollsPerHour", "Simulated rolls per hour", CheckGroup::RollRate),
    Whole<&S::RollRateUnit>("RollRateUnit", "Unit in which that rate is shown", 0, 5),
    Whole<&S::DieFacePicture>("DieFacePicture", "Picture of the dice", 0, 99),
    Whole<&S::CheckPicture>("CheckPicture", "Picture of the checks", 0, 99),
    // Colors
    Indexed(Whole<&S::TableColors>("TableColors", "Color of a table element", 0, 0xFFFFFF), 0, 42),
    Indexed(Whole<&S::TableColorOptions>("TableColorOptions", "Choice of the color page", 0, 255), 0, 4),
    Whole<&S::SpotlightLevel>("SpotlightLevel", "Spotlight: 0 off, 1 low, 2 medium, 3 high", 0, 3),
    // Comps
    Amount<&S::CompRate>("CompRate", "Comp rate in percent", 0, Most),
    Whole<&S::CompBase>("CompBase", "Comps by: 0 theoretical house vig, 1 total action, 2 average action and time", 0,
                        2),
    Flag<&S::CompsUseTrueProbs>("CompsUseTrueProbs", "Always figure comps with the true dice probabilities"),
    MasksRow(),
    // Sound
    Flag<&S::DisableAllSound>("DisableAllSound", "Disable all game sounds"),
    Flag<&S::DisableAutoBetSounds>("DisableAutoBetSounds", "Disable Auto-Bet sounds"),
    Whole<&S::StickPersonIndex>("StickPersonIndex", "Set of stick calls, 0 none", 0, 999),
    Whole<&S::DiceSoundIndex>("DiceSoundIndex", "Set of dice sounds, 0 none", 0, 999),
    Whole<&S::CheckSoundIndex>("CheckSoundIndex", "Set of check sounds, 0 none", 0, 999),
    Whole<&S::WinSoundIndex>("WinSoundIndex", "Set of win sounds, 0 none", 0, 999),
    // Random numbers, notices, printing
    With(Whole<&S::RngIndex>("RngIndex", "Random number generator, 0 for #1 to 7 for #8", 0, 7), AvoidMissingGenerator),
    Flag<&S::UserSeedOn>("UserSeedOn", "Ask for seeds"),
    Flag<&S::ReSeedNewSessions>("ReSeedNewSessions", "Seed again at every new session"),
    Whole<&S::LastSeed>("LastSeed", "Last entered seed", std::numeric_limits<std::int32_t>::min(),
                        std::numeric_limits<std::int32_t>::max()),
    Whole<&S::NotifyBits>("NotifyBits", "Notices: 1 refusals, 2 limits, 4 charges, 8 and 16 Auto-Bet", 0, 31),
    Flag<&S::SnapMouse>("SnapMouse", "Snap mouse-pointer"),
    Indexed(Whole<&S::PrintColors>("PrintColors", "Print color", 0, 15), 0, 2),
    // Bankroll
    ByPosition(Whole<&S::BankrollStartRule>("BankrollStartRule", "New session: 0 stored amount, 1 ask, 2 carry forward",
                                            0, 2)),
    ByPosition(Amount<&S::BankrollStartAmount>("BankrollStartAmount", "Bankroll of a new session", -MostBankroll,
                                               MostBankroll)),
    With(ByPosition(Flag<&S::AllowNegativeBankroll>("AllowNegativeBankroll", "Allow negative bankroll amounts")),
         RefuseNegativeBankroll),
    ByPosition(Amount<&S::AtmAmount>("AtmAmount", "Amount in the ATM box", 0, MostBankroll)),
    // Bets
    Checked<&S::MinPlacardBet>("MinPlacardBet", "Minimum bet", Limits),
    Checked<&S::MinPlacardPropBet>("MinPlacardPropBet", "Min prop bet", Limits),
    Checked<&S::MaxPlacardBet>("MaxPlacardBet", "Maximum bet", Limits),
    Amount<&S::MaxPropBetPayoff>("MaxPropBetPayoff", "Max prop bet payoff", 0, Most),
    Amount<&S::MaxOddsBet>("MaxOddsBet", "Max odds bet", 0, Most),
    Amount<&S::OddsAllowed410>("OddsAllowed410", "Odds allowed on 4 and 10", 0, MostOdds),
    Amount<&S::OddsAllowed59>("OddsAllowed59", "Odds allowed on 5 and 9", 0, MostOdds),
    Amount<&S::OddsAllowed68>("OddsAllowed68", "Odds allowed on 6 and 8", 0, MostOdds),
    Whole<&S::OddsCalcMethod>("OddsCalcMethod",
                              "Odds: 0 auto select, 1 no push, 2 minor push, 3 color push, 4 and 5 single odds", 0, 5),
    Whole<&S::ShooterBetRequirement>("ShooterBetRequirement", "To shoot: 0 no bet, 1 a line bet, 2 any bet", 0, 2),
    BarRow(),
    Flag<&S::AllowPutBets>("AllowPutBets", "Allow Put bets"),
    Flag<&S::ReturnAbandonedBets>("ReturnAbandonedBets", "Return abandoned contract bets"),
    Flag<&S::UseBig68>("UseBig68", "Use Big 6 & 8 bets"),
    Flag<&S::UseSpecialPropBets>("UseSpecialPropBets", "Use special prop bets"),
    Flag<&S::UseMidwayBet>("UseMidwayBet", "Use Midway bet"),
    Flag<&S::UseFireBet>("UseFireBet", "Use Fire bet"),
    Checked<&S::MaxFireBet>("MaxFireBet", "Max Fire bet", CheckGroup::Payoffs),
    Rate<&S::LayVigRate>("LayVigRate", "Vig on Lay bets"),
    Vig(Flag<&S::LayVigOnAllBets>("LayVigOnAllBets", "Charge all Lay bets, not winning ones only")),
    Vig(Whole<&S::LayVigRounding>("LayVigRounding", "Lay vig rounded 0 normally, 1 down, 2 up", 0, 2)),
    Rate<&S::BuyVigRate>("BuyVigRate", "Vig on Buy bets"),
    Vig(Flag<&S::BuyVigOnAllBets>("BuyVigOnAllBets", "Charge all Buy bets, not winning ones only")),
    Vig(Whole<&S::BuyVigRounding>("BuyVigRounding", "Buy vig rounded 0 normally, 1 down, 2 up", 0, 2)),
    ComeOutRow(),
    // Payoffs
    Payoffs<&S::Payoff>("Payoff", "Payoff of a bet", 1, Row::LastBet),
    Payoffs<&S::FieldPayoff>("FieldPayoff", "Payoff of the Field by dice", 1, 21),
    Payoffs<&S::SevenPointSevenPayoff>("SevenPointSevenPayoff", "Payoff of 7 Point 7: come-out 7, 7 after the point", 1,
                                       2),
    Payoffs<&S::MidwayPayoff>("MidwayPayoff", "Payoff of Midway: hard 6, easy 6, 7, easy 8, hard 8", 1, 5),
    Payoffs<&S::FirePayoff>("FirePayoff", "Payoff of Fire by points made", 1, 6),
    // Probability
    Flag<&S::UseSkewedProbability>("UseSkewedProbability", "Throw skewed dice"),
    Whole<&S::ProbabilityDisplayMode>("ProbabilityDisplayMode", "How probabilities are shown", 0, 3),
    Amount<&S::RollsOutOf>("RollsOutOf", "Rolls out of which they are shown", 1, Most),
    // Advantage
    Flag<&S::CountZeroOutcomes>("CountZeroOutcomes", "Count zero outcomes as decisions"),
    Flag<&S::ShowMiscData>("ShowMiscData", "Show misc. roll, dec, and time data"),
    // Unattended runs
    Whole<&S::HyperThrottle>("HyperThrottle", "Speed: 0 to 11 Hyper-Drive, 12 Auto-Roll", 0, 12),
    Amount<&S::AutoRollDelay>("AutoRollDelay", "Seconds between rolls of Auto-Roll", 0, 300 * CurrencyScale),
    AutoStopRow(),
    // Events Log
    Flag<&S::EventsLogOn>("EventsLogOn", "Keep the Events Log"),
    Flag<&S::RecordRolls>("RecordRolls", "Log rolls"),
    Flag<&S::RecordBetChanges>("RecordBetChanges", "Log changes of bets"),
    Flag<&S::RecordBetsWon>("RecordBetsWon", "Log bets won"),
    Flag<&S::RecordBetsLost>("RecordBetsLost", "Log bets lost"),
    Flag<&S::RecordCheckStackChanges>("RecordCheckStackChanges", "Log changes of CheckStacks"),
    Flag<&S::RecordPassesMisses>("RecordPassesMisses", "Log passes and misses"),
    Flag<&S::RecordShooterChanges>("RecordShooterChanges", "Log changes of the shooter"),
    Flag<&S::RecordBankrollChanges>("RecordBankrollChanges", "Log changes of bankrolls"),
    Flag<&S::ClearLogOnNewSession>("ClearLogOnNewSession", "Clear the log at a new session"),
    Flag<&S::KeepLatestRollOnTop>("KeepLatestRollOnTop", "Keep the latest roll on top"),
    // Standing orders
    ByPosition(Flag<&S::AutoTakeFullOdds>("AutoTakeFullOdds", "Take full odds on a new point")),
    ByPosition(Flag<&S::AutoLayFullOdds>("AutoLayFullOdds", "Lay full odds on a new point")),
    ByPosition(Flag<&S::AutoDownPlaceBets>("AutoDownPlaceBets", "Take the Place bet on a new point down")),
    ByPosition(Flag<&S::AutoPassDice>("AutoPassDice", "Pass the dice")),
    ByPosition(Whole<&S::AutoAdjustMode>("AutoAdjustMode", "Adjust bets: 0 manual, 1 minor, 2 color correction", 0, 2)),
    ByPosition(Whole<&S::LayBias>("LayBias", "Lay bets: 0 nearest, 1 increase, 2 decrease", 0, 2)),
    ByPosition(Whole<&S::PlaceBias>("PlaceBias", "Place bets: 0 nearest, 1 increase, 2 decrease", 0, 2)),
    ByPosition(Whole<&S::DoBias>("DoBias", "Do odds: 0 nearest, 1 increase, 2 decrease", 0, 2)),
    ByPosition(Whole<&S::DontBias>("DontBias", "Don't odds: 0 nearest, 1 increase, 2 decrease", 0, 2)),
    ByPosition(Whole<&S::WinnerHandling>("WinnerHandling", "What to do with winning bets, 0 ask", 0, 7)),
    ByPosition(Whole<&S::LoserHandling>("LoserHandling", "What to do with losing bets, 0 ask", 0, 7)),
    BySlot(Whole<&S::HandleOperator>("HandleOperator", "Arithmetic of a handling: 0 +, 1 -, 2 x, 3 /", 0, 3)),
    BySlot(Amount<&S::HandleAmount>("HandleAmount", "Amount of a handling", 0, MostBankroll)),
    BySlot(Whole<&S::HandleUnit>("HandleUnit", "Unit of a handling: 0 $, 1 %, 2 to 6 checks", 0, 6)),
    // Permissions
    ByPosition(Flag<&S::AllowActProb>("AllowActProb", "Scripts may activate probability and roll files")),
    ByPosition(Flag<&S::AllowAct4Others>("AllowAct4Others", "Scripts may act for other players")),
    ByPosition(Flag<&S::AllowReset>("AllowReset", "Scripts may start new sessions")),
};

}  // namespace

std::span<const SettingRow> SettingTable() { return Rows; }

const SettingRow* FindSetting(std::string_view name) {
    const std::string wanted = LowerCase(name);
    for (const SettingRow& row : Rows) {
        if (LowerCase(row.Name) == wanted) return &row;
    }
    return nullptr;
}

}  // namespace tarnwick
