#include "Classes/Interface/General/NextDates.h"

#include "Classes/Other/Date/EventDateText.h"
#include "platform/Environment.h"
#include "platform/Strings.h"
#include "recurrence/XELEventMath.h"

namespace dayward {

std::vector<Date> nextDates(const std::optional<std::string>& rrule, const EventStart& start) {
    const XELEventMath math(rrule, start.date, start.times);
    std::vector<Date> dates;
    std::optional<Date> next = Environment::current().now();
    while (dates.size() < kNextDatesCount && (next = math.dateAfterDate(*next))) dates.push_back(*next);
    return dates;
}

std::optional<TableSection> nextDatesSection(const std::optional<std::string>& rrule, const EventStart& start) {
    TableSection section{"next", localized("Next dates"), {}, {}};
    for (const Date date : nextDates(rrule, start)) {
        section.rows.push_back(
            textRow("next" + std::to_string(section.rows.size()), EventDateText::textFromDate(date, EventDateTextAll)));
    }
    return section.rows.empty() ? std::nullopt : std::optional(std::move(section));
}

}  // namespace dayward
