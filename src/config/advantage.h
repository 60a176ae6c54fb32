// The exact advantage of every bet under the rules in force: payoffs, vigs, the barred number, and fair dice or those
// of the matrix. All figures are per unit wagered, for a bet that works on every roll.
//
// A bet whose every roll stands alone (one-roll bets, and bets such as Place or Hard that wait for one of two events)
// is figured from its result on each of the 36 dice, which the order of resolution tells. Line bets go through the
// come-out and each point; the specials of many rolls through the states of their sequences, each solved exactly. Vigs
// are not rounded to checks here, as the table does.
#pragma once

#include <memory>

#include "dice/chances.h"
#include "table/crapcnst.h"

namespace tarnwick {

struct Advantage {
    double EvRoll = 0, EvDec = 0;  ///< expected value per roll and per decision
    double RollsDec = 0;           ///< rolls per decision
    double SdRoll = 0, SdDec = 0;  ///< standard deviations. Those of line bets and specials leave out what decides
                                   ///< nothing: a barred number, and per roll the rolls in between

    bool operator==(const Advantage&) const = default;
};

/// The figures of row 1..91 as exactly as doubles hold them, under the rules `s` and the chances `dice`. All 0 for a
/// bet that is never decided.
Advantage ExactAdvantage(const Settings& s, const DiceChances& dice, int row);

/// The chances by which the table rolls: of the matrix under UseSkewedProbability, else fair.
DiceChances ChancesInForce(const Table& t);

/// The figures of row 1..91 as they are used and shown: values and deviations to six decimals, rolls to two, halves
/// away from zero.
Advantage FigureAdvantage(const Table& t, int row);
Advantage FigureAdvantage(const Settings& s, const DiceChances& dice, int row);

/// The figures of the rows last asked for, figured anew when anything that they depend on has changed.
class AdvantageCache {
  public:
    AdvantageCache();
    ~AdvantageCache();

    /// Like FigureAdvantage; with `trueDice` of fair dice, whatever is thrown. The reference is good until the next
    /// call.
    const Advantage& Of(const Table& t, int row, bool trueDice = false);

  private:
    struct Kept;
    std::unique_ptr<Kept> Figures;  ///< null until they are first asked for
};

}  // namespace tarnwick
