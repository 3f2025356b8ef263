// Figures strewn over the picture, balloons, and lines that follow a stream.
#include <numbers>

#include "resources/generator/backgrounds/Figures.h"
#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

/// Places with at least `apart` between them; fewer than asked for where there is no room.
std::vector<Point> strewnPlaces(const Layer& layer, Random& random) {
    const Point band = layer.point("band", {-0.03F, 1.03F});
    const float apart = layer.number("apart", 0);
    const int count = layer.count("count", 60);
    std::vector<Point> places;
    for (int attempt = 0; attempt < count * 30 && static_cast<int>(places.size()) < count; ++attempt) {
        const float x = random.share() * 1.06F - 0.03F;
        const Point place{x, mix(band.x, band.y, random.share())};
        const auto isNear = [&](Point other) { return length(other - place) < apart; };
        if (apart <= 0 || std::none_of(places.begin(), places.end(), isNear)) places.push_back(place);
    }
    return places;
}

void scatter(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const Figure figure = figureNamed(layer.text("figure", "disc"));
    const auto colors = layer.colors();
    const Point size = layer.point("size", {0.01F, 0.03F}), alpha = layer.point("alpha", {0.5F, 0.9F});
    const float spin = layer.angle("spin", 360), start = layer.angle("turn", 0);
    const Point soft = layer.point("soft", {0, 0});
    const float shadow = layer.number("shadow", 0);
    for (const Point center : strewnPlaces(layer, random)) {
        const float radius = mix(size.x, size.y, std::pow(random.share(), 1.4F)),
                    cover = mix(alpha.x, alpha.y, random.share());
        const float angle = start + spin * (random.share() - 0.5F),
                    blur = mix(soft.x, soft.y, std::pow(random.share(), 2.0F));
        const Paint color = colors[static_cast<std::size_t>(random.below(static_cast<int>(colors.size())))];
        const float edge = std::max(raster.step() / radius, blur);
        const auto stamp = [&](Point middle, Paint tone, float strength, float width) {
            raster.each(Box::around(middle, radius * (1.1F + width)), [&](Paint& paint, Point at) {
                const float away = figure(rotated((at - middle) * (1 / radius), -angle));
                const float share = smooth(width * 0.5F, -width * 0.5F, away);
                if (share > 0) paint = mix(paint, tone, share * strength);
            });
        };
        if (shadow > 0) stamp(center + Point{0.15F, 0.25F} * radius, {0, 0, 0}, shadow * cover, std::max(edge, 0.5F));
        stamp(center, color, cover, edge);
    }
}

void balloons(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto colors = layer.colors();
    const Point size = layer.point("size", {0.04F, 0.08F});
    std::size_t index = 0;
    for (const Point center : strewnPlaces(layer, random)) {
        const float radius = mix(size.x, size.y, random.share()), sway = (random.share() - 0.5F) * radius;
        const Paint color = colors[index++ % colors.size()];
        raster.each({{center.x - radius, center.y + radius}, {center.x + radius, center.y + radius * 4}}, [&](Paint&
                                                                                                                  paint,
                                                                                                              Point
                                                                                                                  at) {
            const float down = (at.y - center.y) / radius - 1.2F;
            const float away = std::abs(at.x - center.x - sway * 0.5F * std::sin(down * 2.2F));
            if (down > 0)
                paint = mix(paint, {1, 1, 1}, 0.55F * std::clamp((0.0008F - away) / raster.step() + 0.5F, 0.0F, 1.0F));
        });
        raster.each(Box::around(center, radius * 1.4F), [&](Paint& paint, Point at) {
            const Point way = (at - center) * (1 / radius);
            const float narrow = 1 + 0.16F * std::max(way.y, 0.0F);
            const float body = length({way.x * narrow, way.y * 0.85F}) - 1;
            const float knot =
                std::max(std::abs(way.x) - 0.25F * (way.y - 1.05F) - 0.04F, std::abs(way.y - 1.22F) - 0.08F);
            const float cover = std::clamp(-std::min(body, knot) * radius / raster.step() + 0.5F, 0.0F, 1.0F);
            if (cover <= 0) return;
            const float light = 0.82F + 0.32F * smooth(0.9F, -0.9F, way.x * 0.7F + way.y);
            const float glint = smooth(0.32F, 0, length(Point{(way.x + 0.38F) * 1.7F, way.y + 0.45F}));
            paint = mix(paint, mix(color * light, {1, 1, 1}, 0.75F * glint), cover * 0.95F);
        });
    }
}

/// Fine lines that follow a stream over the plane.
void streams(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto scale = layer.colors();
    const float size = layer.number("scale", 1.5F), alpha = layer.number("alpha", 0.25F),
                width = layer.number("width", 0.0015F);
    const float base = layer.angle("angle", 0), bend = layer.number("bend", 1);
    const int count = layer.count("count", 420), steps = layer.count("steps", 200);
    for (int line = 0; line < count; ++line) {
        const float x = random.share() * 1.2F - 0.1F;
        Point place{x, random.share() * 1.2F - 0.1F};
        const Paint color = colorAt(scale, random.share());
        const float own = alpha * mix(0.4F, 1, random.share());
        for (int step = 0; step < steps; ++step) {
            const float angle = base + bend * kTurn * 0.5F * layeredNoise(place * size, 2, layer.seed);
            place = place + Point{std::cos(angle), std::sin(angle)} * 0.0028F;
            const float fade =
                own * std::sin(std::numbers::pi_v<float> * static_cast<float>(step) / static_cast<float>(steps));
            raster.each(Box::around(place, width * 1.5F), [&](Paint& paint, Point at) {
                paint = mix(paint, color, fade * smooth(width * 1.5F, 0, length(at - place)));
            });
        }
    }
}

}  // namespace

void addShapeLayers(LayerKinds& kinds) {
    kinds.insert({{"scatter", scatter}, {"balloons", balloons}, {"streams", streams}});
}

}  // namespace dayward::generator
