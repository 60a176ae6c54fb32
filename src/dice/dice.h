// Sources of a roll: seeding, drawing, the skewed matrix.
#pragma once

#include <cstdint>

#include "table/crapcnst.h"

namespace tarnwick {

/// How SeedRNG gets its seed.
enum class SeedMode { Entry = -1, Normal = 0 };

/// Seeds the selected generator: `Entry` takes t.SeedEntry (the clock when it is below 1); `Normal` takes the clock, or
/// asks when UserSeedOn holds and `mayAsk`. Never asks in Hyper-Drive. A seed becomes Rng3State and LastSeed, whichever
/// generator is selected. False when the seed could not be used or the question was cancelled: nothing was seeded then.
bool SeedRNG(Table& t, SeedMode mode, bool mayAsk = true);

/// Largest seed of a generator 0..7.
constexpr std::int32_t SeedLimit(int rngIndex) { return rngIndex == 2 ? 999'999 : 2'147'483'647; }

/// Seeds every generator, the private one too, from one number, so that a run is repeatable whole. RngIndex stays. A
/// number 1..2147483647 becomes LastSeed and seeds the dice just as SeedRNG would, other numbers are folded into that
/// range; only srandMT, which takes 2n and 2n + 1 for the same seed, gets 2n + 1 for n.
void SeedEverything(Table& t, std::uint64_t seed);

/// DrawDice for all but the plain draws from a block of the Mersenne Twister.
void DrawOtherDice(Table& t);

/// Draws Die1 and Die2 from the selected generator, through the matrix when UseSkewedProbability holds.
inline void DrawDice(Table& t) {
    if (!t.UseSkewedProbability && (t.RngIndex == 0 || t.RngIndex == 1)) [[likely]] {
        // Both outputs are taken at once, as long as the block has two: the index is then moved once a roll.
        Mt19937& source = t.RngIndex == 0 ? t.Rng.First : t.Rng.Second;
        const int at = source.Index;
        if (at <= Mt19937::BlockSize - 2) [[likely]] {
            const std::uint32_t* next = &source.Ready[static_cast<std::size_t>(at)];
            source.Index = at + 2;
            t.Die1 = ScaledDown(next[0], 6) + 1;
            t.Die2 = ScaledDown(next[1], 6) + 1;
            return;
        }
    }
    DrawOtherDice(t);
}

/// A missing generator library moves RngIndex to 3.
void CorrectMissingGenerator(Table& t);

/// Sets Die1 and Die2 by the draw d 1..100000 from the matrix; other draws, and sums below d, draw again.
void LookupDice(Table& t, std::int32_t d);
/// The true chances, nothing locked. The file name and the changed flag stay.
void ResetProbabilityMatrix(Table& t);

/// The engine's own uniform number in [0,1), never taken from the dice's generators. Seeded by SeedEverything, else at
/// its first use by the clock.
double Uniform(Table& t);

/// Dice for a total 2..12 picked on the pad: one of its ways by Uniform.
void DiceForTotal(Table& t, int total, int& die1, int& die2);

}  // namespace tarnwick
