// Any bytes as a wave file: what is accepted lies within the file, however much of it was shown.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "files/wavefile.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void Check(std::string_view shown, std::int64_t fileSize) {
    const auto wave = tarnwick::ReadWaveHeader(shown, fileSize);
    if (!wave) return;
    Require(wave->Frames > 0 && wave->Milliseconds() >= 0);
    Require(wave->FirstByte <= static_cast<std::int64_t>(shown.size()));
    Require(wave->FirstByte + wave->Frames * wave->Channels * (wave->Bits / 8) <= fileSize);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto whole = static_cast<std::int64_t>(size);
    Check(bytes, whole);
    Check(bytes.substr(0, size / 2), whole);
    Check(bytes, 0);
    return 0;
}
