// Tables of the laboratory: set up from options, seeded from one number.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "lab/commandline.h"
#include "table/screen.h"

namespace tarnwick::lab {

/// Seed of session `number` (from 1) of a run with seed `seed`. The first session takes the seed itself; the others
/// take odd numbers below 2^31, mixed from both, no two of 2^30 sessions the same. Odd, because some generators drop
/// the lowest bit.
std::uint64_t SessionSeed(std::uint64_t seed, std::uint64_t number);

/// A seed from the clock, short enough to be typed.
std::uint64_t ClockSeed();

/// A millisecond counter that wraps at 32 bits.
std::uint32_t MillisecondClock();

/// What the clock shows while a script runs, so that a run is repeatable: a number that depends on the seed of the
/// run, the sessions that scripts began before and the rolls of this one. Every roll has its own, and the selected
/// generator takes it as a seed.
struct ScriptClock {
    std::uint64_t Seed = 0;
    std::uint64_t EndedSessions = 0;

    std::uint32_t Now(const Table& t) const;
};

/// Today and now in local time: "2024-12-31", "23:59:59".
std::string LocalDateText();
std::string LocalTimeText();

/// Selects RNG #1 to #8.
void SelectRng(Table& t, int number);

/// Changes settings in the order given; returns the first refusal, with the setting's name, or nothing.
std::string ApplySettings(Table& t, const std::vector<SettingOption>& settings);

/// Opens an existing dice roll file for playback from its first roll; returns what is wrong, or nothing.
std::string PlayDiceFile(Table& t, const std::string& path);

}  // namespace tarnwick::lab
