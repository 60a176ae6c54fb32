#include "lab/labtable.h"

#include <chrono>
#include <filesystem>

#include "config/configure.h"
#include "dice/dice.h"
#include "dice/dicefile.h"

namespace tarnwick::lab {

std::uint64_t SessionSeed(std::uint64_t seed, std::uint64_t number) {
    if (number == 1) return seed;
    std::uint64_t z = seed + (number - 1) * 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

std::uint64_t ClockSeed() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto microseconds = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    return SessionSeed(static_cast<std::uint64_t>(microseconds), 2) % 1'000'000'000;
}

std::uint32_t MillisecondClock() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
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
