// The list by date: what is missed, today, then month by month for a year, year by year, and what is over.
#pragma once

#include "Classes/Interface/List/EventTableManager.h"

namespace dayward {

/// Where an event stands among the rows of a section, as of a moment: running events first, then those
/// ahead, the soonest first, then past ones, the most recent first; equals by name.
struct EventDateRank {
    enum class Group : std::uint8_t { running, ahead, past };

    Group group = Group::running;
    double seconds = 0;  ///< whole seconds from now; away from now for past ones

    EventDateRank(const HHEvent::DatesCalculation& dates, Date now);
    auto operator<=>(const EventDateRank&) const = default;

    /// Whether event a stands before event b at the moment.
    static bool isOrderedBefore(const HHEvent& a, const HHEvent& b, Date now);
};

class EventByDateTableManager final : public EventTableManager {
public:
    static constexpr double kHeaderHeight = 20.0;

    using EventTableManager::EventTableManager;

    [[nodiscard]] double heightForHeaderInSection(std::size_t) const override { return kHeaderHeight; }
    /// Two blanks and the section's text.
    [[nodiscard]] std::optional<std::string> titleForHeaderInSection(std::size_t section) const override;

protected:
    [[nodiscard]] EventSection sectionForObject(const EventRow& event) const override;
    [[nodiscard]] SectionComparator sectionsSortComparator() const override;
    [[nodiscard]] RowComparator objectsSortComparatorForSection(const EventSection& section) const override;
    [[nodiscard]] std::vector<Group> arranged(std::vector<EventRow> events) const override;
    [[nodiscard]] std::int64_t orderStamp() const override;
};

}  // namespace dayward
