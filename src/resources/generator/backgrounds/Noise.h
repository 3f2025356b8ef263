// Smooth chance over the plane: gradient noise and sums of it. Pure functions.
#pragma once

#include <cstdint>

#include "resources/generator/backgrounds/Raster.h"

namespace dayward::generator {

/// Repeatable chance from 0 to 1 for whole coordinates.
float hashed(int x, int y, std::uint32_t seed);
/// Between about -1 and 1, 0 in the mean; features are about one unit wide.
float noise(Point at, std::uint32_t seed);
/// `octaves` noises, each half as large and half as strong as the one before; between about -1 and 1.
float layeredNoise(Point at, int octaves, std::uint32_t seed);
/// The same folded at 0, which makes sharp crests; from 0 to about 1.
float ridgedNoise(Point at, int octaves, std::uint32_t seed);

/// The nearest two of points strewn over the plane, one in each unit square.
struct Cell {
    float nearest, second;  ///< distances
    float chance;           ///< from 0 to 1, the nearest point's own
};
Cell cellAt(Point at, float jitter, std::uint32_t seed);

}  // namespace dayward::generator
