// Colours in words, for those who hear them.
#pragma once

#include <string>

#include "platform/Color.h"

namespace dayward {

/// "Navy" for a base colour, else its parts: "Red 33%, green 0%, blue 100%"; localised.
std::string nameOfColor(const Color& color);

}  // namespace dayward
