// Layers that look like a material.
#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

void grain(Raster& raster, const Layer& layer) {
    const float amount = layer.number("amount", 0.03F);
    Random random(layer.seed);
    raster.each([&](Paint& paint, Point) {
        const float shift = (random.share() + random.share() - 1) * amount;
        paint = paint + Paint{shift, shift, shift};
    });
}

/// Fibres and soft spots of hand-made paper.
void paper(Raster& raster, const Layer& layer) {
    const float amount = layer.number("amount", 0.05F);
    raster.each([&](Paint& paint, Point at) {
        const float spots = layeredNoise(at * 6, 4, layer.seed);
        const Point turned = rotated(at, 0.6F + noise(at * 3, layer.seed + 5));
        const float fibres = noise({turned.x * 160, turned.y * 24}, layer.seed + 11);
        const float tooth = noise(at * 220, layer.seed + 17);
        paint = paint * (1 + amount * (0.8F * spots + 0.35F * fibres + 0.45F * tooth));
    });
}

void linen(Raster& raster, const Layer& layer) {
    const float threads = layer.number("count", 130), amount = layer.number("amount", 0.1F);
    raster.each([&](Paint& paint, Point at) {
        const auto thread = [&](float across, float along, std::uint32_t seed) {
            const float place = across * threads + 0.25F * noise({along * 9, across * threads * 0.2F}, seed);
            const float own = noise({std::floor(place) * 3.7F, along * 7}, seed + 3);
            return 0.5F + 0.5F * std::cos(place * 6.2832F) + 0.5F * own;
        };
        const float woven = thread(at.x, at.y, layer.seed) + thread(at.y, at.x, layer.seed + 30) - 1;
        paint = paint * (1 + amount * 0.7F * woven);
    });
}

void wood(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const int planks = layer.count("count", 5);
    raster.each([&](Paint& paint, Point at) {
        const float place = at.y * static_cast<float>(planks);
        const int plank = static_cast<int>(place);
        const float across = place - static_cast<float>(plank);
        const auto seed = layer.seed + static_cast<std::uint32_t>(plank) * 13;
        const float own = hashed(plank, 1, layer.seed);
        const float rings = layeredNoise({at.x * 1.6F + own * 7, place * 2.2F}, 2, seed);
        const float lines = 0.5F + 0.5F * std::sin((across * 3 + rings * 4.5F) * 6.2832F);
        const float pores = noise({at.x * 14, place * 70}, seed + 3);
        const float share = 0.2F + 0.35F * own + 0.22F * lines + 0.14F * pores;
        const float gap = smooth(0, 0.035F, std::min(across, 1 - across));
        paint = colorAt(scale, share) * (0.45F + 0.55F * gap);
    });
}

/// Folds the ground into triangles, each of one colour.
void facets(Raster& raster, const Layer& layer) {
    const int cells = layer.count("count", 9);
    const float shade = layer.number("shade", 0.12F), jitter = layer.number("jitter", 0.7F);
    const auto side = static_cast<float>(cells);
    const auto corner = [&](int x, int y) {
        return Point{(static_cast<float>(x) + jitter * (hashed(x, y, layer.seed) - 0.5F)) / side,
                     (static_cast<float>(y) + jitter * (hashed(x, y, layer.seed + 1) - 0.5F)) / side};
    };
    const Raster ground = raster;
    const auto fill = [&](Point a, Point b, Point c, float chance) {  // corners clockwise
        const Point middle = (a + b + c) * (1.0F / 3);
        const Paint color = ground.at(middle) * (1 + shade * (chance - 0.5F) * 2);
        const Box box{{std::min({a.x, b.x, c.x}), std::min({a.y, b.y, c.y})},
                      {std::max({a.x, b.x, c.x}), std::max({a.y, b.y, c.y})}};
        const auto edge = [](Point from, Point to, Point at) {
            const Point along = to - from, way = at - from;
            return (along.x * way.y - along.y * way.x) / (length(along) + 1e-6F);
        };
        raster.each(box, [&](Paint& paint, Point at) {
            const float inside = std::min({edge(a, b, at), edge(b, c, at), edge(c, a, at)});
            const float cover = std::clamp(inside / raster.step() + 1.0F, 0.0F, 1.0F);
            paint = mix(paint, color, cover);
        });
    };
    for (int y = -1; y <= cells; ++y) {
        for (int x = -1; x <= cells; ++x) {
            const Point a = corner(x, y), b = corner(x + 1, y), c = corner(x + 1, y + 1), d = corner(x, y + 1);
            const float first = hashed(x, y, layer.seed + 2), second = hashed(x, y, layer.seed + 3);
            if (hashed(x, y, layer.seed + 4) < 0.5F) {
                fill(a, b, c, first), fill(a, c, d, second);
            } else {
                fill(a, b, d, first), fill(b, c, d, second);
            }
        }
    }
}

/// Panes of glass or stones: cells of the scale's colours with a seam between them.
void cells(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const Paint seam = layer.color("seam", "#202028");
    const float size = layer.number("scale", 8), width = layer.number("width", 0.05F);
    const float jitter = layer.number("jitter", 0.9F), alpha = layer.number("alpha", 1);
    raster.each([&](Paint& paint, Point at) {
        const Cell cell = cellAt(at * size, jitter, layer.seed);
        const float lit = 1.06F - 0.25F * cell.nearest;
        const Paint color =
            mix(seam, colorAt(scale, cell.chance) * lit, smooth(width * 0.4F, width, cell.second - cell.nearest));
        paint = mix(paint, color, alpha);
    });
}

/// The net of light on the floor of clear water.
void caustics(Raster& raster, const Layer& layer) {
    const Paint light = layer.color("color", "#FFFFFF");
    const float size = layer.number("scale", 6), alpha = layer.number("alpha", 0.5F);
    raster.each([&](Paint& paint, Point at) {
        const Point bend{noise(at * 4, layer.seed + 8), noise(at * 4, layer.seed + 9)};
        const Point place = at + bend * 0.06F;
        const Cell wide = cellAt(place * size, 1, layer.seed), fine = cellAt(place * size * 1.7F, 1, layer.seed + 50);
        const float net =
            std::exp(-(wide.second - wide.nearest) * 7) + 0.5F * std::exp(-(fine.second - fine.nearest) * 7);
        paint = mix(paint, light, std::min(1.0F, net * alpha));
    });
}

}  // namespace

void addSurfaceLayers(LayerKinds& kinds) {
    kinds.insert({{"grain", grain},
                  {"paper", paper},
                  {"linen", linen},
                  {"wood", wood},
                  {"facets", facets},
                  {"cells", cells},
                  {"caustics", caustics}});
}

}  // namespace dayward::generator
