// Layers that repeat: stripes, tiles, bursts and lines.
#include <numbers>
#include <stdexcept>

#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

float wrapped(float value) { return value - std::floor(value); }
/// The way to the next whole number, from 0 to 0.5.
float toWhole(float value) { return std::abs(value - std::round(value)); }

void stripes(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const float angle = layer.angle("angle", 45), count = layer.number("count", 12),
                alpha = layer.number("alpha", 0.3F);
    const float width = layer.number("width", 0.5F);
    const Point along{std::cos(angle), std::sin(angle)};
    const float edge = count * raster.step();
    raster.each([&](Paint& paint, Point at) {
        const float place = (at.x * along.x + at.y * along.y) * count;
        const float share = wrapped(place);
        const float cover = std::clamp((width / 2 - std::abs(share - 0.5F)) / edge + 0.5F, 0.0F, 1.0F);
        const auto index = static_cast<std::size_t>(std::abs(static_cast<int>(std::floor(place))));
        paint = mix(paint, scale[index % scale.size()], cover * alpha);
    });
}

/// The distance to the tile's figure, in tiles; negative inside. `at` is in tiles.
using Tile = float (*)(Point at, float size);

float dotTile(Point at, float size) {
    const float shift = static_cast<int>(std::floor(at.y)) % 2 == 0 ? 0 : 0.5F;
    return length({wrapped(at.x + shift) - 0.5F, wrapped(at.y) - 0.5F}) - size;
}
float chevronTile(Point at, float size) { return toWhole(at.y + 0.5F * std::abs(wrapped(at.x) - 0.5F)) - size * 0.5F; }
/// Overlapping fans, each with three arcs.
float fanTile(Point at, float size) {
    float nearest = 9;
    for (int row = 2; row >= 0; --row) {
        const float y = std::floor(at.y * 2) + static_cast<float>(row);
        const float shift = static_cast<int>(y) % 2 == 0 ? 0 : 0.5F;
        const float far = length({wrapped(at.x + shift) - 0.5F, at.y - y / 2});
        if (far > 0.5F) continue;
        for (const float radius : {0.5F, 0.36F, 0.22F}) nearest = std::min(nearest, std::abs(far - radius));
        return nearest - size * 0.1F;
    }
    return nearest;
}
float hexagonTile(Point at, float size) {
    constexpr float kHeight = 1.7320508F;
    const auto within = [](Point place) {
        const float x = std::abs(place.x), y = std::abs(place.y);
        return std::max(x, x * 0.5F + y * 0.8660254F);
    };
    const auto cell = [&](Point shift) {
        return Point{wrapped(at.x + shift.x) - 0.5F, (wrapped(at.y / kHeight + shift.y) - 0.5F) * kHeight};
    };
    const float far = std::min(within(cell({0, 0})), within(cell({0.5F, 0.5F})));
    return 0.5F - far - size * 0.1F;
}

Tile tileNamed(const std::string& name) {
    static const std::map<std::string, Tile> tiles = {
        {"dots", dotTile}, {"chevrons", chevronTile}, {"fans", fanTile}, {"hexagons", hexagonTile}};
    const auto found = tiles.find(name);
    if (found == tiles.end()) throw std::runtime_error("no tile is named " + name);
    return found->second;
}

void tiles(Raster& raster, const Layer& layer) {
    const Tile tile = tileNamed(layer.text("tile", "dots"));
    const Paint color = layer.color("color", "#FFFFFF");
    const float count = layer.number("count", 12), size = layer.number("size", 0.25F),
                alpha = layer.number("alpha", 0.25F);
    const float angle = layer.angle("angle", 0), vary = layer.number("vary", 0);
    const float edge = count * raster.step();
    raster.each([&](Paint& paint, Point at) {
        const Point place = rotated(at - Point{0.5F, 0.5F}, angle) * count + Point{64, 64};
        const float cover = std::clamp(0.5F - tile(place, size) / edge, 0.0F, 1.0F);
        const float own = 1 + vary * (noise(at * 2.5F, layer.seed) - 0.3F);
        paint = mix(paint, color, std::clamp(cover * alpha * own, 0.0F, 1.0F));
    });
}

/// Rays of even width around a point, like a rising sun on a poster.
void burst(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const Point center = layer.point("center", {0.5F, 0.5F});
    const float count = layer.number("count", 24), alpha = layer.number("alpha", 0.3F);
    raster.each([&](Paint& paint, Point at) {
        const Point way = at - center;
        const float far = length(way) + 1e-4F;
        const float place = (std::atan2(way.y, way.x) / kTurn + 0.5F) * count;
        const float edge = count * raster.step() / (kTurn * far);
        const float cover = std::clamp((0.25F - std::abs(wrapped(place) - 0.5F)) / edge + 0.5F, 0.0F, 1.0F);
        const auto index = static_cast<std::size_t>(std::abs(static_cast<int>(std::floor(place))));
        paint = mix(paint, scale[index % scale.size()], cover * alpha);
    });
}

/// Lines of equal height over rolling country; with "fill" each step has its colour.
void contours(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const float size = layer.number("scale", 2), count = layer.number("count", 12), alpha = layer.number("alpha", 0.6F);
    const float width = layer.number("width", 1.6F);
    const bool fill = layer.count("fill", 0) != 0;
    const auto height = [&](Point at) { return layeredNoise(at * size, 3, layer.seed) * count; };
    const float step = raster.step();
    raster.each([&](Paint& paint, Point at) {
        const float here = height(at);
        const Point rise{height(at + Point{step, 0}) - here, height(at + Point{0, step}) - here};
        const float away = toWhole(here) / (length(rise) + 1e-6F);
        const float cover = std::clamp(width / 2 - away + 0.5F, 0.0F, 1.0F);
        if (fill) paint = mix(paint, colorAt(scale, 0.5F + 1.4F * std::floor(here) / count), alpha);
        paint = mix(paint, fill ? paint * 0.88F : colorAt(scale, 0.5F + here / count), cover * (fill ? 1 : alpha));
    });
}

}  // namespace

void addPatternLayers(LayerKinds& kinds) {
    kinds.insert({{"stripes", stripes}, {"tiles", tiles}, {"burst", burst}, {"contours", contours}});
}

}  // namespace dayward::generator
