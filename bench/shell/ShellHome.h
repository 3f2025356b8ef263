// Homes for the benches of the application: events as users have them, with pictures of the galleries, and
// the first launch behind them.
#pragma once

#include <memory>
#include <string>

#include "platform/Environment.h"
#include "platform/linux/AsioQueues.h"

namespace dayward::bench {

/// The real services over that home, with the resources as they are installed.
Environment::Services shellServices(const std::string& home, std::shared_ptr<Queues> queues = nullptr);

/// Makes the home, the first launch done, with `count` events: the default ones, and above their number
/// others spread over twelve years, half of them yearly. Each counts down in days, hours, minutes and seconds.
void makeShellHome(const std::string& home, int count);

}  // namespace dayward::bench
