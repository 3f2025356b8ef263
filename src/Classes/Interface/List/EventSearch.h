// The events that a search shows.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

namespace dayward {

class HHEvent;

/// The events with the text in their name or else in their note, letter case aside, in the given order.
/// An empty text selects nothing.
std::vector<std::shared_ptr<HHEvent>> eventsMatching(std::string_view text, std::vector<std::shared_ptr<HHEvent>> events);

}  // namespace dayward
