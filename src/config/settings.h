// Every rule and preference of a game, in one flat record that the table reads directly. A change counts from the
// next read; nothing is cached.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "table/currency.h"
#include "table/perbet.h"

namespace tarnwick {

/// One payoff: a bet of `For` wins `Pays`. `Pays` is always the net win, also where the payoff is shown as
/// "Pays + For for For", which `ToForm` 0 says; -1 shows "Pays to For". `Unit` is the smallest bet that pays whole
/// checks (kept by UpdatePayoffUnits). A negative `Pays` is a loss, 0 no decision.
struct PayoffEntry {
    currency Unit;
    currency Pays;
    currency ToForm;
    currency For;

    bool operator==(const PayoffEntry&) const = default;
};

struct Settings {
    // Limits and rules
    currency MinPlacardBet = Dollars(1);
    currency MinPlacardPropBet = Dollars(1);
    currency MaxPlacardBet = Dollars(1000);
    currency MaxPropBetPayoff = Dollars(3000);
    currency MaxOddsBet = Dollars(3000);
    currency OddsAllowed410 = Dollars(2);
    currency OddsAllowed59 = Dollars(2);
    currency OddsAllowed68 = {25'000};
    std::int32_t OddsCalcMethod = 0;  ///< 0 auto select, 1 no push, 2 minor push, 3 color push, 4 and 5 single odds
    std::int32_t ShooterBetRequirement = 1;  ///< 0 none, 1 a line bet, 2 any bet
    std::int32_t BarDont = 12;               ///< 2 or 12
    bool AllowPutBets = true;
    bool ReturnAbandonedBets = false;
    bool UseBig68 = true;
    bool UseSpecialPropBets = true;
    bool UseMidwayBet = true;
    bool UseFireBet = true;
    currency MaxFireBet = Dollars(5);
    currency LayVigRate = {500};      ///< a fraction: 0.05
    bool LayVigOnAllBets = true;      ///< true: taken when the bet is made; false: from wins only
    std::int32_t LayVigRounding = 0;  ///< 0 normally (a tie goes down), 1 down, 2 up
    currency BuyVigRate = {500};
    bool BuyVigOnAllBets = true;
    std::int32_t BuyVigRounding = 0;
    PerBet<std::int8_t, 101> ComeOutWorking;  ///< 1: works on a come-out roll; position 0 is the table's own list.
                                              ///< Change it through SetComeOutWorking

    // Payoffs: rows 1..91 by bet (44 and 47 follow the point), and the tables of bets with several results
    std::array<PayoffEntry, 101> Payoff{};
    std::array<PayoffEntry, 22> FieldPayoff{};           ///< 1..21 by dice
    std::array<PayoffEntry, 3> SevenPointSevenPayoff{};  ///< 1 come-out 7, 2 the 7 after the point
    std::array<PayoffEntry, 6> MidwayPayoff{};           ///< 1 hard 6, 2 easy 6, 3 any 7, 4 easy 8, 5 hard 8
    std::array<PayoffEntry, 7> FirePayoff{};             ///< by points made; 0 is always a loss

    // Checks and dice
    std::array<currency, 6> CheckDenominations = {currency{},  Dollars(1),   Dollars(5),
                                                  Dollars(25), Dollars(100), Dollars(500)};  ///< 1..5 ascending
    bool UseCentsSymbol = true;
    bool AutoArrangeChips = true;
    std::int32_t DiceAction = 0;
    currency RollsPerHour = Dollars(120);
    std::int32_t RollRateUnit = 0;
    std::int32_t DieFacePicture = 2;
    std::int32_t CheckPicture = 1;
    std::array<std::uint32_t, 43> TableColors{};
    std::array<std::int32_t, 5> TableColorOptions = {0, 0, 6, 6, 0};
    std::int32_t SpotlightLevel = 0;

    // Sound
    bool DisableAllSound = false;
    bool DisableAutoBetSounds = false;
    std::int32_t StickPersonIndex = 0;
    std::int32_t DiceSoundIndex = 0;
    std::int32_t CheckSoundIndex = 0;
    std::int32_t WinSoundIndex = 0;

    // Random numbers
    std::int32_t RngIndex = 1;  ///< 0..7, shown as RNG #1..#8
    bool UserSeedOn = false;
    bool ReSeedNewSessions = true;
    std::int32_t LastSeed = 0;
    bool UseSkewedProbability = false;
    std::int32_t ProbabilityDisplayMode = 0;
    double RollsOutOf = 36;

    // Notices and printing
    std::int32_t NotifyBits = 15;  ///< 1 refusals, 2 limits, 4 charges and change, 8 and 16 messages of scripts
    bool SnapMouse = true;
    std::array<std::int32_t, 3> PrintColors = {9, 12, 13};

    // Comps and advantage
    currency CompRate = Dollars(30);  ///< percent
    std::int32_t CompBase = 0;        ///< 0 theoretical vig, 1 total action, 2 average action x time
    bool CompsUseTrueProbs = true;    ///< also while skewed dice are thrown
    std::array<std::uint32_t, 4> CompBetMasks = {0, 0xC0FC0FFF, 0xFFFF6FFF, 0xFFFFFFFF};  ///< 1..3; see config/comps.h
    bool CountZeroOutcomes = false;  ///< a roll that decides nothing counts as a decision
    bool ShowMiscData = false;       ///< rolls, decisions and time instead of values

    // Bankroll, by position
    std::array<std::int32_t, Positions> BankrollStartRule{};  ///< 0 stored amount, 1 ask, 2 carry forward
    std::array<currency, Positions> BankrollStartAmount{};
    std::array<bool, Positions> AllowNegativeBankroll{};
    std::array<currency, Positions> AtmAmount{};

    // Unattended runs
    std::int32_t HyperThrottle = 0;       ///< 0..11 Hyper-Drive with that delay, 12 Auto-Roll
    currency AutoRollDelay = Dollars(1);  ///< seconds, 0..300
    currency AutoStopRolls;               ///< 0: none

    // Events Log
    bool EventsLogOn = false;
    bool RecordRolls = true;
    bool RecordBetChanges = true;
    bool RecordBetsWon = true;
    bool RecordBetsLost = true;
    bool RecordCheckStackChanges = true;
    bool RecordPassesMisses = true;
    bool RecordShooterChanges = true;
    bool RecordBankrollChanges = true;
    bool ClearLogOnNewSession = false;
    bool KeepLatestRollOnTop = true;

    // Standing orders (Auto-Play), by position
    std::array<bool, Positions> AutoTakeFullOdds{};
    std::array<bool, Positions> AutoLayFullOdds{};
    std::array<bool, Positions> AutoDownPlaceBets{};
    std::array<bool, Positions> AutoPassDice{};
    std::array<std::int32_t, Positions> AutoAdjustMode{};  ///< 0 manual, 1 minor, 2 color correction
    std::array<std::int32_t, Positions> LayBias{};         ///< the four: 0 nearest, 1 increase, 2 decrease
    std::array<std::int32_t, Positions> PlaceBias{};
    std::array<std::int32_t, Positions> DoBias{};
    std::array<std::int32_t, Positions> DontBias{};
    std::array<std::int32_t, Positions> WinnerHandling{};  ///< 0 ask, else a code 1..7
    std::array<std::int32_t, Positions> LoserHandling{};
    // Arithmetic beside a handling, by slot 0..7: 0 and 1 the dialog's "same bet" and "bet" after a win, 2 and 3 after
    // a loss; 4 winners' code 6, 5 losers' code 6, 6 winners' code 7, 7 losers' code 7.
    std::array<std::array<std::int32_t, 8>, Positions> HandleOperator{};  ///< 0 add, 1 subtract, 2 multiply, 3 divide
    std::array<std::array<currency, 8>, Positions> HandleAmount{};
    std::array<std::array<std::int32_t, 8>, Positions> HandleUnit{};  ///< 0 $, 1 %, 2..6 checks 1..5

    // Who may do what through a script
    std::array<bool, Positions> AllowActProb{};
    std::array<bool, Positions> AllowAct4Others{};
    std::array<bool, Positions> AllowReset{};

    bool operator==(const Settings&) const = default;
};

}  // namespace tarnwick
