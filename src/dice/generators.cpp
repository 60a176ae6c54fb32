#include "dice/generators.h"

#include <algorithm>
#include <cassert>

#include "dice/dicestate.h"

namespace tarnwick {

// --- MT19937: M. Matsumoto and T. Nishimura, "Mersenne Twister: A 623-dimensionally equidistributed uniform
// pseudorandom number generator", ACM Transactions on Modeling and Computer Simulation 8 (1998) ---

namespace {

constexpr std::size_t BlockSize = Mt19937::BlockSize;
constexpr std::size_t MiddleWord = 397;

constexpr std::uint32_t Twist(std::uint32_t upper, std::uint32_t lower, std::uint32_t middle) {
    const std::uint32_t mixed = (upper & 0x80000000u) | (lower & 0x7fffffffu);
    return middle ^ (mixed >> 1) ^ ((0u - (lower & 1u)) & 0x9908b0dfu);
}

constexpr std::uint32_t Temper(std::uint32_t y) {
    y ^= y >> 11;
    y ^= (y << 7) & 0x9d2c5680u;
    y ^= (y << 15) & 0xefc60000u;
    return y ^ (y >> 18);
}

}  // namespace

void init_genrand(Mt19937& m, std::uint32_t seed) {
    m.State[0] = seed;
    for (std::uint32_t i = 1; i < BlockSize; ++i) {
        const std::uint32_t previous = m.State[i - 1];
        m.State[i] = 1812433253u * (previous ^ (previous >> 30)) + i;
    }
    m.Index = Mt19937::BlockSize;
}

void srandMT(Mt19937& m, std::uint32_t seed) {
    std::uint32_t x = seed | 1u;
    for (std::uint32_t& word : m.State) {
        word = x;
        x *= 69069u;
    }
    m.Index = Mt19937::BlockSize;
}

void RefillBlock(Mt19937& m) {
    if (!IsSeeded(m)) init_genrand(m, 5489);
    std::uint32_t* s = m.State.data();
    // The long loops have lengths that are multiples of four, so that compilers make vector code of them.
    constexpr std::size_t wholeWords = (BlockSize - MiddleWord) / 4 * 4;
    for (std::size_t i = 0; i < wholeWords; ++i) s[i] = Twist(s[i], s[i + 1], s[i + MiddleWord]);
    for (std::size_t i = wholeWords; i < BlockSize - MiddleWord; ++i) s[i] = Twist(s[i], s[i + 1], s[i + MiddleWord]);
    for (std::size_t i = BlockSize - MiddleWord; i < BlockSize - 1; ++i)
        s[i] = Twist(s[i], s[i + 1], s[i + MiddleWord - BlockSize]);
    s[BlockSize - 1] = Twist(s[BlockSize - 1], s[0], s[MiddleWord - 1]);
    for (std::size_t i = 0; i < BlockSize; ++i) m.Ready[i] = Temper(m.State[i]);
    m.Index = 0;
}

// --- The shuffled congruential generators of "Numerical Recipes", first edition (1986), chapter 7.1 ---

namespace {

struct Congruence {
    std::int32_t M, IA, IC;
    /// The next value; with x of magnitude below M the product stays inside 32 bits.
    constexpr std::int32_t Step(std::int32_t x) const { return (IA * x + IC) % M; }
};

constexpr int ShuffleSize = 97;
constexpr Congruence Ran1First{259200, 7141, 54773};
constexpr Congruence Ran1Second{134456, 8121, 28411};
constexpr Congruence Ran1Third{243000, 4561, 51349};
constexpr float RM1 = 3.8580247e-6f;
constexpr float RM2 = 7.4373773e-6f;
constexpr Congruence Ran2Only{714025, 1366, 150889};
constexpr float RM = 1.4005112e-6f;
static_assert(714024 * RM < 1.0f);
constexpr float LargestBelowOne = 0.999999940395355224609375f;  // 1 - 2^-24

constexpr std::int32_t Remainder(std::int64_t a, std::int32_t b) { return static_cast<std::int32_t>(a % b); }

/// Place 1..97 in the shuffle table by a value 0..m-1; outside for others.
constexpr std::int32_t ShufflePlace(std::int32_t x, std::int32_t m) {
    return 1 + FloorDivide<std::int32_t>(ShuffleSize * x, m);
}

/// Every operation rounds to single precision. Where the counters stand just below 259200 that gives 1, which would
/// roll a 7 on one die.
float NewTableValue(const Ran1State& g) {
    const float fine = static_cast<float>(g.Ix2) * RM2;
    const float sum = static_cast<float>(g.Ix1) + fine;
    return std::min(sum * RM1, LargestBelowOne);
}

void InitialiseRan1(Ran1State& g, std::int32_t seed) {
    g.Initialised = true;
    g.Ix1 = Remainder(std::int64_t{Ran1First.IC} - seed, Ran1First.M);
    g.Ix1 = Ran1First.Step(g.Ix1);
    g.Ix2 = g.Ix1 % Ran1Second.M;
    g.Ix1 = Ran1First.Step(g.Ix1);
    g.Ix3 = g.Ix1 % Ran1Third.M;
    for (std::size_t j = 1; j <= ShuffleSize; ++j) {
        g.Ix1 = Ran1First.Step(g.Ix1);
        g.Ix2 = Ran1Second.Step(g.Ix2);
        g.R[j] = NewTableValue(g);
    }
}

void InitialiseRan2(Ran2State& g, std::int32_t seed) {
    g.Initialised = true;
    g.Idum = Remainder(std::int64_t{Ran2Only.IC} - seed, Ran2Only.M);
    for (std::size_t j = 1; j <= ShuffleSize; ++j) {
        g.Idum = Ran2Only.Step(g.Idum);
        g.Ir[j] = g.Idum;
    }
    g.Idum = Ran2Only.Step(g.Idum);
    g.Iy = g.Idum;
}

}  // namespace

float Ran1(DiceState& s, std::int32_t& seedRef) {
    Ran1State& g = s.Rng.Ran1;
    if (seedRef < 0 || !g.Initialised) {
        InitialiseRan1(g, seedRef);
        seedRef = 1;
    }
    g.Ix1 = Ran1First.Step(g.Ix1);
    g.Ix2 = Ran1Second.Step(g.Ix2);
    g.Ix3 = Ran1Third.Step(g.Ix3);
    const std::int32_t j = ShufflePlace(g.Ix3, Ran1Third.M);
    if (j < 1 || j > ShuffleSize) {
        s.LastInternalError = "An error occurred in function Ran1\n";
        return 0;
    }
    float& place = g.R[static_cast<std::size_t>(j)];
    const float result = place;
    place = NewTableValue(g);
    return result;
}

float Ran2(DiceState& s, std::int32_t& seedRef) {
    Ran2State& g = s.Rng.Ran2;
    if (seedRef < 0 || !g.Initialised) InitialiseRan2(g, seedRef);
    const std::int32_t j = ShufflePlace(g.Iy, Ran2Only.M);
    if (j < 1 || j > ShuffleSize) {
        s.LastInternalError = "An error occurred in function Ran2\n";
        return 0;
    }
    std::int32_t& place = g.Ir[static_cast<std::size_t>(j)];
    g.Iy = place;
    g.Idum = Ran2Only.Step(g.Idum);
    place = g.Idum;
    return static_cast<float>(g.Iy) * RM;
}

std::int32_t Rng3(DiceState& s, std::int32_t n) {
    assert(n > 0);
    s.Rng3State = Remainder(std::int64_t{s.Rng3State} * Ran2Only.IA + Ran2Only.IC, Ran2Only.M);
    if (s.Rng3State < 0) s.Rng3State += Ran2Only.M;  // only after a state below 0 was read from a file
    return static_cast<std::int32_t>(std::int64_t{n} * s.Rng3State / Ran2Only.M) + 1;
}

}  // namespace tarnwick
