// Outlines of small figures for strewing. Pure functions.
#pragma once

#include <string>

#include "resources/generator/backgrounds/Raster.h"

namespace dayward::generator {

/// About the distance from a place to the figure's edge, negative inside; the figure fills the circle
/// of radius 1 around 0.
using Figure = float (*)(Point at);

/// Throws std::runtime_error where there is no such figure.
Figure figureNamed(const std::string& name);

}  // namespace dayward::generator
