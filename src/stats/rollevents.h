// The roll events: what a pair of dice counts as.
//
// Event 0 is every roll; 1 and 90 never happen. 2, 12, 13..16 and 22..64 are single pairs or a pair in either order,
// 3..11 totals, 17..21 and 65..77 groups of totals, 78..83 faces of die 1 and 84..89 faces of die 2.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace tarnwick {

constexpr int DicePairs = 36;
constexpr int RollEvents = 91;

/// Index 0..35 of the ordered pair of dice 1..6.
constexpr int PairIndex(int die1, int die2) { return 6 * die1 + die2 - 7; }

/// Bit i: pair i.
using PairMask = std::uint64_t;

namespace RollEventTable {

struct DiceEvent {
    int Event, Die1, Die2;
    bool EitherOrder;
};

constexpr DiceEvent ByDice[] = {
    {2, 1, 1, false},  {12, 6, 6, false}, {13, 2, 2, false}, {14, 3, 3, false}, {15, 4, 4, false}, {16, 5, 5, false},
    {22, 1, 2, false}, {23, 2, 1, false}, {24, 1, 3, false}, {25, 3, 1, false}, {26, 1, 3, true},  {27, 1, 4, false},
    {28, 4, 1, false}, {29, 2, 3, false}, {30, 3, 2, false}, {31, 1, 4, true},  {32, 2, 3, true},  {33, 1, 5, false},
    {34, 5, 1, false}, {35, 2, 4, false}, {36, 4, 2, false}, {37, 1, 5, true},  {38, 2, 4, true},  {39, 1, 6, false},
    {40, 6, 1, false}, {41, 2, 5, false}, {42, 5, 2, false}, {43, 3, 4, false}, {44, 4, 3, false}, {45, 1, 6, true},
    {46, 2, 5, true},  {47, 3, 4, true},  {48, 2, 6, false}, {49, 6, 2, false}, {50, 3, 5, false}, {51, 5, 3, false},
    {52, 2, 6, true},  {53, 3, 5, true},  {54, 3, 6, false}, {55, 6, 3, false}, {56, 4, 5, false}, {57, 5, 4, false},
    {58, 3, 6, true},  {59, 4, 5, true},  {60, 4, 6, false}, {61, 6, 4, false}, {62, 4, 6, true},  {63, 5, 6, false},
    {64, 6, 5, false},
};

/// Bit n: total n.
constexpr unsigned Totals(std::initializer_list<int> totals) {
    unsigned mask = 0;
    for (const int total : totals) mask |= 1u << total;
    return mask;
}

struct TotalsEvent {
    int Event;
    unsigned Totals;
};

constexpr TotalsEvent ByTotals[] = {
    {3, Totals({3})},
    {4, Totals({4})},
    {5, Totals({5})},
    {6, Totals({6})},
    {7, Totals({7})},
    {8, Totals({8})},
    {9, Totals({9})},
    {10, Totals({10})},
    {11, Totals({11})},
    {17, Totals({4, 5, 6, 8, 9, 10})},
    {18, Totals({5, 6, 8, 9})},
    {19, Totals({4, 5, 9, 10})},
    {20, Totals({2, 3, 12})},
    {21, Totals({2, 3, 4, 9, 10, 11, 12})},
    {65, Totals({2, 3, 7, 11, 12})},
    {66, Totals({2, 3, 11, 12})},
    {67, Totals({4, 5, 6})},
    {68, Totals({8, 9, 10})},
    {69, Totals({2, 12})},
    {70, Totals({3, 11})},
    {71, Totals({4, 10})},
    {72, Totals({5, 9})},
    {73, Totals({6, 8})},
    {74, Totals({2, 3})},
    {75, Totals({3, 12})},
    {76, Totals({7, 11})},
    {77, Totals({11, 12})},
};

constexpr std::array<PairMask, RollEvents> MakePairMasks() {
    std::array<PairMask, RollEvents> masks{};
    const auto add = [&](int event, int die1, int die2) {
        masks[static_cast<std::size_t>(event)] |= PairMask{1} << PairIndex(die1, die2);
    };
    for (const DiceEvent& e : ByDice) {
        add(e.Event, e.Die1, e.Die2);
        if (e.EitherOrder) add(e.Event, e.Die2, e.Die1);
    }
    for (int die1 = 1; die1 <= 6; ++die1) {
        for (int die2 = 1; die2 <= 6; ++die2) {
            add(0, die1, die2);
            add(77 + die1, die1, die2);
            add(83 + die2, die1, die2);
            for (const TotalsEvent& e : ByTotals) {
                if ((e.Totals >> (die1 + die2)) & 1u) add(e.Event, die1, die2);
            }
        }
    }
    return masks;
}

}  // namespace RollEventTable

/// By event: the pairs that it happens on.
inline constexpr std::array<PairMask, RollEvents> PairsOfEvent = RollEventTable::MakePairMasks();

}  // namespace tarnwick
