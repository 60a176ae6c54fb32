#include "lab/labtable.h"

#include <gmock/gmock.h>

#include <memory>
#include <set>

#include "dice/dice.h"
#include "stats/accumulators.h"
#include "table/session.h"

namespace tarnwick::lab {
namespace {

TEST(SessionSeeds, TheFirstIsTheRunsOwnAndNoTwoAreTheSame) {
    for (const std::uint64_t seed : {std::uint64_t{0}, std::uint64_t{7}, ~std::uint64_t{0}}) {
        EXPECT_EQ(SessionSeed(seed, 1), seed);
        std::set<std::uint64_t> seeds;
        for (std::uint64_t number = 2; number <= 100'000; ++number) {
            const std::uint64_t each = SessionSeed(seed, number);
            ASSERT_EQ(each % 2, 1u);
            ASSERT_LT(each, std::uint64_t{1} << 31);
            seeds.insert(each);
        }
        EXPECT_EQ(seeds.size(), 99'999u);
    }
}

TEST(SessionSeeds, NeighbouringRunsShareNoSessions) {
    std::set<std::uint64_t> seeds;
    for (std::uint64_t seed = 1; seed <= 100; ++seed) {
        for (std::uint64_t number = 2; number <= 101; ++number) seeds.insert(SessionSeed(seed, number));
    }
    EXPECT_EQ(seeds.size(), 10'000u);
}

// A clock that stood still would seed the same dice again; one beyond the limits would not seed at all.
TEST(ScriptClockTest, EveryRollAndSessionSeedsOtherDice) {
    auto t = std::make_unique<Table>();
    SubMain(*t, nullptr);
    for (int rng = 1; rng <= 8; ++rng) {
        SelectRng(*t, rng);
        std::set<std::uint32_t> seen;
        int moments = 0;
        for (const std::uint64_t seed : {std::uint64_t{0}, std::uint64_t{1}, ~std::uint64_t{0}}) {
            for (std::uint64_t session = 0; session < 3; ++session) {
                for (const std::int32_t rolls : {0, 1, 2, 99'999'999}) {
                    t->RollTotal = t->SessionStart + rolls;
                    ASSERT_EQ(SessionRolls(*t), rolls);
                    const std::uint32_t now = ScriptClock{seed, session}.Now(*t);
                    const std::uint32_t divided = t->RngIndex == 2 ? now / 100 : now;
                    EXPECT_GE(divided, 1u) << rng;
                    EXPECT_LE(divided, static_cast<std::uint32_t>(SeedLimit(t->RngIndex))) << rng;
                    seen.insert(divided);
                    ++moments;
                }
            }
        }
        EXPECT_EQ(seen.size(), static_cast<std::size_t>(moments)) << rng;
    }
}

}  // namespace
}  // namespace tarnwick::lab
