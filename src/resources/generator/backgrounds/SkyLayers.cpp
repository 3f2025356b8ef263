// What stands in the sky.
#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

void stars(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto colors = layer.colors();
    const float bound = layer.number("bottom", 1), alpha = layer.number("alpha", 1);
    const Point size = layer.point("size", {0.0006F, 0.0022F});
    const int count = layer.count("count", 260);
    for (int index = 0; index < count; ++index) {
        const float x = random.share();
        const Point center{x, random.share() * bound};
        const float rare = std::pow(random.share(), 6.0F);
        const float radius = mix(size.x, size.y, rare), light = alpha * mix(0.35F, 1, random.share());
        const Paint color = colors[static_cast<std::size_t>(random.below(static_cast<int>(colors.size())))];
        const float reach = radius * (rare > 0.5F ? 9.0F : 4.0F);
        raster.each(Box::around(center, reach), [&](Paint& paint, Point at) {
            const Point way = at - center;
            const float far = length(way) / radius;
            float shine = std::exp(-far * far * 0.7F);
            if (rare > 0.5F) {
                const float cross =
                    std::exp(-std::abs(way.x) / radius * 4) * std::exp(-std::abs(way.y) / radius * 0.5F) +
                    std::exp(-std::abs(way.y) / radius * 4) * std::exp(-std::abs(way.x) / radius * 0.5F);
                shine += 0.5F * cross + 0.12F * std::exp(-far * 0.5F);
            }
            paint = mix(paint, color, std::min(1.0F, shine * light));
        });
    }
}

/// A band of faint light across the sky.
void galaxy(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const float angle = layer.angle("angle", -35), width = layer.number("width", 0.2F),
                alpha = layer.number("alpha", 0.8F);
    const Point center = layer.point("center", {0.5F, 0.5F});
    raster.each([&](Paint& paint, Point at) {
        const Point place = rotated(at - center, -angle);
        const float bend = 0.35F * layeredNoise(at * 2.5F, 3, layer.seed);
        const float away = (place.y + bend * width * 1.6F) / width;
        const float dust = layeredNoise(at * 7 + Point{bend, bend} * 2, 5, layer.seed + 10);
        const float lane =
            smooth(0.05F, 0.3F, std::abs(place.y + 0.12F * layeredNoise(at * 5, 4, layer.seed + 20)) / width);
        const float light = std::exp(-away * away) * (0.75F + 0.9F * dust) * (0.45F + 0.55F * lane);
        if (light <= 0) return;
        paint = paint + colorAt(scale, light) * (light * alpha);
    });
}

void sun(Raster& raster, const Layer& layer) {
    const Point center = layer.point("center", {0.5F, 0.4F});
    const float radius = layer.number("radius", 0.1F), glow = layer.number("glow", 3), alpha = layer.number("alpha", 1);
    const Paint color = layer.color("color", "#FFF3C4"), halo = layer.color("halo", "#FFD98A");
    const float lines = layer.number("lines", 0), edge = raster.step() / radius;
    raster.each(Box::around(center, radius * (1 + glow)), [&](Paint& paint, Point at) {
        const float far = length(at - center) / radius;
        const float shine = std::pow(std::max(0.0F, 1 - (far - 1) / std::max(glow, 1e-3F)), 3.0F);
        if (far > 1) paint = mix(paint, halo, std::min(1.0F, shine) * 0.55F * alpha);
        float cover = std::clamp((1 - far) / edge + 0.5F, 0.0F, 1.0F) * alpha;
        const float down = (at.y - center.y) / radius;
        if (lines > 0 && down > -0.1F) {
            const float share = down * lines - std::floor(down * lines);
            if (share < 0.2F + 0.45F * down) cover = 0;
        }
        paint = mix(paint, mix(color, halo, smooth(-0.6F, 1, down) * layer.number("shade", 0.3F)), cover);
    });
}

void moon(Raster& raster, const Layer& layer) {
    const Point center = layer.point("center", {0.7F, 0.3F});
    const float radius = layer.number("radius", 0.1F), phase = layer.number("phase", 0), edge = raster.step() / radius;
    const Paint color = layer.color("color", "#FFF6DC"), halo = layer.color("halo", "#FFEFC0");
    raster.each(Box::around(center, radius * 4), [&](Paint& paint, Point at) {
        const Point way = (at - center) * (1 / radius);
        const float far = length(way);
        paint = mix(paint, halo, 0.35F * std::pow(std::max(0.0F, 1 - far / 4), 3.0F));
        float cover = std::clamp((1 - far) / edge + 0.5F, 0.0F, 1.0F);
        if (phase > 0)
            cover *= std::clamp((length(way - Point{phase, -phase * 0.35F}) - 0.95F) / edge + 0.5F, 0.0F, 1.0F);
        if (cover <= 0) return;
        const float seas = smooth(0.02F, 0.3F, layeredNoise(way * 1.6F + Point{3, 1}, 3, layer.seed));
        const float craters = smooth(0.22F, 0.12F, cellAt(way * 3.2F, 0.9F, layer.seed).nearest);
        paint = mix(paint, color * (1 - 0.13F * seas - 0.05F * craters - 0.1F * far * far), cover);
    });
}

/// A lit ball, with bands and perhaps a ring.
void planet(Raster& raster, const Layer& layer) {
    const Point center = layer.point("center", {0.5F, 0.5F});
    const float radius = layer.number("radius", 0.2F), edge = raster.step() / radius, tilt = layer.angle("tilt", -18);
    const auto scale = layer.colors();
    const float ring = layer.number("ring", 0), bands = layer.number("bands", 3);
    const auto ringAt = [&](Paint& paint, Point way, bool inFront) {
        const Point flat = rotated(way, -tilt);
        if ((flat.y > 0) != inFront) return;
        const float far = length({flat.x, flat.y * 3.4F});
        const float cover = smooth(1.3F, 1.36F, far) * (1 - smooth(ring - 0.05F, ring, far));
        const float groove = 0.65F + 0.35F * noise({far * 14, 0.5F}, layer.seed);
        paint = mix(paint, scale.back() * (0.75F + 0.35F * groove), cover * 0.8F * groove);
    };
    raster.each(Box::around(center, radius * std::max(1.6F, ring)), [&](Paint& paint, Point at) {
        const Point way = (at - center) * (1 / radius);
        const float far = length(way);
        paint = paint + scale.front() * (0.22F * std::pow(std::max(0.0F, 1 - far / 1.5F), 2.0F));
        if (ring > 0) ringAt(paint, way, false);
        const float cover = std::clamp((1 - far) / edge + 0.5F, 0.0F, 1.0F);
        if (cover > 0) {
            const Point flat = rotated(way, -tilt);
            const float depth = std::sqrt(std::max(0.0F, 1 - far * far));
            const float band = 0.5F + 0.5F * std::sin(flat.y * bands * 3 +
                                                      1.4F * layeredNoise({flat.x * 1.5F, flat.y * 5}, 4, layer.seed));
            const float light = std::max(0.0F, -0.5F * way.x - 0.55F * way.y + 0.66F * depth);
            paint = mix(paint, colorAt(scale, band) * (0.12F + 1.05F * light), cover);
        }
        if (ring > 0) ringAt(paint, way, true);
    });
}

void aurora(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const float base = layer.number("base", 0.55F), height = layer.number("height", 0.45F),
                alpha = layer.number("alpha", 0.9F);
    const int curtains = layer.count("count", 3);
    for (int curtain = 0; curtain < curtains; ++curtain) {
        const auto seed = layer.seed + static_cast<std::uint32_t>(curtain) * 31;
        const float shift = 0.1F * static_cast<float>(curtain);
        raster.each([&](Paint& paint, Point at) {
            const float foot = base - shift + 0.16F * layeredNoise({at.x * 1.8F, at.y * 0.6F + 3}, 3, seed);
            const float up = (foot - at.y) / height;
            if (up < -0.12F || up > 1.2F) return;
            const float streak = 0.55F + 0.6F * layeredNoise({at.x * 26 + up * 1.5F, up * 0.7F}, 3, seed + 5);
            const float patch = smooth(-0.25F, 0.35F, layeredNoise({at.x * 2.6F, 1}, 2, seed + 9));
            const float fade = smooth(-0.12F, 0.05F, up) * std::exp(-2.6F * std::max(up, 0.0F));
            const float light = std::max(0.0F, streak * patch * fade * alpha);
            paint = paint + colorAt(scale, up * 1.3F) * light;
        });
    }
}

void rainbow(Raster& raster, const Layer& layer) {
    static const std::vector<Paint> colors = {Paint::fromHex("#B57BE8"), Paint::fromHex("#5C8DF0"),
                                              Paint::fromHex("#4FC98A"), Paint::fromHex("#F6E05E"),
                                              Paint::fromHex("#F7A64B"), Paint::fromHex("#EF6A6A")};
    const Point center = layer.point("center", {0.5F, 0.9F});
    const float radius = layer.number("radius", 0.6F), width = layer.number("width", 0.14F),
                alpha = layer.number("alpha", 0.55F);
    raster.each([&](Paint& paint, Point at) {
        const float share = (length(at - center) - radius) / width;
        if (share > 0 && share < 1) {
            paint = mix(paint, colorAt(colors, share), alpha * smooth(0, 0.2F, share) * smooth(1, 0.8F, share));
        }
    });
}

}  // namespace

void addSkyLayers(LayerKinds& kinds) {
    kinds.insert({{"stars", stars},
                  {"galaxy", galaxy},
                  {"sun", sun},
                  {"moon", moon},
                  {"planet", planet},
                  {"aurora", aurora},
                  {"rainbow", rainbow}});
}

}  // namespace dayward::generator
