// Tables indexed by position and bet row, the position as the fast index.
#pragma once

#include <array>
#include <cassert>
#include <cstddef>

#include "table/bets.h"

namespace tarnwick {

/// One value a position 0..8 and row 0..Rows-1; the nine positions of a row lie together.
template <class T, int Rows>
struct PerBet {
    std::array<T, static_cast<std::size_t>(Positions* Rows)> Cells{};

    static constexpr std::size_t Index(int p, int row) {
        assert(0 <= p && p < Positions && 0 <= row && row < Rows);
        return static_cast<std::size_t>(Positions * row + p);
    }
    constexpr T& operator()(int p, int row) { return Cells[Index(p, row)]; }
    constexpr const T& operator()(int p, int row) const { return Cells[Index(p, row)]; }

    bool operator==(const PerBet&) const = default;
};

}  // namespace tarnwick
