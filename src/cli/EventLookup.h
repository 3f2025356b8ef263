// Events as a user names them.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/Result.h"

namespace dayward {

class HHEvent;

/// The event with that identifier, or the only one of that name.
Result<std::shared_ptr<HHEvent>> eventNamed(const std::string& text);
/// All of them, or the first failure.
Result<std::vector<std::shared_ptr<HHEvent>>> eventsNamed(const std::vector<std::string>& texts);

}  // namespace dayward
