#include "files/wavefile.h"

#include <gtest/gtest.h>

#include "support/wave.h"

namespace tarnwick {
namespace {

using namespace testsupport;

std::int64_t Length(const std::string& bytes) {
    const auto wave = ReadWaveHeader(bytes, static_cast<std::int64_t>(bytes.size()));
    return wave ? wave->Milliseconds() : -1;
}

const std::string Format = Chunk("fmt ", WaveFormat().Bytes());

TEST(WaveHeader, TellsTheLength) {
    const std::string second(16'000, 'x');
    struct Case {
        const char* what;
        std::string bytes;
        std::int64_t milliseconds;
    };
    const Case cases[] = {
        {"plain", Wave(250), 250},
        {"stereo", Riff(Chunk("fmt ", WaveFormat{1, 2, 8000, 16}.Bytes()) + Chunk("data", second)), 500},
        {"bytes", Riff(Chunk("fmt ", WaveFormat{1, 1, 8000, 8}.Bytes()) + Chunk("data", second)), 2000},
        {"a longer format", Riff(Chunk("fmt ", WaveFormat().Bytes() + "12") + Chunk("data", second)), 1000},
        {"odd chunk before", Riff(Chunk("LIST", "abc") + "\0" + Format + Chunk("data", second)), -1},
        {"padded chunk before", Riff(Chunk("LIST", "abc") + std::string(1, '\0') + Format + Chunk("data", second)),
         1000},
        {"chunk behind", Riff(Format + Chunk("data", second) + Chunk("LIST", "abcd")), 1000},
        {"promises more than is there", Riff(Format + "data" + Little(0xffffffff, 4) + second), 1000},
        {"a frame cut short", Riff(Format + Chunk("data", std::string(17, 'x'))), 1},
    };
    for (const Case& c : cases) EXPECT_EQ(Length(c.bytes), c.milliseconds) << c.what;
}

TEST(WaveHeader, RefusesWhatIsNone) {
    const std::string data = Chunk("data", std::string(1600, 'x'));
    const auto with = [&](const WaveFormat& format) { return Riff(Chunk("fmt ", format.Bytes()) + data); };
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"text", "This is no sound at all, but it is long enough for a header of one."},
        {"other order of bytes", "RIFX" + Wave(10).substr(4)},
        {"a film", Chunk("RIFF", "AVI " + Format + data)},
        {"no format", Riff(data)},
        {"format behind", Riff(data + Format)},
        {"short format", Riff(Chunk("fmt ", "123456789012345") + data)},
        {"compressed", with({2, 1, 8000, 16})},
        {"no channels", with({1, 0, 8000, 16})},
        {"too many channels", with({1, 65535, 8000, 16})},
        {"no rate", with({1, 1, 0, 16})},
        {"hasty", with({1, 1, 0xffffffff, 16})},
        {"no bits", with({1, 1, 8000, 0})},
        {"12 bits", with({1, 1, 8000, 12})},
        {"no samples", Riff(Format + Chunk("data", ""))},
        {"half a frame", Riff(Format + Chunk("data", "x"))},
        {"endless chunk", "RIFF" + Little(0, 4) + "WAVELIST" + Little(0xffffffff, 4) + Format + data},
    };
    for (const auto& [what, bytes] : cases) EXPECT_EQ(Length(bytes), -1) << what;
}

TEST(WaveHeader, SurvivesEveryCutAndEveryFlippedByte) {
    const std::string whole = Riff(Chunk("LIST", "abcd") + Format + Chunk("data", std::string(64, 'x')));
    const std::size_t samples = whole.size() - 64;
    for (std::size_t length = 0; length < whole.size(); ++length) {
        EXPECT_EQ(Length(whole.substr(0, length)) >= 0, length >= samples + 2) << length;
    }
    for (std::size_t i = 0; i < whole.size(); ++i) {
        for (const int flip : {1, 0x80, 0xff}) {
            std::string bytes = whole;
            bytes[i] = static_cast<char>(bytes[i] ^ flip);
            const auto wave = ReadWaveHeader(bytes, static_cast<std::int64_t>(bytes.size()));
            if (!wave) continue;
            EXPECT_LE(wave->FirstByte + wave->Frames * wave->Channels * wave->Bits / 8,
                      static_cast<std::int64_t>(bytes.size()));
            EXPECT_GE(wave->Milliseconds(), 0);
        }
    }
}

}  // namespace
}  // namespace tarnwick
