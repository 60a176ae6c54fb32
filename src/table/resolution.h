// The order in which a roll resolves the bets of the table, as data. The order is the rule: losers first, then the
// bets that every roll decides, then winners, then the Come boxes move. A list holds one roll's steps; it depends on
// the dice and on the point before the roll only. Losers and winners of a roll are disjoint, so a bet that is put back
// by its player's standing order is safe until the next roll.
#pragma once

#include <array>
#include <cstdint>

#include "table/bets.h"

namespace tarnwick {

/// What a step does, and under which condition of the table's rules.
enum class Act : std::uint8_t {
    Settle,          ///< settle Bet by Outcome for every position, and With by twice the outcome right behind
    Move,            ///< the box Bet moves to row With
    ClearMarks,      ///< a seven wipes the marked numbers
    MarkPointMade,   ///< the point made is noted for the Fire bet
    ClearPointsMade  ///< a seven-out wipes the points made
};

enum class When : std::uint8_t {
    Always,
    Bar12,         ///< the Don't bar is 12
    Bar2,          ///< the Don't bar is 2
    Specials,      ///< special prop bets are offered
    SpecialsEarly  ///< so, and this is the first roll behind the come-out that set the point
                   ///< (PrevPrevPoint is 0)
    ,
    FireLoses,  ///< the Fire payoff of the points made is a loss
    FireWins    ///< it is a win
};

struct Step {
    Act Do = Act::Settle;
    When If = When::Always;
    std::int8_t Outcome = 0;
    std::uint8_t Bet = 0;
    std::uint8_t With = 0;
};

/// The point before a roll as far as the order cares.
enum class LineState { ComeOut, PointMade, PointOn };

/// Steps of one roll, and where each row stands in them.
struct RollList {
    static constexpr int Capacity = 96;
    std::array<Step, Capacity> Steps{};
    int Count = 0;
    std::array<std::uint8_t, Row::LastBet + 1> StepOf{};  ///< step of a row + 1; 0: the roll doesn't touch it
    std::array<std::uint64_t, 2> Rows{};                  ///< the rows that have a step
    std::array<std::uint64_t, 2> Acts{};                  ///< steps that are due whatever bets stand
    int FireWinStep = -1;                                 ///< the second step of the Fire row
};

/// What tells at a glance that a roll has nothing to do: most rolls don't read their list.
struct RollHead {
    std::array<std::uint64_t, 2> Rows{};
    bool HasActs = false;
};

/// The list of a roll of die1, die2 (1..6 each) in `state`. PointMade must not be asked for a total that is no point.
const RollList& RollListFor(LineState state, int die1, int die2);
const RollHead& RollHeadFor(LineState state, int die1, int die2);

constexpr LineState LineStateOf(int prevPoint, int diceTotal) {
    return prevPoint == 0 ? LineState::ComeOut : prevPoint == diceTotal ? LineState::PointMade : LineState::PointOn;
}

}  // namespace tarnwick
