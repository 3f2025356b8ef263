// Layers that give the whole ground its colour.
#include "resources/generator/backgrounds/Layers.h"
#include "resources/generator/backgrounds/Noise.h"

namespace dayward::generator {
namespace {

void gradient(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const float angle = layer.angle("angle", 90);
    const Point along{std::cos(angle), std::sin(angle)};
    const float span = std::abs(along.x) + std::abs(along.y);
    raster.each([&](Paint& paint, Point at) {
        const float share = ((at.x - 0.5F) * along.x + (at.y - 0.5F) * along.y) / span + 0.5F;
        paint = colorAt(scale, share);
    });
}

/// A round light or shade that fades outward.
void radial(Raster& raster, const Layer& layer) {
    const Point center = layer.point("center", {0.5F, 0.5F});
    const float radius = layer.number("radius", 0.7F), curve = layer.number("curve", 2);
    const float alpha = layer.number("alpha", 1);
    const Paint color = layer.color("color", "#FFFFFF");
    raster.each(Box::around(center, radius), [&](Paint& paint, Point at) {
        const float share = 1 - length(at - center) / radius;
        if (share > 0) paint = mix(paint, color, alpha * std::pow(share, curve));
    });
}

/// Colours that flow into each other from points strewn over the plane.
void mesh(Raster& raster, const Layer& layer) {
    const auto colors = layer.colors();
    Random random(layer.seed);
    struct Source {
        Point at;
        Paint color;
    };
    std::vector<Source> sources;
    const int count = layer.count("count", static_cast<int>(colors.size()));
    for (int index = 0; index < count; ++index) {
        const float x = random.share();
        sources.push_back({{x, random.share()}, colors[static_cast<std::size_t>(index) % colors.size()]});
    }
    const float warp = layer.number("warp", 0.25F), sharpness = layer.number("sharpness", 1.3F);
    raster.each([&](Paint& paint, Point at) {
        const Point bent = at + Point{noise(at * 2.2F, layer.seed), noise(at * 2.2F, layer.seed + 9)} * warp;
        Paint sum;
        float weights = 0;
        for (const Source& source : sources) {
            const Point way = bent - source.at;
            const float weight = std::pow(way.x * way.x + way.y * way.y + 0.004F, -sharpness);
            sum = sum + source.color * weight;
            weights += weight;
        }
        paint = sum * (1 / weights);
    });
}

/// A scale of colours laid along noise that is bent by noise.
void marble(Raster& raster, const Layer& layer) {
    const auto scale = layer.colors();
    const float size = layer.number("scale", 2), warp = layer.number("warp", 1),
                contrast = layer.number("contrast", 1.2F);
    const float bands = layer.number("bands", 0);
    raster.each([&](Paint& paint, Point at) {
        const Point place = at * size;
        const Point bend{layeredNoise(place, 3, layer.seed),
                         layeredNoise(place + Point{5.2F, 1.3F}, 3, layer.seed + 20)};
        const float value = layeredNoise(place + bend * warp * 2, 4, layer.seed + 40);
        const float share = 0.5F + value * contrast * 0.9F;
        paint = colorAt(scale, bands > 0 ? 0.5F + 0.5F * std::sin(share * bands) : share);
    });
}

/// Clouds or mist; light falls from the upper left.
void clouds(Raster& raster, const Layer& layer) {
    const Paint light = layer.color("color", "#FFFFFF"), shade = layer.color("shade", "#C9D6E6");
    const float size = layer.number("scale", 3), alpha = layer.number("alpha", 0.95F);
    const float cover = layer.number("cover", 0.5F), softness = layer.number("soft", 0.35F);
    const Point stretch = layer.point("stretch", {1, 2}), band = layer.point("band", {-1, 2});
    const float fade = layer.number("fade", 0.2F);
    raster.each({{0, band.x - fade}, {1, band.y + fade}}, [&](Paint& paint, Point at) {
        const Point place{at.x * size * stretch.x, at.y * size * stretch.y};
        const float bend = 0.12F * noise(place * 1.5F, layer.seed + 77);
        const float value = layeredNoise(place + Point{bend, bend}, 6, layer.seed);
        const float limit = 0.5F - cover;
        const float within = smooth(band.x - fade, band.x, at.y) * (1 - smooth(band.y, band.y + fade, at.y));
        const float share = smooth(limit, limit + softness, value) * within;
        if (share <= 0) return;
        const float lower = layeredNoise(place + Point{bend + 0.1F, bend + 0.18F}, 4, layer.seed);
        paint = mix(paint, mix(shade, light, smooth(-0.12F, 0.2F, value - lower + 0.05F)), share * alpha);
    });
}

/// Darkens, or lightens with a negative amount, toward the corners.
void vignette(Raster& raster, const Layer& layer) {
    const float amount = layer.number("amount", 0.35F);
    raster.each([&](Paint& paint, Point at) {
        const float far = length(at - Point{0.5F, 0.5F}) / 0.7072F;
        paint = paint * (1 - amount * smooth(0.35F, 1.15F, far));
    });
}

}  // namespace

void addFieldLayers(LayerKinds& kinds) {
    kinds.insert({{"gradient", gradient},
                  {"radial", radial},
                  {"mesh", mesh},
                  {"marble", marble},
                  {"clouds", clouds},
                  {"vignette", vignette}});
}

}  // namespace dayward::generator
