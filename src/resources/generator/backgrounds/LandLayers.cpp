// Country, water and towns.
#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

/// Ranges one before the other, from far to near: mountains when rough, hills and dunes when not.
void ridges(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const int count = layer.count("count", 4);
    const float top = layer.number("top", 0.45F), bottom = layer.number("bottom", 0.9F),
                height = layer.number("height", 0.2F);
    const float rough = layer.number("rough", 1), mist = layer.number("mist", 0.5F), snow = layer.number("snow", 0);
    const float width = layer.number("scale", 2.2F), texture = layer.number("texture", 0.12F);
    const Paint mistColor = layer.color("mistColor", "#FFFFFF"), snowColor = layer.color("snowColor", "#FAFCFF");
    for (int range = 0; range < count; ++range) {
        const float near = count > 1 ? static_cast<float>(range) / static_cast<float>(count - 1) : 1;
        const auto seed = layer.seed + static_cast<std::uint32_t>(range) * 101;
        const float level = mix(top, bottom, near), size = mix(width, width * 0.75F, near);
        const Paint color = colorAt(scale, near);
        for (int column = 0; column < raster.size(); ++column) {
            const float x = raster.center(column, 0).x;
            const float rolling = layeredNoise({x * size, 4.7F * near}, 2, seed);
            const float jagged = ridgedNoise({x * size, 9.1F * near}, 6, seed + 7) - 0.72F;
            const float crest = level - height * (rough > 0 ? mix(rolling, jagged * 2.2F, rough) : rolling);
            for (int row = std::max(0, static_cast<int>(crest * static_cast<float>(raster.size())) - 1);
                 row < raster.size(); ++row) {
                Paint& paint = raster.pixel(column, row);
                const Point at = raster.center(column, row);
                const float cover = std::clamp((at.y - crest) * static_cast<float>(raster.size()) + 0.5F, 0.0F, 1.0F);
                if (cover <= 0) continue;
                const float down = at.y - crest;
                const float slant =
                    rough > 0 ? ridgedNoise({at.x * size * 2.6F + down * 2, at.y * size * 1.6F}, 5, seed + 13) - 0.62F
                              : 0.5F * layeredNoise({at.x * size * 2 + down * 4, down * 9}, 3, seed + 13);
                Paint ground = color * (1 + texture * 3 * slant);
                if (snow > 0) {
                    const float line = snow * height * (0.55F + 1.5F * slant);
                    ground = mix(ground, snowColor * (0.9F + 0.45F * slant),
                                 smooth(line, line - 0.02F, down) * (1 - 0.5F * near));
                }
                ground = mix(ground, mistColor, mist * (1 - 0.75F * near) * smooth(0, height * 1.6F, down));
                paint = mix(paint, ground, cover);
            }
        }
    }
}

/// Firs along a line, each a little different.
void firs(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const int count = layer.count("count", 50);
    const float base = layer.number("base", 0.85F), roll = layer.number("roll", 0.04F);
    const Point size = layer.point("size", {0.08F, 0.18F});
    const Paint color = layer.color("color", "#14251F"), snow = layer.color("snowColor", "#FFFFFF");
    const float frost = layer.number("snow", 0);
    const auto groundAt = [&](float x) { return base + roll * noise({x * 2, 0.4F}, layer.seed); };
    for (int index = 0; index < count; ++index) {
        const float x = (static_cast<float>(index) + random.share()) / static_cast<float>(count);
        const float height = mix(size.x, size.y, random.share()), foot = groundAt(x) + 0.01F;
        const auto own = static_cast<std::uint32_t>(index) + layer.seed;
        raster.each({{x - height * 0.3F, foot - height}, {x + height * 0.3F, foot}}, [&](Paint& paint, Point at) {
            const float up = (foot - at.y) / height;
            const float side = (at.x - x) / height;
            const float tier = up * 7 + 0.35F * noise({at.x * 90, up * 5}, own);
            const float reach = 0.24F * (1 - up) * (1.15F - 0.55F * (tier - std::floor(tier))) + 0.006F;
            const float cover = std::clamp((reach - std::abs(side)) * height / raster.step() + 0.5F, 0.0F, 1.0F);
            const float white =
                frost * smooth(0.35F, 0.0F, tier - std::floor(tier)) * smooth(-0.3F, 0.6F, noise(at * 70, own));
            paint = mix(paint, mix(color, snow, white), cover);
        });
    }
    raster.each({{0, base - roll}, {1, 1}}, [&](Paint& paint, Point at) {
        paint = mix(paint, color, std::clamp((at.y - groundAt(at.x)) / raster.step() + 0.5F, 0.0F, 1.0F));
    });
}

/// Still water below the horizon, which shows what stands above it.
void reflection(Raster& raster, const Layer& layer) {
    const float horizon = layer.number("horizon", 0.6F), ripple = layer.number("ripple", 1),
                alpha = layer.number("alpha", 0.35F);
    const Paint tint = layer.color("color", "#24506E");
    const Raster above = raster;
    raster.each({{0, horizon}, {1, 1}}, [&](Paint& paint, Point at) {
        const float down = at.y - horizon;
        if (down < 0) return;
        const float close = 0.15F + down * 3;
        const float wave = layeredNoise({at.x * 10 / close, down * 120 / close}, 3, layer.seed);
        const Point from{at.x + 0.012F * ripple * close * wave,
                         horizon - down * 0.85F + 0.055F * ripple * close * wave};
        paint = mix(above.at(from), tint, std::min(1.0F, alpha * (0.75F + 0.8F * down)));
        paint = paint * (1 + 0.1F * ripple * wave);
    });
}

/// Waves of cut paper, each throwing a shadow on the one behind.
void waves(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const int count = layer.count("count", 6);
    const float top = layer.number("top", 0.35F), height = layer.number("height", 0.06F),
                turns = layer.number("turns", 1.4F);
    const float shadow = layer.number("shadow", 0.28F), crest = layer.number("crest", 0.12F),
                alpha = layer.number("alpha", 1);
    Random random(layer.seed);
    for (int index = 0; index < count; ++index) {
        const float near = count > 1 ? static_cast<float>(index) / static_cast<float>(count - 1) : 0;
        const float level = mix(top, 1.02F, static_cast<float>(index) / static_cast<float>(count));
        const float phase = random.share() * 6.2832F, other = random.share() * 6.2832F;
        const Paint color = colorAt(scale, near);
        raster.each({{0, level - height * 2.2F - 0.05F}, {1, 1}}, [&](Paint& paint, Point at) {
            const float edge = level + height * (std::sin(at.x * turns * 6.2832F + phase) +
                                                 0.45F * std::sin(at.x * turns * 11.3F + other));
            const float down = at.y - edge;
            if (down < 0) paint = paint * (1 - shadow * smooth(-0.045F, 0, down));
            const float cover = std::clamp(down / raster.step() + 0.5F, 0.0F, 1.0F);
            paint = mix(paint, color + Paint{1, 1, 1} * (crest * smooth(0.05F, 0, down)), cover * alpha);
        });
    }
}

/// Houses against the sky, some windows lit.
void town(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const float base = layer.number("base", 1), lit = layer.number("lit", 0.35F);
    const Point height = layer.point("height", {0.15F, 0.45F}), width = layer.point("width", {0.05F, 0.11F});
    const Paint color = layer.color("color", "#1B2340"), light = layer.color("light", "#FFD98A");
    const float pane = layer.number("pane", 0.011F), fade = layer.number("fade", 0.2F);
    for (float left = -0.02F; left < 1;) {
        const float right = left + mix(width.x, width.y, random.share());
        const float roof = base - mix(height.x, height.y, std::pow(random.share(), 1.5F));
        const bool hasMast = random.share() < 0.2F;
        const auto own = static_cast<std::uint32_t>(random.below(1 << 20));
        raster.each({{left, roof}, {right, base}}, [&](Paint& paint, Point at) {
            const Point place{(at.x - left) / pane, (at.y - roof) / (pane * 1.5F)};
            const Point within{place.x - std::floor(place.x), place.y - std::floor(place.y)};
            const bool isWindow = within.x > 0.3F && within.x < 0.8F && within.y > 0.3F && within.y < 0.75F &&
                                  place.y > 1 && at.x > left + pane * 0.8F && at.x < right - pane * 0.8F;
            const float chance = hashed(static_cast<int>(place.x), static_cast<int>(place.y), own);
            const Paint wall = color * (1 + fade * smooth(roof, base, at.y));
            paint = isWindow && chance < lit ? mix(wall, light, 0.55F + 0.45F * chance / lit) : wall;
        });
        const float middle = (left + right) / 2;
        if (hasMast)
            raster.each({{middle - 0.002F, roof - 0.05F}, {middle + 0.001F, roof}},
                        [&](Paint& paint, Point) { paint = color; });
        left = right + 0.004F * random.share();
    }
}

/// Blades of grass from the lower edge, with flowers between them if asked for.
void grass(Raster& raster, const Layer& layer) {
    Random random(layer.seed);
    const auto scale = layer.colors();
    const float base = layer.number("base", 1.02F);
    const Point height = layer.point("height", {0.1F, 0.3F});
    const int count = layer.count("count", 700);
    for (int index = 0; index < count; ++index) {
        const float x = random.share() * 1.1F - 0.05F, tall = mix(height.x, height.y, random.share());
        const float lean = (random.share() - 0.45F) * tall * 0.8F, foot = base - 0.04F * random.share();
        const Paint color = colorAt(scale, random.share());
        raster.each({{x - std::abs(lean) - 0.01F, foot - tall}, {x + std::abs(lean) + 0.01F, foot}},
                    [&](Paint& paint, Point at) {
                        const float up = (foot - at.y) / tall;
                        const float width = 0.0055F * (1 - up) + 0.0006F;
                        const float away = std::abs(at.x - x - lean * up * up);
                        const float cover = std::clamp((width - away) / raster.step() + 0.5F, 0.0F, 1.0F);
                        paint = mix(paint, color * (0.6F + 0.5F * up), cover);
                    });
    }
}

}  // namespace

void addLandLayers(LayerKinds& kinds) {
    kinds.insert({{"ridges", ridges},
                  {"firs", firs},
                  {"reflection", reflection},
                  {"waves", waves},
                  {"town", town},
                  {"grass", grass}});
}

}  // namespace dayward::generator
