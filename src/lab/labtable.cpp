#include "lab/labtable.h"

#include <chrono>
#include <ctime>
#include <filesystem>

#include "config/configure.h"
#include "dice/dice.h"
#include "dice/dicefile.h"
#include "stats/accumulators.h"

namespace tarnwick::lab {

namespace {

/// The output function of SplitMix64.
std::uint64_t Mixed(std::uint64_t z) {
    z += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

/// Mixes the lowest 30 bits; each step can be undone, so different numbers stay different.
std::uint64_t Mixed30(std::uint64_t z) {
    constexpr std::uint64_t mask = (std::uint64_t{1} << 30) - 1;
    z &= mask;
    for (const std::uint64_t odd : {0x2C1B3C6Du, 0x297A2D39u}) {
        z ^= z >> 15;
        z = z * odd & mask;
    }
    return z ^ (z >> 15);
}

std::tm LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local;
}

}  // namespace

std::uint64_t SessionSeed(std::uint64_t seed, std::uint64_t number) {
    return number == 1 ? seed : 2 * Mixed30(Mixed(seed) + number) + 1;
}

std::uint64_t ClockSeed() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    return Mixed(static_cast<std::uint64_t>(microseconds)) % 1'000'000'000;
}

std::uint32_t MillisecondClock() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

std::uint32_t ScriptClock::Now(const Table& t) const {
    // Other bits than those of the run's own sessions, whose dice must not come again.
    constexpr std::uint64_t otherSeeds = 0x5851F42D4C957F2Du;
    const std::uint64_t moment =
        SessionSeed(Seed ^ otherSeeds, EndedSessions + 2) + static_cast<std::uint64_t>(SessionRolls(t));
    constexpr int smallestSeeds = 2;  // RngIndex of the generator that takes a hundredth of the clock
    const auto limit = static_cast<std::uint64_t>(SeedLimit(t.RngIndex) - 1);
    const std::uint64_t seed = 1 + moment % limit;
    return static_cast<std::uint32_t>(t.RngIndex == smallestSeeds ? 100 * seed : seed);
}

std::string LocalDateText() {
    const std::tm now = LocalTime();
    char buffer[32];
    return {buffer, std::strftime(buffer, sizeof buffer, "%Y-%m-%d", &now)};
}

std::string LocalTimeText() {
    const std::tm now = LocalTime();
    char buffer[32];
    return {buffer, std::strftime(buffer, sizeof buffer, "%H:%M:%S", &now)};
}

void SelectRng(Table& t, int number) {
    t.RngIndex = number - 1;
    CorrectMissingGenerator(t);
}

std::string ApplySettings(Table& t, const std::vector<SettingOption>& settings) {
    for (const SettingOption& setting : settings) {
        const std::string fault = SetSetting(t, setting.Name, setting.Value);
        if (!fault.empty()) return setting.Name + ": " + fault;
    }
    return {};
}

std::string PlayDiceFile(Table& t, const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) return "there is no dice roll file " + path;
    std::string fault = OpenDiceRollFile(t, path);
    if (!fault.empty()) return fault;
    return SetDiceFileMode(t, 2) ? std::string() : "the dice roll file " + path + " can't be played";
}

}  // namespace tarnwick::lab
