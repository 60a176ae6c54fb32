// The generators against published outputs and against slow derivations of the same definitions.

#include "dice/generators.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "dice/dicestate.h"

namespace tarnwick {
namespace {

std::vector<std::uint32_t> FirstOutputs(Mt19937& m, std::size_t count) {
    std::vector<std::uint32_t> outputs;
    for (std::size_t i = 0; i < count; ++i) outputs.push_back(genrand_int32(m));
    return outputs;
}

TEST(MersenneTwister, GivesThePublishedOutputs) {
    struct Case {
        const char* name;
        void (*seeding)(Mt19937&, std::uint32_t);
        std::uint32_t seed;
        std::vector<std::uint32_t> outputs;
    };
    const Case cases[] = {
        {"2002, default seed", init_genrand, 5489, {3499211612, 581869302, 3890346734, 3586334585, 545404204}},
        {"2002, seed 1", init_genrand, 1, {1791095845, 4282876139, 3093770124, 4005303368, 491263}},
        {"1997, default seed", srandMT, 4357, {3510405877, 4290933890, 2191955339, 564929546, 152112058}},
        {"1997, even seeds are made odd", srandMT, 4356, {3510405877, 4290933890, 2191955339, 564929546, 152112058}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Mt19937 m;
        c.seeding(m, c.seed);
        EXPECT_EQ(FirstOutputs(m, 5), c.outputs);
    }
}

/// Hands the powers of 69069 to the library's engine as its state.
struct EarlierSeeding {
    using result_type = std::uint32_t;
    std::uint32_t Seed;

    template <class Word>
    void generate(Word* first, Word* last) {
        std::uint64_t power = Seed % 2 == 0 ? Seed + 1 : Seed;
        for (; first != last; ++first, power = power * 69069 % 4294967296) *first = static_cast<Word>(power);
    }
};

TEST(MersenneTwister, AgreesWithTheStandardLibraryOverManyBlocks) {
    for (const std::uint32_t seed : {0u, 1u, 2u, 4357u, 5489u, 2147483647u, 4294967295u}) {
        SCOPED_TRACE(seed);
        std::mt19937 later(seed);
        EarlierSeeding words{seed};
        std::mt19937 earlier(words);
        Mt19937 byLater, byEarlier;
        init_genrand(byLater, seed);
        srandMT(byEarlier, seed);
        for (int i = 0; i < 3000; ++i) {
            const double real2 = genrand_real2(byLater);
            ASSERT_EQ(real2, static_cast<double>(later()) / 4294967296.0) << i;
            ASSERT_EQ(randomMT(byEarlier), static_cast<double>(earlier()) / 4294967296.0) << i;
        }
    }
}

TEST(MersenneTwister, StartsAsPublishedWhenNeverSeeded) {
    Mt19937 m;
    EXPECT_FALSE(IsSeeded(m));
    EXPECT_EQ(genrand_int32(m), 3499211612u);
    EXPECT_TRUE(IsSeeded(m));
    init_genrand(m, 1);  // in the middle of a block
    EXPECT_EQ(genrand_int32(m), 1791095845u);
}

// --- the shuffled generators, done slowly in doubles that are rounded by hand ---

double ToSingle(double x) {
    if (x == 0) return 0;
    int exponent = 0;
    std::frexp(x, &exponent);
    return std::ldexp(std::nearbyint(std::ldexp(x, 24 - exponent)), exponent - 24);
}

struct SlowRan1 {
    double X[3] = {};
    std::vector<double> Table;

    void Step(int i) {
        const double factor[] = {7141, 8121, 4561}, added[] = {54773, 28411, 51349},
                     modulus[] = {259200, 134456, 243000};
        X[i] = std::fmod(factor[i] * X[i] + added[i], modulus[i]);
    }
    double NewValue() const {
        const double value =
            ToSingle(ToSingle(X[0] + ToSingle(X[1] * ToSingle(7.4373773e-6))) * ToSingle(3.8580247e-6));
        return std::min(value, 1 - std::ldexp(1.0, -24));
    }
    explicit SlowRan1(double seed) {
        X[0] = std::fmod(54773 - seed, 259200);
        Step(0);
        X[1] = std::fmod(X[0], 134456);
        Step(0);
        X[2] = std::fmod(X[0], 243000);
        while (Table.size() < 97) {
            Step(0);
            Step(1);
            Table.push_back(NewValue());
        }
    }
    double Next() {
        for (int i = 0; i < 3; ++i) Step(i);
        double& place = Table.at(static_cast<std::size_t>(std::floor(97 * X[2] / 243000)));
        const double result = place;
        place = NewValue();
        return result;
    }
};

struct SlowRan2 {
    double X = 0, Last = 0;
    std::vector<double> Table;

    double Step() { return X = std::fmod(1366 * X + 150889, 714025); }
    explicit SlowRan2(double seed) : X(std::fmod(150889 - seed, 714025)) {
        while (Table.size() < 97) Table.push_back(Step());
        Last = Step();
    }
    double Next() {
        double& place = Table.at(static_cast<std::size_t>(std::floor(97 * Last / 714025)));
        Last = place;
        place = Step();
        return ToSingle(Last * ToSingle(1.4005112e-6));
    }
};

constexpr std::int32_t Seeds[] = {
    -1, -2, -54773, -999'999, -2'147'332'758, -2'147'428'874, -2'147'483'647, std::numeric_limits<std::int32_t>::min()};

TEST(ShuffledGenerators, AgreeWithASlowDerivationForEverySeed) {
    DiceState s;  // seeded again and again
    for (const std::int32_t seed : Seeds) {
        SCOPED_TRACE(seed);
        SlowRan1 slow1(seed);
        SlowRan2 slow2(seed);
        std::int32_t seed1 = seed, seed2 = seed;
        for (int i = 0; i < 2000; ++i) {
            ASSERT_EQ(static_cast<double>(Ran1(s, seed1)), slow1.Next()) << i;
            ASSERT_EQ(static_cast<double>(Ran2(s, seed2)), slow2.Next()) << i;
            ASSERT_EQ(seed1, 1);
            if (i == 0) {
                ASSERT_EQ(seed2, seed) << "stays";
            }
            seed2 = 1;
        }
    }
    EXPECT_EQ(s.LastInternalError, "");
}

TEST(ShuffledGenerators, AFirstCallInitialisesAndReportsAPlaceOutOfRange) {
    DiceState s;
    std::int32_t seed = 7;
    EXPECT_EQ(static_cast<double>(Ran1(s, seed)), SlowRan1(7).Next());
    EXPECT_EQ(seed, 1);
    EXPECT_EQ(s.LastInternalError, "");

    DiceState large;
    seed = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(Ran1(large, seed), 0.0f);
    EXPECT_EQ(large.LastInternalError, "An error occurred in function Ran1\n");
    seed = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(Ran2(large, seed), 0.0f);
    EXPECT_EQ(large.LastInternalError, "An error occurred in function Ran2\n");
}

/// The value whose next step is `wanted`.
std::int32_t Before(std::int32_t wanted, std::int32_t modulus, std::int32_t factor, std::int32_t added) {
    std::int32_t x = 0;
    while ((factor * x + added) % modulus != wanted) ++x;
    return x;
}

TEST(ShuffledGenerators, NeverReachOneWhereSinglePrecisionWould) {
    DiceState s;
    std::int32_t seed = -1;
    Ran1(s, seed);
    s.Rng.Ran1.Ix1 = Before(259199, 259200, 7141, 54773);
    s.Rng.Ran1.Ix2 = Before(134455, 134456, 8121, 28411);
    Ran1(s, seed);
    EXPECT_EQ(*std::max_element(s.Rng.Ran1.R.begin(), s.Rng.Ran1.R.end()), std::nextafter(1.0f, 0.0f));
}

TEST(CongruentialGenerator, StaysInRangeFromAnyState) {
    struct Case {
        std::int32_t state, n, next, result;
    };
    const Case cases[] = {
        {0, 6, 150889, 2},          {1, 6, 152255, 2},
        {714024, 6, 149523, 2},     {999999, 100000, 219698, 30769},
        {2147483647, 6, 346016, 3}, {-2147483647, 6, 669787, 6},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.state);
        DiceState s;
        s.Rng3State = c.state;
        EXPECT_EQ(Rng3(s, c.n), c.result);
        EXPECT_EQ(s.Rng3State, c.next);
    }
}

}  // namespace
}  // namespace tarnwick
