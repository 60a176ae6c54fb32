#include "display/felt/feltsurface.h"

#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <thread>

#include "display/felt/feltoutline.h"

namespace tarnwick {

namespace {

struct Shade {
    float R = 0, G = 0, B = 0;
};

Shade operator*(Shade a, float k) { return {a.R * k, a.G * k, a.B * k}; }
Shade operator+(Shade a, float k) { return {a.R + k, a.G + k, a.B + k}; }
Shade Mix(Shade a, Shade b, float t) { return {a.R + (b.R - a.R) * t, a.G + (b.G - a.G) * t, a.B + (b.B - a.B) * t}; }
Shade Of(const QColor& c) {
    return {static_cast<float>(c.red()), static_cast<float>(c.green()), static_cast<float>(c.blue())};
}
float Clamp01(float v) { return std::clamp(v, 0.0f, 1.0f); }

/// Distance from the edge of a box, negative inside, and the direction outward.
struct Edge {
    float Distance, OutX, OutY;
};

struct Box {
    explicit Box(const RoundedBox& b)
        : CX(static_cast<float>((b.Left + b.Right) / 2)),
          CY(static_cast<float>((b.Top + b.Bottom) / 2)),
          HX(static_cast<float>((b.Right - b.Left) / 2)),
          HY(static_cast<float>((b.Bottom - b.Top) / 2)),
          RT(static_cast<float>(b.TopRadius)),
          RB(static_cast<float>(b.BottomRadius)) {}

    Edge From(float x, float y) const {
        const float sx = x < CX ? -1.0f : 1.0f;
        const float sy = y < CY ? -1.0f : 1.0f;
        const float r = y < CY ? RT : RB;
        const float qx = sx * (x - CX) - HX + r;
        const float qy = sy * (y - CY) - HY + r;
        if (qx > 0 && qy > 0) {
            const float length = std::sqrt(qx * qx + qy * qy);
            return {length - r, sx * qx / length, sy * qy / length};
        }
        return qx > qy ? Edge{qx - r, sx, 0} : Edge{qy - r, 0, sy};
    }

    float CX, CY, HX, HY, RT, RB;
};

/// Noise of 256 x 256 cells in -1..1, the same at every start.
struct NoiseField {
    NoiseField() {
        std::uint32_t state = 0x9E3779B9u;
        for (float& cell : Cells) {
            state ^= state << 13;
            state ^= state >> 17;
            state ^= state << 5;
            cell = static_cast<float>(state >> 8) / 8388608.0f - 1.0f;
        }
    }
    float Cell(int x, int y) const { return Cells[static_cast<std::size_t>((y & 255) << 8 | (x & 255))]; }
    /// Between cells.
    float Smooth(float x, float y) const {
        const float fx = std::floor(x);
        const float fy = std::floor(y);
        const int ix = static_cast<int>(fx);
        const int iy = static_cast<int>(fy);
        const float tx = x - fx;
        const float ty = y - fy;
        const float top = Cell(ix, iy) + (Cell(ix + 1, iy) - Cell(ix, iy)) * tx;
        const float low = Cell(ix, iy + 1) + (Cell(ix + 1, iy + 1) - Cell(ix, iy + 1)) * tx;
        return top + (low - top) * ty;
    }
    std::array<float, 65536> Cells{};
};

const NoiseField& Noise() {
    static const NoiseField field;
    return field;
}

/// Brightness of the floor by pixel, around 1.
float CarpetAt(int x, int y) {
    const NoiseField& n = Noise();
    return 1.0f + 0.05f * n.Cell(x, y) + 0.05f * n.Smooth(static_cast<float>(x) / 9.0f, static_cast<float>(y) / 9.0f);
}

float ParquetAt(int x, int y) {
    constexpr int plank = 36;
    const int row = y / plank;
    const int along = x + row * 97;
    const int board = along / 190;
    const float grain = Noise().Smooth(static_cast<float>(along) / 40.0f, static_cast<float>(y) / 1.6f);
    const bool seam = y % plank == 0 || along % 190 == 0;
    return (seam ? 0.72f : 1.0f) * (1.0f + 0.07f * Noise().Cell(board * 7, row * 13) + 0.05f * grain);
}

float TilesAt(int x, int y) {
    constexpr int side = 72;
    const int column = x / side;
    const int row = y / side;
    if (x % side < 2 || y % side < 2) return 0.8f;
    const float checker = (column + row) % 2 == 0 ? 0.05f : -0.05f;
    return 1.0f + checker + 0.03f * Noise().Smooth(static_cast<float>(x) / 14.0f, static_cast<float>(y) / 14.0f);
}

float PlainAt(int, int) { return 1.0f; }

using FloorPattern = float (*)(int x, int y);
constexpr std::array<FloorPattern, 4> FloorPatterns = {PlainAt, CarpetAt, ParquetAt, TilesAt};

/// Shades one pixel after the other of one picture.
class Shader {
  public:
    Shader(const QTransform& tableToPixels, const SurfaceColors& colors, int spotlight, int texture)
        : Felt(Of(colors.Felt)),
          Rack(Of(colors.Rack)),
          Rail(Mix(Of(colors.Rail), {255, 255, 255}, 0.07f)),
          Floor(Of(colors.Floor)),
          Darkness(static_cast<float>(std::clamp(spotlight, 0, 3)) * 0.27f) {
        const double scale = std::sqrt(std::abs(tableToPixels.determinant()));
        PixelsPerUnit = static_cast<float>(scale);
        Cos = static_cast<float>(tableToPixels.m11() / scale);
        Sin = static_cast<float>(tableToPixels.m21() / scale);
        const bool known = texture >= 0 && texture < static_cast<int>(FloorPatterns.size());
        Pattern = FloorPatterns[static_cast<std::size_t>(known ? texture : 0)];
    }

    Shade At(float x, float y, int px, int py) const {
        const Edge rack = RackEdge.From(x, y);
        if (rack.Distance < -BareFelt) return FeltAt(x, y, -rack.Distance - Wall, px, py);
        const Edge outer = OuterEdge.From(x, y);
        if (outer.Distance * PixelsPerUnit > 0.5f) return RoomAt(x, y, outer.Distance, px, py);
        Shade shade = InsideAt(x, y, outer, rack, px, py);
        const float beyond = outer.Distance * PixelsPerUnit + 0.5f;
        if (beyond > 0) shade = Mix(shade, RoomAt(x, y, std::max(outer.Distance, 0.0f), px, py), Clamp01(beyond));
        return shade;
    }

  private:
    static constexpr float Depth = static_cast<float>(RackDepth);
    static constexpr float Wall = static_cast<float>(WallDepth);
    static constexpr float BareFelt = Wall + 4;

    /// Light from the upper left and above, on a surface that leans by `lean` along the outward direction of `edge`.
    float Light(const Edge& edge, float lean) const {
        const float right = (edge.OutX * Cos + edge.OutY * Sin) * lean;
        const float down = (edge.OutY * Cos - edge.OutX * Sin) * lean;
        const float up = std::sqrt(std::max(0.0f, 1 - lean * lean));
        return std::max(0.0f, -0.33f * right - 0.56f * down + 0.76f * up);
    }

    Shade FeltAt(float x, float y, float depth, int px, int py) const {
        const float ax = (x - 624.0f) / 620.0f;
        const float ay = (y - 257.0f) / 300.0f;
        float k = 1.10f - 0.20f * (ax * ax + ay * ay);
        if (depth < 70) {
            const float near = 1 - std::max(0.0f, depth) / 70;
            k *= 1 - 0.30f * near * near * near;
        }
        k += 0.028f * Grain.Cell(px, py) + 0.014f * Grain.Cell(px >> 1, py + 128);
        return Felt * k + 0.6f * Grain.Cell(px + 57, py + 91);
    }

    Shade RoomAt(float x, float y, float distance, int px, int py) const {
        float k = Pattern(px, py);
        if (distance < 90) {
            // The shadow falls to the lower right of the screen, however the table is turned.
            const float dx = 9 * Cos - 15 * Sin;
            const float dy = 9 * Sin + 15 * Cos;
            const float away = std::max(0.0f, OuterEdge.From(x - dx, y - dy).Distance);
            const float shadow = std::max(0.0f, 1 - away / 52);
            k *= 1 - 0.52f * shadow * shadow;
        }
        if (Darkness > 0) k *= 1 - Darkness * (0.62f + 0.38f * std::min(1.0f, distance / 240));
        return Floor * k + 0.7f * Grain.Cell(px, py);
    }

    Shade RailAt(const Edge& outer, const Edge& rack, float x, float y) const {
        const float width = rack.Distance - outer.Distance;
        const float t = width > 0 ? Clamp01(-outer.Distance / width) : 0;
        const float lean = 0.95f * (1 - 2 * t);
        const Edge side = lean > 0 ? outer : rack;
        const float light = Light(side, lean);
        const float light2 = light * light;
        const float light8 = light2 * light2 * light2 * light2;
        const float grain = 1 + 0.10f * Grain.Smooth(x * 0.9f, y * 0.9f);
        return Rail * ((0.30f + 0.95f * light) * grain) + 46 * light8 * light2 * grain;
    }

    Shade RackAt(const Edge& rack, float x, float y) const {
        const float across = Clamp01(-rack.Distance / Depth);
        const float light = Light(rack, 0.75f * (2 * across - 1));
        // The grain runs along the rack: along x on its long sides, along y at the ends, turning in the corners.
        const float along = x * rack.OutY - y * rack.OutX;
        const float lines = Grain.Smooth(along / 46.0f, -rack.Distance / 1.15f) +
                            0.5f * Grain.Smooth(along / 13.0f + 71, -rack.Distance * 2.1f);
        Shade shade = Rack * ((0.44f + 0.72f * light) * (1 + 0.075f * lines));
        for (const float groove : {6.0f, 16.0f, 26.0f}) {
            const float off = -rack.Distance - groove;
            const float size = std::max(0.9f, 0.9f / PixelsPerUnit);
            shade = shade * (1 - 0.26f * std::max(0.0f, 1 - std::abs(off) / size));
            shade = shade * (1 + 0.12f * std::max(0.0f, 1 - std::abs(off - 1.4f) / size));
        }
        const float shadow = std::max(0.0f, 1 + rack.Distance / 5.5f);
        return shade * (1 - 0.55f * shadow * shadow);
    }

    Shade InsideAt(float x, float y, const Edge& outer, const Edge& rack, int px, int py) const {
        const float toRack = rack.Distance * PixelsPerUnit;
        const float toWall = (rack.Distance + Depth) * PixelsPerUnit;
        const float toFelt = (rack.Distance + Wall) * PixelsPerUnit;
        if (toRack >= 0.5f) return RailAt(outer, rack, x, y);
        if (toRack > -0.5f) return Mix(RackAt(rack, x, y), RailAt(outer, rack, x, y), Clamp01(toRack + 0.5f));
        if (toWall >= 0.5f) return RackAt(rack, x, y);
        const float down = Clamp01(-(rack.Distance + Depth) / (Wall - Depth));
        const Shade wall = Felt * ((0.26f + 0.34f * down) * (0.65f + 0.55f * Light(rack, -0.7f)));
        if (toWall > -0.5f) return Mix(wall, RackAt(rack, x, y), Clamp01(toWall + 0.5f));
        if (toFelt >= 0.5f) return wall;
        const Shade felt = FeltAt(x, y, -rack.Distance - Wall, px, py);
        return toFelt > -0.5f ? Mix(felt, wall, Clamp01(toFelt + 0.5f)) : felt;
    }

    const NoiseField& Grain = Noise();
    Box OuterEdge{OuterBox};
    Box RackEdge{RackBox};
    Shade Felt, Rack, Rail, Floor;
    float Darkness = 0;
    float PixelsPerUnit = 1;
    float Cos = 1;
    float Sin = 0;
    FloorPattern Pattern = PlainAt;
};

std::uint32_t Byte(float v) { return static_cast<std::uint32_t>(std::clamp(v, 0.0f, 255.0f) + 0.5f); }

}  // namespace

const std::vector<QString>& FloorTextures() {
    static const std::vector<QString> names = {QStringLiteral("Plain"), QStringLiteral("Carpet"),
                                               QStringLiteral("Parquet"), QStringLiteral("Tiles")};
    return names;
}

void ShadeSurface(QImage& image, const QTransform& tableToPixels, const SurfaceColors& colors, int spotlight,
                  int texture) {
    const Shader shader(tableToPixels, colors, spotlight, texture);
    const QTransform back = tableToPixels.inverted();
    const int width = image.width();
    const int height = image.height();
    const auto stride = static_cast<std::size_t>(image.bytesPerLine());
    auto* const bits = image.bits();
    const auto shadeRows = [&](int first, int step) {
        for (int row = first; row < height; row += step) {
            auto* pixel = reinterpret_cast<QRgb*>(bits + static_cast<std::size_t>(row) * stride);
            const QPointF start = back.map(QPointF(0.5, row + 0.5));
            for (int column = 0; column < width; ++column) {
                const auto x = static_cast<float>(start.x() + back.m11() * column);
                const auto y = static_cast<float>(start.y() + back.m12() * column);
                const Shade s = shader.At(x, y, column, row);
                pixel[column] = 0xFF000000u | Byte(s.R) << 16 | Byte(s.G) << 8 | Byte(s.B);
            }
        }
    };
    // Small pictures aren't worth a thread's start.
    const bool large = static_cast<long>(width) * height > 200'000 && std::thread::hardware_concurrency() > 1;
    if (!large) return shadeRows(0, 1);
    std::thread other([&] { shadeRows(1, 2); });
    shadeRows(0, 2);
    other.join();
}

}  // namespace tarnwick
