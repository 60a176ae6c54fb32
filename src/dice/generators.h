// The random number generators, each with its whole state in a struct.
#pragma once

#include <array>
#include <cstdint>

#include "table/currency.h"

namespace tarnwick {

/// MT19937.
struct Mt19937 {
    std::array<std::uint32_t, 624> State{};
    int Index = 625;  ///< 625: never seeded
};

/// Three congruential generators with a shuffle table.
struct Ran1State {
    float Ix1 = 0, Ix2 = 0, Ix3 = 0;
    std::array<float, 98> R{};
    bool Initialised = false;
};

/// One congruential generator with a shuffle table.
struct Ran2State {
    std::int32_t Idum = 0, Iy = 0;
    std::array<std::int32_t, 98> Ir{};
    bool Initialised = false;
};

struct Generators {
    Mt19937 First;    ///< genrand_real2
    Mt19937 Second;   ///< randomMT
    Mt19937 Private;  ///< Uniform: never the dice's
    Ran1State Ran1;
    Ran2State Ran2;
};

}  // namespace tarnwick
