// The event list as sections of events, as the application groups and orders it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace dayward {

class HHEvent;

struct ListSection {
    std::string title;  ///< empty in the orders that have one section
    std::optional<std::int64_t> type;  ///< only in the order by date
    std::optional<std::int64_t> year, month;
    std::vector<std::shared_ptr<HHEvent>> events;
};

struct ListRequest {
    std::optional<std::int64_t> sortType;  ///< nothing: the user's setting
    std::optional<std::string> search;     ///< nothing: all events
};

std::vector<ListSection> listSections(const ListRequest& request);

}  // namespace dayward
