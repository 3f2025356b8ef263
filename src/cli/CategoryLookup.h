// Categories as a user names them.
#pragma once

#include <memory>
#include <string>

#include "platform/Result.h"

namespace dayward {

class EventCategory;

/// The category with that key, or the only one of that name.
Result<std::shared_ptr<EventCategory>> categoryNamed(const std::string& text);

}  // namespace dayward
