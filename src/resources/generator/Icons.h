// The gallery's icons and the previews of random backgrounds.
#pragma once

#include <map>
#include <string>

#include "platform/Image.h"

namespace dayward {

/// By file name, 256 by 256 pixels with transparency.
std::map<std::string, Image> drawIcons();

}  // namespace dayward
