// Wave files for tests.
#pragma once

#include <cstdint>
#include <string>

namespace tarnwick::testsupport {

inline std::string Little(std::uint32_t value, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) bytes += static_cast<char>(value >> (8 * i) & 255);
    return bytes;
}

inline std::string Chunk(const std::string& name, const std::string& content) {
    return name + Little(static_cast<std::uint32_t>(content.size()), 4) + content;
}

struct WaveFormat {
    std::uint32_t Tag = 1, Channels = 1, Rate = 8000, Bits = 16;

    std::string Bytes() const {
        const std::uint32_t frame = Channels * Bits / 8;
        return Little(Tag, 2) + Little(Channels, 2) + Little(Rate, 4) + Little(Rate * frame, 4) + Little(frame, 2) +
               Little(Bits, 2);
    }
};

inline std::string Riff(const std::string& chunks) { return Chunk("RIFF", "WAVE" + chunks); }

/// Silence of that length, 16 bit, mono, 8000 frames a second.
inline std::string Wave(int milliseconds) {
    const auto size = static_cast<std::size_t>(milliseconds) * 16;
    return Riff(Chunk("fmt ", WaveFormat().Bytes()) + Chunk("data", std::string(size, '\0')));
}

}  // namespace tarnwick::testsupport
