// Rolls one generator for as long as wanted and prints the chi-square tests of its dice.
//
//   tarnwick_dice_statistics RNG(1..8) [ROLLS [SEED]]

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include "dice/dice.h"
#include "stats/accumulators.h"
#include "tools/roll_statistics.h"

namespace {

bool ReadNumber(const char* text, std::int64_t lowest, std::int64_t highest, std::int64_t& number) {
    const char* end = text + std::strlen(text);
    const auto [stop, error] = std::from_chars(text, end, number);
    return error == std::errc{} && stop == end && lowest <= number && number <= highest;
}

}  // namespace

int main(int argc, char** argv) {
    std::int64_t rng = 0, rolls = 10'000'000, seed = 1;
    const bool understood = argc >= 2 && argc <= 4 && ReadNumber(argv[1], 1, 8, rng) &&
                            (argc < 3 || ReadNumber(argv[2], 20'000, 1'000'000'000'000, rolls)) &&
                            (argc < 4 || ReadNumber(argv[3], 0, 2'147'483'647, seed));
    if (!understood) {
        std::fprintf(stderr, "usage: %s RNG [ROLLS [SEED]]\n  RNG 1..8, ROLLS from 20000 (10000000), SEED 0.. (1)\n",
                     argv[0]);
        return 2;
    }
    const auto t = std::make_unique<tarnwick::Table>();
    t->RngIndex = static_cast<std::int32_t>(rng) - 1;
    tarnwick::SeedEverything(*t, static_cast<std::uint64_t>(seed));
    tarnwick::RollStatistics statistics;
    const bool alternates = t->RngIndex == 5 || t->RngIndex == 6;
    for (std::int64_t i = 0; i < rolls; ++i) {
        tarnwick::DrawDice(*t);
        statistics.Add(t->Die1, t->Die2);
        if (alternates) tarnwick::TallyRoll(*t);  // they change places by the count of rolls
    }
    std::printf("RNG #%lld, %lld rolls, seed %lld\n", static_cast<long long>(rng), static_cast<long long>(rolls),
                static_cast<long long>(seed));
    std::printf("%-22s %14s %8s %10s\n", "test", "chi-square", "degrees", "chance");
    for (const tarnwick::ChiSquare& test : statistics.Results()) {
        const double chance = test.Chance();
        const char* verdict = chance < 1e-4 ? "  too uneven" : chance > 1 - 1e-4 ? "  too even" : "";
        std::printf("%-22s %14.2f %8d %10.6f%s\n", test.Name.c_str(), test.Value, test.Degrees, chance, verdict);
    }
}
