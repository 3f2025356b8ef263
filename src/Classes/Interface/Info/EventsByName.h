// The events of the store as a list from which some are chosen.
#pragma once

#include <memory>
#include <string>
#include <vector>

namespace dayward {

class HHEvent;

/// The name, "No name" without one.
std::string listedName(const HHEvent& event);
/// All events in the order of those names; equal ones always in the same order.
std::vector<std::shared_ptr<HHEvent>> eventsByName();

}  // namespace dayward
