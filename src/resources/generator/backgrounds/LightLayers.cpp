// Lights, and what falls from the sky.
#include <numbers>

#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;

/// a over b as light adds: never beyond white.
Paint screened(Paint below, Paint light, float alpha) {
    const auto channel = [alpha](float a, float b) { return 1 - (1 - std::min(a, 1.0F)) * (1 - b * alpha); };
    return {channel(below.red, light.red), channel(below.green, light.green), channel(below.blue, light.blue)};
}

Paint anyOf(const std::vector<Paint>& colors, Random& random) {
    return colors[static_cast<std::size_t>(random.below(static_cast<int>(colors.size())))];
}

/// Lights out of focus: discs, a little brighter at the rim.
void bokeh(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto colors = layer.colors();
    const Point size = layer.point("size", {0.02F, 0.09F}), alpha = layer.point("alpha", {0.08F, 0.35F});
    const Point band = layer.point("band", {0, 1});
    const float soft = layer.number("soft", 0.12F);
    const int count = layer.count("count", 50);
    for (int index = 0; index < count; ++index) {
        const float x = random.share();
        const Point center{x, mix(band.x, band.y, random.share())};
        const float radius = mix(size.x, size.y, std::pow(random.share(), 1.6F)),
                    light = mix(alpha.x, alpha.y, random.share());
        const Paint color = anyOf(colors, random);
        raster.each(Box::around(center, radius * 1.1F), [&](Paint& paint, Point at) {
            const float far = length(at - center) / radius;
            const float cover = 1 - smooth(1 - soft, 1 + soft * 0.5F, far);
            if (cover > 0) paint = screened(paint, color, cover * light * (0.72F + 0.28F * std::pow(far, 4.0F)));
        });
    }
}

/// Beams from a point, uneven as through leaves or clouds.
void rays(Raster& raster, const Layer& layer) {
    const Point center = layer.point("center", {0.3F, -0.1F});
    const Paint color = layer.color("color", "#FFFFFF");
    const float count = layer.number("count", 16), alpha = layer.number("alpha", 0.5F),
                reach = layer.number("reach", 1.4F);
    raster.each([&](Paint& paint, Point at) {
        const Point way = at - center;
        const float far = length(way), turn = std::atan2(way.y, way.x) / kTurn;
        const float beam = smooth(-0.25F, 0.5F, layeredNoise({turn * count * 2 + 40, 0.3F}, 3, layer.seed));
        paint = screened(paint, color, beam * alpha * std::pow(std::max(0.0F, 1 - far / reach), 1.3F));
    });
}

void glows(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto colors = layer.colors();
    const Point size = layer.point("size", {0.1F, 0.4F});
    const float alpha = layer.number("alpha", 0.5F);
    const int count = layer.count("count", 8);
    for (int index = 0; index < count; ++index) {
        const float x = random.share();
        const Point center{x, random.share()};
        const float radius = mix(size.x, size.y, random.share());
        const Paint color = anyOf(colors, random);
        raster.each(Box::around(center, radius), [&](Paint& paint, Point at) {
            const float share = std::max(0.0F, 1 - length(at - center) / radius);
            paint = screened(paint, color, alpha * share * share);
        });
    }
}

/// Bulbs on sagging wires.
void garland(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto colors = layer.colors();
    const Paint wire = layer.color("wire", "#2A2530");
    const int lines = layer.count("lines", 3), bulbs = layer.count("count", 12);
    const Point band = layer.point("band", {0.1F, 0.7F});
    const float bulb = layer.number("size", 0.014F);
    for (int line = 0; line < lines; ++line) {
        const float share = lines > 1 ? static_cast<float>(line) / static_cast<float>(lines - 1) : 0.5F;
        const float top = mix(band.x, band.y, share), sag = 0.07F + 0.08F * random.share(),
                    tilt = (random.share() - 0.5F) * 0.12F;
        const auto heightAt = [&](float x) { return top + tilt * (x - 0.5F) + sag * (1 - (2 * x - 1) * (2 * x - 1)); };
        raster.each({{0, top - 0.1F}, {1, top + 0.3F}}, [&](Paint& paint, Point at) {
            const float slope = length({1, (heightAt(at.x + 0.01F) - heightAt(at.x)) * 100});
            const float away = std::abs(at.y - heightAt(at.x)) / slope;
            paint = mix(paint, wire, 0.8F * std::clamp((0.0016F - away) / raster.step() + 0.5F, 0.0F, 1.0F));
        });
        for (int index = 0; index < bulbs; ++index) {
            const float x = (static_cast<float>(index) + 0.3F + 0.4F * random.share()) / static_cast<float>(bulbs);
            const Point center{x, heightAt(x) + bulb * 1.3F};
            const Paint color = anyOf(colors, random);
            raster.each(Box::around(center, bulb * 7), [&](Paint& paint, Point at) {
                const float far = length({(at.x - center.x) * 1.15F, at.y - center.y}) / bulb;
                const float halo = std::pow(std::max(0.0F, 1 - far / 7), 3.0F);
                paint = screened(paint, color, 0.7F * halo);
                const float cover = std::clamp((1 - far) * bulb / raster.step() + 0.5F, 0.0F, 1.0F);
                paint = mix(paint, mix(Paint{1, 1, 0.94F}, color, smooth(0, 1.1F, far)), cover);
            });
        }
    }
}

/// Sparks that fly from a point and fall a little.
void oneFirework(Raster& raster, Point center, float radius, Paint color, Random& random) {
    raster.each(Box::around(center, radius * 0.9F), [&](Paint& paint, Point at) {
        const float share = std::max(0.0F, 1 - length(at - center) / (radius * 0.9F));
        paint = screened(paint, color, 0.35F * share * share);
    });
    const int sparks = 46;
    for (int spark = 0; spark < sparks; ++spark) {
        const float angle = kTurn * (static_cast<float>(spark) + 0.6F * random.share()) / sparks;
        const float reach = radius * mix(0.55F, 1, random.share());
        for (float share = 0.12F; share < 1; share += 0.035F) {
            const Point place = center + Point{std::cos(angle), std::sin(angle)} * (reach * share) +
                                Point{0, 0.1F * radius * share * share};
            const float size = 0.0011F + 0.0022F * share, light = 0.2F + 0.8F * share * share;
            const Paint tone = mix(color, {1, 1, 0.95F}, 0.25F * share);
            raster.each(Box::around(place, size * 3), [&](Paint& paint, Point at) {
                const float far = length(at - place) / size;
                paint = screened(paint, tone, light * std::exp(-far * far * 0.8F));
            });
        }
    }
}

void fireworks(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto colors = layer.colors();
    const Point size = layer.point("size", {0.1F, 0.24F}), band = layer.point("band", {0.15F, 0.6F});
    const int count = layer.count("count", 6);
    for (int index = 0; index < count; ++index) {
        const float x = (static_cast<float>(index) + random.share()) / static_cast<float>(count);
        const float y = mix(band.x, band.y, random.share());
        const float radius = mix(size.x, size.y, random.share());
        oneFirework(raster, {x, y}, radius, colors[static_cast<std::size_t>(index) % colors.size()], random);
    }
}

/// Thin lines that fall aslant: rain, or shooting stars with a long length.
void streaks(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const Paint color = layer.color("color", "#FFFFFF");
    const float angle = layer.angle("angle", 100), alpha = layer.number("alpha", 0.3F),
                width = layer.number("width", 0.0012F);
    const Point size = layer.point("size", {0.02F, 0.07F}), along{std::cos(angle), std::sin(angle)};
    const float bottom = layer.number("bottom", 1.0F);
    const int count = layer.count("count", 260);
    for (int index = 0; index < count; ++index) {
        const float x = random.share() * 1.2F - 0.1F;
        const Point head{x, random.share() * bottom};
        const float tall = mix(size.x, size.y, random.share()), light = alpha * mix(0.3F, 1, random.share());
        raster.each(Box::around(head - along * (tall / 2), tall / 2 + width * 2), [&](Paint& paint, Point at) {
            const Point way = at - head;
            const float behind = -(way.x * along.x + way.y * along.y) / tall;
            if (behind < 0 || behind > 1) return;
            const float away = std::abs(way.x * along.y - way.y * along.x);
            const float cover = std::clamp((width * (1 - behind) - away) / raster.step() + 0.5F, 0.0F, 1.0F);
            paint = screened(paint, color, cover * light * (1 - behind));
        });
    }
}

}  // namespace

void addLightLayers(LayerKinds& kinds) {
    kinds.insert({{"bokeh", bokeh},
                  {"rays", rays},
                  {"glows", glows},
                  {"garland", garland},
                  {"fireworks", fireworks},
                  {"streaks", streaks}});
}

}  // namespace dayward::generator
