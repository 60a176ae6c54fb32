#include "dice/dice.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string>

#include "dice/matrix.h"
#include "stats/accumulators.h"
#include "stats/eventslog.h"
#include "table/format.h"
#include "table/messages.h"
#include "table/screen.h"

namespace tarnwick {

// --- seeding ---

namespace {

std::uint32_t Clock(const Table& t) { return t.Front != nullptr ? t.Front->Milliseconds() : 1; }

/// A seed that two questions within one tick don't share.
currency ClockSeed(const Table& t) {
    currency seed = Dollars(Clock(t));
    if (t.RngIndex == 2) seed.TenThousandths /= 100;
    if (seed == Dollars(t.LastSeed) && seed < Dollars(SeedLimit(t.RngIndex))) seed += Dollars(1);
    return seed;
}

bool IsWithin(currency seed, currency limit) { return Dollars(1) <= seed && seed <= limit; }

/// Asks until the answer is in range; nothing on Cancel.
std::optional<currency> AskSeed(Table& t) {
    const currency limit = Dollars(SeedLimit(t.RngIndex));
    const std::string tail = FormatCommas(limit) + " to seed the random number generator:\n";
    Message question;
    question.Title = "RNG Seed";
    question.Text = "Please enter a whole number between 1 and " + tail;
    question.Buttons = MsgButton::InputQuestion;
    question.Input = std::to_string(t.LastSeed);
    // A front end that answers by itself may give the same wrong answer for ever.
    for (int tries = 0; tries < 100; ++tries) {
        const Answer answer = ShowMessage(t, question);
        if (answer.Result != MsgAnswer::Ok) break;
        const std::optional<currency> seed = ParseAmount(answer.Input);
        if (seed && IsWithin(*seed, limit)) return seed;
        question.Text = "Your seed value is out of limits.\n\nPlease enter a value between 1 and " + tail;
    }
    return std::nullopt;
}

/// The generators behind RngIndex.
struct Behind {
    bool First = false, Second = false, Rng3 = false, Ran1 = false, Ran2 = false;
};

Behind GeneratorsBehind(int rngIndex) {
    switch (rngIndex) {
        case 0:
        case 7:
            return {.First = true};
        case 1:
            return {.Second = true};
        case 2:
            return {.Rng3 = true};
        case 4:
            return {.Ran1 = true};
        case 5:
            return {.First = true, .Ran1 = true};
        case 6:
            return {.Second = true, .Ran2 = true};
        default:
            return {.Ran2 = true};
    }
}

void SeedGenerators(Table& t, const Behind& which, std::int32_t seed) {
    t.Rng3State = t.LastSeed = seed;
    if (which.First) init_genrand(t.Rng.First, static_cast<std::uint32_t>(seed));
    if (which.Second) srandMT(t.Rng.Second, static_cast<std::uint32_t>(seed));
    if (which.Rng3) Rng3(t, 6);
    std::int32_t negated = -seed;
    if (which.Ran1) Ran1(t, negated);
    negated = -seed;
    if (which.Ran2) Ran2(t, negated);
}

/// Spreads 64 bits over 64 bits: G. Steele, D. Lea, C. Flood, "Fast splittable pseudorandom number generators" (2014).
std::uint64_t Scatter(std::uint64_t z) {
    z += 0x9e3779b97f4a7c15u;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9u;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebu;
    return z ^ (z >> 31);
}

void SeedPrivate(Table& t, std::uint64_t seed) {
    init_genrand(t.Rng.Private, static_cast<std::uint32_t>(Scatter(seed)));
}

}  // namespace

bool SeedRNG(Table& t, SeedMode mode, bool mayAsk) {
    if (mode == SeedMode::Entry) {
        if (t.SeedEntry < Dollars(1)) t.SeedEntry = ClockSeed(t);
    } else if (t.UserSeedOn && mayAsk && !t.HyperDriveActive) {
        const std::optional<currency> typed = AskSeed(t);
        if (!typed) return false;
        t.SeedEntry = *typed;
    } else {
        t.SeedEntry = ClockSeed(t);
    }
    if (!IsWithin(t.SeedEntry, Dollars(SeedLimit(t.RngIndex)))) return false;

    const auto seed = static_cast<std::int32_t>(HalfEvenDivide(t.SeedEntry.TenThousandths, CurrencyScale));
    SeedGenerators(t, GeneratorsBehind(t.RngIndex), seed);
    LogSeeded(t, seed);
    return true;
}

void SeedEverything(Table& t, std::uint64_t seed) {
    constexpr auto limit = static_cast<std::uint64_t>(SeedLimit(0));
    const std::uint64_t within = 1 <= seed && seed <= limit ? seed : 1 + Scatter(seed) % limit;
    const auto small = static_cast<std::int32_t>(1 + (within - 1) % static_cast<std::uint64_t>(SeedLimit(2)));
    SeedGenerators(t, {.Rng3 = true}, small);
    const std::int32_t rng3State = t.Rng3State;
    SeedGenerators(t, {.First = true, .Ran1 = true, .Ran2 = true}, static_cast<std::int32_t>(within));
    t.Rng3State = rng3State;
    // Numbers in a row must not give two equal runs, as srandMT would from 2n and 2n + 1.
    srandMT(t.Rng.Second, 2 * static_cast<std::uint32_t>(within) + 1);
    SeedPrivate(t, seed);
}

void CorrectMissingGenerator(Table& t) {
    const Behind needed = GeneratorsBehind(t.RngIndex);
    const bool firstMissing = (t.MissingRngLibraries & 1) != 0 && needed.First;
    const bool secondMissing = (t.MissingRngLibraries & 2) != 0 && needed.Second;
    if (firstMissing || secondMissing) t.RngIndex = 3;
}

// --- drawing ---

namespace {

/// The generator that RngIndex stands for at this roll: the pairs change places at every roll.
int GeneratorOfRoll(const Table& t) {
    switch (t.RngIndex) {
        case 5:
            return SessionRolls(t) % 2 == 0 ? 4 : 0;
        case 6:
            return SessionRolls(t) % 2 == 0 ? 3 : 1;
        default:
            return t.RngIndex;
    }
}

float DrawSingle(Table& t, int generator) {
    std::int32_t goOn = 1;
    return generator == 4 ? Ran1(t, goOn) : Ran2(t, goOn);
}

/// 1..6. The product is exact in double precision; in single it may round up to a whole number.
std::int32_t DieOf(float u) { return static_cast<std::int32_t>(6.0 * static_cast<double>(u)) + 1; }

void DrawSkewedDice(Table& t) {
    const int generator = GeneratorOfRoll(t);
    switch (generator) {
        case 0:
        case 7:
            return LookupDice(t, ScaledDown(genrand_int32(t.Rng.First), WholeChance) + 1);
        case 1:
            return LookupDice(t, ScaledDown(genrand_int32(t.Rng.Second), WholeChance) + 1);
        case 2:
            return LookupDice(t, Rng3(t, WholeChance));
        default: {
            // To the nearest, ties to even: unlike the others this can give 100001, which draws again.
            const double scaled = static_cast<double>(WholeChance) * static_cast<double>(DrawSingle(t, generator));
            return LookupDice(t, static_cast<std::int32_t>(std::nearbyint(scaled)) + 1);
        }
    }
}

}  // namespace

void DrawOtherDice(Table& t) {
    if (t.UseSkewedProbability) return DrawSkewedDice(t);
    const int generator = GeneratorOfRoll(t);
    switch (generator) {
        case 0:
        case 1: {
            Mt19937& source = generator == 0 ? t.Rng.First : t.Rng.Second;
            t.Die1 = ScaledDown(genrand_int32(source), 6) + 1;
            t.Die2 = ScaledDown(genrand_int32(source), 6) + 1;
            return;
        }
        case 2:
            t.Die1 = Rng3(t, 6);
            t.Die2 = Rng3(t, 6);
            return;
        case 7: {
            const std::int32_t k = ScaledDown(genrand_int32(t.Rng.First), 36);
            t.Die1 = k % 6 + 1;
            t.Die2 = k / 6 + 1;
            return;
        }
        default:
            t.Die1 = DieOf(DrawSingle(t, generator));
            t.Die2 = DieOf(DrawSingle(t, generator));
    }
}

double Uniform(Table& t) {
    if (!IsSeeded(t.Rng.Private)) SeedPrivate(t, Clock(t));
    return genrand_real2(t.Rng.Private);
}

void DiceForTotal(Table& t, int total, int& die1, int& die2) {
    assert(2 <= total && total <= 12);
    const int ways = 6 - std::abs(7 - total);
    const int way = ways > 1 ? static_cast<int>(ways * Uniform(t)) : 0;
    die1 = std::max(1, total - 6) + way;
    die2 = total - die1;
}

}  // namespace tarnwick
