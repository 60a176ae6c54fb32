// The random number generators, each with its whole state in a struct.
//
// The draws of the Mersenne Twister are inline: a roll of an unattended run costs little more than two of them.
#pragma once

#include <array>
#include <cstdint>

#include "table/currency.h"

namespace tarnwick {

struct DiceState;

/// MT19937. The outputs of a whole block are made at once.
struct Mt19937 {
    static constexpr int BlockSize = 624;
    std::array<std::uint32_t, BlockSize> State{};
    std::array<std::uint32_t, BlockSize> Ready{};  ///< the block's outputs
    int Index = BlockSize + 1;                     ///< next of Ready; 624: all used; 625: never seeded
};

inline bool IsSeeded(const Mt19937& m) { return m.Index <= Mt19937::BlockSize; }

/// Seeds by the initialisation that was published in 2002.
void init_genrand(Mt19937& m, std::uint32_t seed);
/// Seeds by the earlier initialisation, powers of 69069 times the seed; an even seed counts as the odd one above.
void srandMT(Mt19937& m, std::uint32_t seed);
/// Makes the next block. One that was never seeded begins as init_genrand(5489).
void RefillBlock(Mt19937& m);

/// The next output, 32 random bits.
inline std::uint32_t genrand_int32(Mt19937& m) {
    if (m.Index >= Mt19937::BlockSize) [[unlikely]]
        RefillBlock(m);
    return m.Ready[static_cast<std::size_t>(m.Index++)];
}

/// A real in [0,1) with a resolution of 2^-32, exact.
constexpr double RealOf(std::uint32_t bits) { return bits * (1.0 / 4294967296.0); }
inline double genrand_real2(Mt19937& m) { return RealOf(genrand_int32(m)); }
inline double randomMT(Mt19937& m) { return RealOf(genrand_int32(m)); }

/// floor(n * RealOf(bits)), exactly: the product has at most 64 bits.
constexpr std::int32_t ScaledDown(std::uint32_t bits, std::uint32_t n) {
    return static_cast<std::int32_t>((std::uint64_t{bits} * n) >> 32);
}
static_assert(ScaledDown(0xFFFFFFFF, 6) == 5 && ScaledDown(0x80000000, 6) == 3 && ScaledDown(0, 36) == 0);

/// Three congruential generators with a shuffle table.
struct Ran1State {
    std::int32_t Ix1 = 0, Ix2 = 0, Ix3 = 0;
    std::array<float, 98> R{};  ///< 1..97
    bool Initialised = false;
};

/// One congruential generator with a shuffle table.
struct Ran2State {
    std::int32_t Idum = 0, Iy = 0;
    std::array<std::int32_t, 98> Ir{};  ///< 1..97
    bool Initialised = false;
};

struct Generators {
    Mt19937 First;    ///< genrand_real2
    Mt19937 Second;   ///< randomMT
    Mt19937 Private;  ///< Uniform: never the dice's
    Ran1State Ran1;
    Ran2State Ran2;
};

/// A single in [0,1). A negative `seedRef`, or a first call, initialises and sets `seedRef` to 1. A first call with a
/// large positive one may leave the table's range: then the result is 0 and LastInternalError says so.
float Ran1(DiceState& s, std::int32_t& seedRef);
/// Likewise, but `seedRef` stays.
float Ran2(DiceState& s, std::int32_t& seedRef);
/// A whole number in 1..n; moves Rng3State. `n` is above 0.
std::int32_t Rng3(DiceState& s, std::int32_t n);

}  // namespace tarnwick
