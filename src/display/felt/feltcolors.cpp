#include "display/felt/feltcolors.h"

#include <algorithm>
#include <cmath>

#include "table/crapcnst.h"

namespace tarnwick {

namespace {

/// Red, green and blue as people write them, to a value with red in the low byte.
constexpr std::uint32_t Rgb(std::uint32_t hex) { return (hex & 0xFF) << 16 | (hex & 0xFF00) | hex >> 16; }

/// What tells one table from another; other elements follow from these.
struct Palette {
    const char* Caption;
    std::uint32_t Felt, Lines, RailInside, RailOutside, Floor;
    std::uint32_t Dice, Pips, PropDice, PropPips;
    std::uint32_t DoSide, DontSide, Numbers, Props, Specials, Payoffs;
};

constexpr std::array<Palette, 8> Palettes = {{
    {"Set traditional &green table", 0x0B6B3A, 0xFFFFFF, 0xB9783F, 0x2A1A12, 0x5B3A2E, 0xC8102E, 0xFFFFFF, 0xFFF4D6,
     0xB00020, 0xFFE27A, 0xFFB3A0, 0xFFFFFF, 0xFFE9A8, 0xFFD166, 0xFFFFFF},
    {"Set b&urgundy table", 0x6B1026, 0xF6E7C9, 0x9C5B34, 0x1E0B0F, 0x3A2A33, 0xF5F0E1, 0x7A0019, 0xF6E7C9, 0x3A0A14,
     0xFFD98A, 0xF2B8B5, 0xFFF6E0, 0xF9D7A0, 0xFFC857, 0xFFF6E0},
    {"Set hot &chocolate table", 0x4A2A1B, 0xF3DFC1, 0xC08A55, 0x24130C, 0x6E5544, 0xFFF3E0, 0x5A1E0A, 0xE8B071,
     0x3B1E10, 0xFFD9A0, 0xFFAB91, 0xFFF3E0, 0xF6C98B, 0xFFCC80, 0xFFF3E0},
    {"Set &oak table", 0x7A5A2E, 0xFFF6DD, 0xD9A766, 0x4A2F17, 0x3F4A3C, 0x8E1B1B, 0xFFF6DD, 0xFFF6DD, 0x8E1B1B,
     0xFFF0B8, 0x2A1606, 0xFFF6DD, 0xFFE7B0, 0xFFE082, 0xFFF6DD},
    {"Set &sunrise table", 0xB8442A, 0xFFF1D0, 0xE9B872, 0x5A1D2B, 0x2E3A66, 0x27408B, 0xFFFFFF, 0xFFF1D0, 0xB8442A,
     0xFFE66D, 0x3B0D1A, 0xFFFFFF, 0xFFE9B5, 0xFFD23F, 0xFFF1D0},
    {"Set blue &velvet table", 0x1B2A6B, 0xE8ECFF, 0x8A6A9C, 0x0C0F24, 0x3B4270, 0xE8ECFF, 0x1B2A6B, 0xC9D2FF, 0x1B2A6B,
     0xFFD6F0, 0x9FE8FF, 0xFFFFFF, 0xD9DFFF, 0xFFC6E5, 0xE8ECFF},
    {"Set blue &jeans table", 0x3C5F86, 0xF4E3B8, 0xB08050, 0x1F2F45, 0x8CA0B3, 0xB33A2B, 0xF4E3B8, 0xF4E3B8, 0x8A3B1E,
     0xFFC978, 0x050B14, 0xFFFFFF, 0xF4E3B8, 0xFFC978, 0xFFFFFF},
    {"Set &black-light table", 0x0B0714, 0xB44CFF, 0x2A1450, 0x05030A, 0x140B26, 0x39FF14, 0x0B0714, 0x00E5FF, 0x0B0714,
     0x39FF14, 0xFF3EA5, 0x00E5FF, 0xFFF200, 0xFF8A00, 0xE6D6FF},
}};

ColorPreset Expand(const Palette& from) {
    ColorPreset preset;
    preset.Caption = QString::fromLatin1(from.Caption);
    auto& colors = preset.Colors;
    const auto fill = [&colors](std::size_t first, std::size_t last, std::uint32_t hex) {
        std::fill(colors.begin() + static_cast<std::ptrdiff_t>(first),
                  colors.begin() + static_cast<std::ptrdiff_t>(last) + 1, Rgb(hex));
    };
    fill(0, 0, from.Felt);
    fill(1, 1, from.Lines);
    fill(2, 2, from.RailInside);
    fill(3, 3, from.RailOutside);
    fill(4, 4, from.Floor);
    for (const std::size_t die : {5u, 7u, 9u}) {
        fill(die, die, from.Dice);
        fill(die + 1, die + 1, from.Pips);
    }
    fill(11, 11, from.PropDice);
    fill(12, 12, from.PropPips);
    fill(13, 14, from.DoSide);
    fill(15, 16, from.DontSide);
    fill(17, 22, from.Numbers);
    fill(23, 24, from.DoSide);
    fill(25, 30, from.Props);
    fill(31, 32, from.Numbers);
    fill(33, 34, from.Props);
    fill(35, 41, from.Specials);
    fill(42, 42, from.Payoffs);
    return preset;
}

double Luminance(const QColor& c) {
    const auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

}  // namespace

QColor FeltColor(const Table& t, int index) {
    const std::uint32_t value = t.TableColors[static_cast<std::size_t>(index)];
    return {static_cast<int>(value & 0xFF), static_cast<int>(value >> 8 & 0xFF), static_cast<int>(value >> 16 & 0xFF)};
}

double ContrastOf(const QColor& a, const QColor& b) {
    const double first = Luminance(a) + 0.05;
    const double second = Luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

const std::vector<ColorPreset>& ColorPresets() {
    static const std::vector<ColorPreset> presets = [] {
        std::vector<ColorPreset> all;
        for (const Palette& palette : Palettes) all.push_back(Expand(palette));
        return all;
    }();
    return presets;
}

void SetColorPreset(Table& t, int preset) {
    t.TableColors = ColorPresets()[static_cast<std::size_t>(preset)].Colors;
    t.GameChanged = true;
}

}  // namespace tarnwick
