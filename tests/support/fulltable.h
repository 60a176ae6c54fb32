// A table with all that a game file keeps: players with bets, orders, figures of several sessions, changed settings.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "config/configure.h"
#include "stats/accumulators.h"
#include "table/bankroll.h"
#include "table/placement.h"
#include "table/players.h"
#include "table/rolldice.h"
#include "table/screen.h"
#include "table/session.h"

namespace tarnwick::testsupport {

/// Dice of its own, the same on every machine.
class TestDice {
  public:
    explicit TestDice(std::uint64_t seed) : State(seed) {}
    int Pick(int low, int high) {
        State = State * 6364136223846793005u + 1442695040888963407u;
        return low + static_cast<int>((State >> 33) % static_cast<std::uint64_t>(high - low + 1));
    }

  private:
    std::uint64_t State;
};

inline std::size_t FullAt(int i) { return static_cast<std::size_t>(i); }

inline void SeatFullPlayers(Table& t, int count) {
    const std::array<std::string, 8> names = {"Ada", "Bertil", "Célia", "D. O'Hara", "Eve", "Fritz", "Gül", "Hanna"};
    for (int p = 1; p <= count; ++p) {
        AddPlayer(t, p, names[FullAt(p - 1)], Dollars(1000 * p) + currency{25 * p});
        t.WinnerHandling[FullAt(p)] = 1 + p % 5;
        t.LoserHandling[FullAt(p)] = 1 + p % 3;
        t.BankrollStartRule[FullAt(p)] = 2;
        SetComeOutWorking(t, p, 33 + p % 3, true);
        t.AutoTakeFullOdds[FullAt(p)] = p % 2 == 0;
        t.AutoLayFullOdds[FullAt(p)] = p % 3 == 0;
        t.AutoDownPlaceBets[FullAt(p)] = p == 4;
        t.AutoPassDice[FullAt(p)] = p == 5;
        t.AutoAdjustMode[FullAt(p)] = p % 3;
        t.LayBias[FullAt(p)] = p % 3;
        t.PlaceBias[FullAt(p)] = (p + 1) % 3;
        t.DoBias[FullAt(p)] = (p + 2) % 3;
        t.DontBias[FullAt(p)] = p % 2;
        t.AtmAmount[FullAt(p)] = Dollars(10 * p);
        t.AllowActProb[FullAt(p)] = p % 2 == 1;
        t.AllowAct4Others[FullAt(p)] = p % 3 == 1;
        t.AllowReset[FullAt(p)] = p % 4 == 1;
        for (int slot = 0; slot < 8; ++slot) {
            t.HandleOperator[FullAt(p)][FullAt(slot)] = (p + slot) % 4;
            t.HandleAmount[FullAt(p)][FullAt(slot)] = Dollars(p + slot);
            t.HandleUnit[FullAt(p)][FullAt(slot)] = (p + slot) % 7;
        }
        t.VisibleStack[FullAt(p)] = {0, 100 + p, 110 + p, 120 + p, 130 + p};
        for (int n = 0; n < 100; n += 7) {
            PlaceBet(t, p, 100 + n, Dollars(p * n) - currency{12'345 * n});
            t.CheckStackName[FullAt(p)][FullAt(n)] = "stack " + std::to_string(n) + " of " + names[FullAt(p - 1)];
        }
        t.SessionsLogName[FullAt(p)] = "log " + std::to_string(p) + ".slg";
        t.ScriptOutputFile[FullAt(p)] = "out " + std::to_string(p) + ".txt";
    }
}

/// Bets as people make them: what the rules refuse isn't made.
inline void BetHereAndThere(Table& t, TestDice& dice) {
    for (int p = 1; p < Positions; ++p) {
        if (!IsSeated(t, p)) continue;
        PlaceBet(t, p, dice.Pick(0, 1) == 0 ? Row::PassLine : Row::DontPass, Dollars(5 * dice.Pick(1, 4)));
        for (int bets = dice.Pick(0, 4); bets > 0; --bets) {
            PlaceBet(t, p, dice.Pick(1, Row::LastBet), Dollars(dice.Pick(1, 30)));
        }
        if (dice.Pick(1, 20) == 1) CallBet(t, p, dice.Pick(31, 42), dice.Pick(0, 1) == 0);
    }
}

inline void PlayRolls(Table& t, TestDice& dice, int rolls) {
    for (int i = 0; i < rolls; ++i) {
        if (dice.Pick(1, 3) == 1) BetHereAndThere(t, dice);
        PadRoll(t, dice.Pick(1, 6), dice.Pick(1, 6));
        const int p = dice.Pick(1, 8);
        const currency amount = Dollars(dice.Pick(-40, 90));
        if (dice.Pick(1, 50) == 1 && IsSeated(t, p)) AtmTransaction(t, p, amount);
    }
}

/// Settings, windows and views, each to a sound value that is none of the defaults.
inline void ChangeEverySetting(Table& t) {
    constexpr std::string_view settings =
        "MinPlacardBet=2;MinPlacardPropBet=2;CheckDenominations=2,10,50,100,1000;UseCentsSymbol=no;"
        "AutoArrangeChips=no;DiceAction=1;RollsPerHour=144.5;RollRateUnit=3;DieFacePicture=3;CheckPicture=2;"
        "TableColors[7]=123456;TableColorOptions[1]=4;SpotlightLevel=2;CompRate=12.5;DisableAllSound=yes;"
        "DisableAutoBetSounds=yes;StickPersonIndex=1;DiceSoundIndex=2;CheckSoundIndex=3;WinSoundIndex=4;"
        "UserSeedOn=yes;ReSeedNewSessions=no;LastSeed=4711;NotifyBits=0;SnapMouse=no;PrintColors[1]=7;"
        "MaxPlacardBet=2000;MaxPropBetPayoff=4000;MaxOddsBet=5000;OddsAllowed410=3;OddsAllowed59=4;"
        "OddsAllowed68=5;OddsCalcMethod=2;ShooterBetRequirement=0;BarDont=2;AllowPutBets=no;"
        "ReturnAbandonedBets=yes;MaxFireBet=10;LayVigRate=0.04;LayVigOnAllBets=no;LayVigRounding=1;"
        "BuyVigRate=0.06;BuyVigRounding=2;ComeOutWorking[31]=yes;"
        "Payoff[31]=2 to 1;FieldPayoff[1]=3 to 1;SevenPointSevenPayoff[1]=4 to 1;MidwayPayoff[2]=2 to 1;"
        "FirePayoff[4]=30 to 1;ProbabilityDisplayMode=1;RollsOutOf=360;HyperThrottle=3;AutoRollDelay=2.5;"
        "AutoStopRolls=77;RecordRolls=no;RecordBetChanges=no;RecordBetsWon=no;RecordBetsLost=no;"
        "RecordCheckStackChanges=no;RecordPassesMisses=no;RecordShooterChanges=no;RecordBankrollChanges=no;"
        "ClearLogOnNewSession=yes;KeepLatestRollOnTop=no;";
    for (std::size_t at = 0; at < settings.size();) {
        const std::size_t end = settings.find(';', at);
        const std::string text(settings.substr(at, end - at));
        at = end + 1;
        const std::size_t equals = text.find('=');
        const std::string fault = SetSetting(t, text.substr(0, equals), text.substr(equals + 1));
        if (!fault.empty()) throw std::runtime_error(text + ": " + fault);
    }
    t.CountZeroOutcomes = t.ShowMiscData = true;
    t.CompBase = 2;
    t.CompsUseTrueProbs = false;
    t.CompBetMasks = {0, 0x80000001, 0x7FFFFFFF, 0x12345678};
}

inline void ChangeEveryView(Table& t) {
    std::int32_t n = 1;
    for (FormPlacement& place : t.FormPlacements) {
        place = {n % 2 == 1, 10 * n, 10 * n + 1, 10 * n + 2, 10 * n + 3};
        ++n;
    }
    for (const Form fixed : {Form::frmAutoPlay, Form::frmSummary, Form::frmRollFreqs, Form::frmBetResults,
                             Form::frmHands, Form::frmHotKeys, Form::frmMove}) {
        t.Placement(fixed).Width = t.Placement(fixed).Height = 0;
    }
    t.Placement(Form::main).Shown = t.Placement(Form::frmFile).Shown = false;
    t.MainWindowState = 2;
    for (std::size_t p = 1; p < Positions; ++p) {
        t.StatusBoxLeft[p] = n++;
        t.StatusBoxTop[p] = n++;
    }
    SetTableAngle(t, 330);
    SetTableWidth(t, 1777);
    t.TableOffsetX = -123;
    t.TableOffsetY = 456;
    for (int view = 0; view < 10; ++view) t.SavedView[FullAt(view)] = {500 + view, 30 * view, -view, 7 * view};
    t.AutoSizeTable = t.DisplayCenterProps = t.FlashBets = false;
    t.StatusAlign = 3;
    t.StatusLines = 21;
    t.DisplayBetsAsNumbers = t.KeyInMode = t.PrintPicture = true;
    t.SelectedCheck = 4;
    t.TexturePicture = 5;
    t.DiceRollOutputFormat = "Total, Roll#";
    t.DiceFileNote = "a note";
    t.DiceNoteShown = t.DiceTypeOver = t.DiceRecordPadShown = true;
    t.DiceFormat = {0, 0, 2, 13, 5};
    t.DiceAutoScroll = false;
    t.DiceSelectedRoll = 88;
    for (std::size_t i = 1; i <= 6; ++i) {
        for (std::size_t j = 1; j <= 6; ++j) t.DiceTotalsMatrix[i][j] = static_cast<std::int32_t>((i + j) % 7);
    }
    t.PadMode = 2;
    t.PadShowRandomButton = t.PadShowRunButton = t.PadShowRollCounter = false;
    t.PadButtonColor = 1;
    t.RollTotalsScope = 4;
    t.RollTotalsDisplay = 3;
    t.RollTotalsProbable = true;
    t.RollFreqsEvent = 55;
    t.RollFreqsShowTrue = false;
    t.BetResultsScope = 3;
    t.BetResultsBets = {0, 0x70000001, 0x12, 0x10000000};
    t.BetResultsUseSeparator = false;
    t.BetTrendsPlayer = 3;
    t.HandsScope = 1;
    t.HandsUnits = true;
    t.SummaryScope = 0;
    t.CheckStacksPlayer = 6;
    t.CheckStacksShowZero = false;
    t.CheckStacksFontSize = 2;
    t.CheckStacksFontBold = t.CheckStacksFontItalic = true;
    t.EventsLogTopLine = 99;
    t.EventsLogLineCount = 123;
    t.EventsLogFontSize = 0;
    t.EventsLogFontBold = t.EventsLogFontItalic = true;
    t.EventsLogHeading = "    Wins:";
    t.SessionsPlayer = 2;
    t.SessionsStat = 17;
    t.SessionsDisplay = 13;
    t.GraphBarWidth = 25;
    t.TopSession = 8;
    t.BreakLow = Dollars(-5);
    t.BreakHigh = Dollars(6);
    t.EditorPlayer = 4;
    t.EditorAutoIndent = t.EditorLineNumbers = t.EditorSyntaxLists = t.EditorHighlight = false;
    t.EditorFontSize = 2;
    t.EditorFontBold = t.EditorFontItalic = true;
    t.ConfigBankrollPlayer = 5;
    t.ConfigTab = 7;
    t.AdvantageScroll = 31;
    t.PayoffsScroll = 32;
    t.GraphBaseScale = Dollars(4);
    t.GraphAdjustType = 2;
    t.GraphStyle = 2;
    t.GraphColor = 6;
    t.GraphGridLines = t.GraphMovingAverage = false;
    t.GraphRefLines = t.GraphRefOnAverage1 = t.GraphRefOnAverage2 = t.AutoPrintGraphs = true;
    t.GraphAverageRolls = 33;
    t.GraphRefLine1 = 44;
    t.GraphRefLine2 = 55;
    t.GraphPlayer = 2;
    t.GraphsPerPage = 2;
    t.GraphsOnPage = 1;
    t.LastPrintedRoll = 66;
    t.PathPoints.clear();
    for (std::int16_t i = 0; i < 30; ++i) t.PathPoints.push_back({i, 2, 3, 4, static_cast<std::int16_t>(-i)});
}

/// The table of the game files' tests: `players` seats, three sessions, the last of `rolls` rolls.
inline void MakeFullTable(Table& t, Screen* front, int players, int rolls = 700) {
    SubMain(t, front);
    t.ShooterBetRequirement = 0;
    ChangeEverySetting(t);
    SeatFullPlayers(t, players);
    TestDice dice(20'261'123);
    SessionOptions keep;
    for (const int count : {60, 90, rolls}) {
        PlayRolls(t, dice, count);
        if (count == rolls) break;
        NewSession(t, keep);
    }
    ChangeEveryView(t);
    for (int p = 1; p <= players; ++p) {
        const std::int32_t bit = 1 << p;
        if (p % 2 == 0) t.RollTotalsPlayers &= ~bit;
        if (p % 3 == 0) t.HandsPlayers &= ~bit;
        if (p % 4 == 0) t.AutoPlayPlayers |= bit;
    }
    t.GameChanged = false;
}

}  // namespace tarnwick::testsupport
