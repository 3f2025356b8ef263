// The list by date: what is missed, today, then month by month for a year, year by year, and what is over.
#pragma once

#include "Classes/Interface/List/EventTableManager.h"

namespace dayward {

/// Where an event stands among the rows of a section, as of a moment: running events first, then those
/// ahead, the soonest first, then past ones, the most recent first; equals by name.
class EventDateRank {
public:
    EventDateRank(const HHEvent& event, Date now);
    [[nodiscard]] bool isOrderedBefore(const EventDateRank& other) const;

private:
    enum class Group { running, ahead, past };

    Group group_;
    double seconds_;  ///< whole seconds from now; away from now for past ones
    std::string name_;
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
    [[nodiscard]] std::vector<EventRow> sortObjects(std::vector<EventRow> events,
                                                    const EventSection& forSection) const override;
    [[nodiscard]] std::int64_t orderStamp() const override;
};

}  // namespace dayward
