#include "lab/labtable.h"

#include <gmock/gmock.h>

#include <set>

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

}  // namespace
}  // namespace tarnwick::lab
