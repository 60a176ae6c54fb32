// The numbers that the bets on all small and all tall numbers wait for, as bits 2^n of MarkedNumbers.
#pragma once

namespace tarnwick {

constexpr int SmallMarks = 124;  // 2 to 6
constexpr int TallMarks = 7936;  // 8 to 12
constexpr int AllMarks = SmallMarks | TallMarks;

}  // namespace tarnwick
