// The gallery's backgrounds: soft gradients with simple patterns.
#pragma once

#include <map>
#include <string>

#include "platform/Image.h"

namespace dayward {

/// By file name, 640 by 640 pixels. The same on every run.
std::map<std::string, Image> drawBackgrounds();

}  // namespace dayward
