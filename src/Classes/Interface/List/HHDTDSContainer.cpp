#include "Classes/Interface/List/HHDTDSContainer.h"

#include "Classes/Other/Date/EventDateText.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr std::int64_t kMonthsAhead = 12;

std::string titleAhead(const HHDTDSContainer& section) {
    const std::string year = std::to_string(section.year.value_or(0));
    if (!section.month) return year;
    const DateSymbols& symbols = DateSymbols::of(Environment::current().locale());
    return symbols.standaloneMonths.at(static_cast<std::size_t>(*section.month - 1)) + " " + year;
}

}  // namespace

std::size_t HHDTDSContainer::hash() const {
    const std::int64_t number = (static_cast<std::int64_t>(type) * 10000 + year.value_or(0)) * 100 + month.value_or(0);
    return static_cast<std::size_t>(number);
}

std::string HHDTDSContainer::text() const {
    switch (type) {
        case Type::noDate: return localized("Error");
        case Type::missed: return localized("Missed");
        case Type::today:
            return localized("Today") + " " +
                   EventDateText::textFromDate(Environment::current().now(), EventDateTextYear | EventDateTextMonth |
                                                                                 EventDateTextWeekday |
                                                                                 EventDateTextDay);
        case Type::ahead: return titleAhead(*this);
        case Type::passed: return localized("Passed");
    }
    return {};
}

HHDTDSContainer HHDTDSContainer::sectionOf(std::optional<Date> occurrence, bool isRunning, bool isMissed,
                                           const Moment& moment) {
    if (isRunning) return {.type = Type::today, .year = {}, .month = {}};
    if (!occurrence) return {.type = Type::noDate, .year = {}, .month = {}};
    if (isMissed) return {.type = Type::missed, .year = {}, .month = {}};
    if (*occurrence < moment.now) return {.type = Type::passed, .year = {}, .month = {}};
    const Calendar::Fields there = moment.calendar.fields(*occurrence);
    const Calendar::Fields& here = moment.today;
    if (there.year == here.year && there.month == here.month && there.day == here.day) {
        return {.type = Type::today, .year = {}, .month = {}};
    }
    const std::int64_t months = (there.year - here.year) * 12 + there.month - here.month;
    if (months < kMonthsAhead) return {.type = Type::ahead, .year = there.year, .month = there.month};
    return {.type = Type::ahead, .year = there.year, .month = {}};
}

bool HHDTDSContainer::isOrderedBefore(const HHDTDSContainer& a, const HHDTDSContainer& b) {
    if (a.type != b.type) return a.type < b.type;
    if (a.type != Type::ahead) return true;
    if (a.year.value_or(0) != b.year.value_or(0)) return a.year.value_or(0) < b.year.value_or(0);
    if (!a.month) return false;
    if (!b.month) return true;
    return *a.month < *b.month;
}

}  // namespace dayward
