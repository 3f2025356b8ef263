// The kinds of layers that a background is painted of, one upon the other. A layer is a JSON object
// with its "kind" and its settings, which the functions below read; what is left out has a default.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "resources/generator/Catalogue.h"
#include "resources/generator/Random.h"
#include "resources/generator/backgrounds/Raster.h"

namespace dayward::generator {

/// A layer's settings. Lengths are shares of the picture's side, angles degrees clockwise from the
/// right, colours "#RRGGBB".
class Layer {
public:
    Layer(const Json& settings, std::uint32_t seedOfLayer) : seed(seedOfLayer), settings_(settings) {}

    const std::uint32_t seed;

    [[nodiscard]] float number(const char* key, float standard) const { return settings_.value(key, standard); }
    [[nodiscard]] int count(const char* key, int standard) const { return settings_.value(key, standard); }
    [[nodiscard]] float angle(const char* key, float degrees) const;
    [[nodiscard]] std::string text(const char* key, const char* standard) const;
    [[nodiscard]] Point point(const char* key, Point standard) const;  ///< a pair; also a range
    [[nodiscard]] Paint color(const char* key, const char* standard) const;
    [[nodiscard]] std::vector<Paint> colors() const;  ///< of "colors", or the one "color"; white without

private:
    const Json& settings_;
};

using LayerKind = std::function<void(Raster&, const Layer&)>;
using LayerKinds = std::map<std::string, LayerKind, std::less<>>;

void addFieldLayers(LayerKinds& kinds);    ///< gradients, meshes, marble, clouds: the whole ground
void addSurfaceLayers(LayerKinds& kinds);  ///< paper, wood, linen, facets, cells, grain
void addPatternLayers(LayerKinds& kinds);  ///< stripes, tiles, bursts, contours
void addSkyLayers(LayerKinds& kinds);      ///< stars, sun, moon, planets, aurora, rainbow
void addLandLayers(LayerKinds& kinds);     ///< ridges, trees, water, towns, grass
void addLightLayers(LayerKinds& kinds);    ///< bokeh, rays, garlands, fireworks, rain
void addShapeLayers(LayerKinds& kinds);    ///< strewn shapes, balloons, streams

}  // namespace dayward::generator
