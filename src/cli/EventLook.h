// Icons and backgrounds as a user names them: a picture of the program's own, a file, a colour.
#pragma once

#include <memory>
#include <string>

#include "Classes/Category/EventBackgroundPicture.h"
#include "Classes/Category/EventBackgroundTemplate.h"
#include "Classes/Category/EventIconPicture.h"
#include "platform/Result.h"

namespace dayward {

/// The name of an icon of the catalogue, or a PNG or JPEG file.
Result<std::shared_ptr<EventIconPicture>> iconNamed(const std::string& text);
/// "#RRGGBB", the name of a background of the catalogue, or a PNG or JPEG file.
Result<std::shared_ptr<EventBackgroundPicture>> backgroundNamed(const std::string& text);
/// The same as a category's template; "random" and "random-color" are the two random ones.
Result<std::shared_ptr<EventBackgroundTemplate>> backgroundTemplateNamed(const std::string& text);

}  // namespace dayward
