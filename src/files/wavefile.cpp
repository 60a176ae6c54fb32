#include "files/wavefile.h"

#include <algorithm>

namespace tarnwick {

namespace {

constexpr std::uint32_t PlainSamples = 1;
constexpr std::size_t ChunkHead = 8;
constexpr std::size_t FormatSize = 16;

/// A little-endian number of `size` bytes, all of which are there.
std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

bool TakeFormat(std::string_view format, WaveFacts& wave) {
    const std::uint32_t channels = Number(format, 2, 2), rate = Number(format, 4, 4), bits = Number(format, 14, 2);
    if (Number(format, 0, 2) != PlainSamples) return false;
    if (channels < 1 || channels > 8 || rate < 1000 || rate > 192'000) return false;
    if (bits != 8 && bits != 16 && bits != 32) return false;
    wave.Channels = static_cast<int>(channels);
    wave.Rate = static_cast<int>(rate);
    wave.Bits = static_cast<int>(bits);
    return true;
}

}  // namespace

std::optional<WaveFacts> ReadWaveHeader(std::string_view bytes, std::int64_t fileSize) {
    if (bytes.size() < 12 || bytes.substr(0, 4) != "RIFF" || bytes.substr(8, 4) != "WAVE") return std::nullopt;
    WaveFacts wave;
    std::uint64_t at = 12;
    while (at + ChunkHead <= bytes.size()) {
        const std::string_view name = bytes.substr(at, 4);
        const std::uint64_t size = Number(bytes, at + 4, 4);
        at += ChunkHead;
        if (name == "data") {
            if (wave.Rate == 0) return std::nullopt;
            const std::int64_t there =
                std::min(static_cast<std::int64_t>(size), fileSize - static_cast<std::int64_t>(at));
            wave.FirstByte = static_cast<std::int64_t>(at);
            wave.Frames = there / (wave.Channels * (wave.Bits / 8));
            return wave.Frames > 0 ? std::optional(wave) : std::nullopt;
        }
        if (name == "fmt " &&
            (size < FormatSize || at + FormatSize > bytes.size() || !TakeFormat(bytes.substr(at), wave))) {
            return std::nullopt;
        }
        at += size + size % 2;  // chunks begin at even places
    }
    return std::nullopt;
}

}  // namespace tarnwick
