// How long a wave file plays.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarnwick {

/// Plain samples: 8, 16 or 32 bits a sample, 1..8 channels, 1,000..192,000 frames a second, at least one frame.
struct WaveFacts {
    int Channels = 0;
    int Rate = 0;  ///< frames a second
    int Bits = 0;
    std::int64_t FirstByte = 0;  ///< of the samples in the file
    std::int64_t Frames = 0;     ///< that the file really holds, whatever its header promises

    std::int64_t Milliseconds() const { return Frames * 1000 / Rate; }
};

/// Reads the header of a wave file of `fileSize` bytes that begins with `bytes`. Nothing when it is none that can be
/// played, or when its samples begin behind `bytes`.
std::optional<WaveFacts> ReadWaveHeader(std::string_view bytes, std::int64_t fileSize);

}  // namespace tarnwick
