#include "intervals/XELDateTime.h"

#include "platform/Environment.h"

namespace dayward {

namespace {

struct ImplCalendar {
    explicit ImplCalendar(Environment& environment) : calendar(*environment.calendar()) {}
    Calendar calendar;
};

Date withMinutes(DateComponents components, std::int64_t minutes, Date otherwise) {
    components.hour = minutes / 60;
    components.minute = minutes % 60;
    components.second = 0;
    return implCalendar().dateFromComponents(components).value_or(otherwise);
}

}  // namespace

const Calendar& implCalendar() { return Environment::current().shared<ImplCalendar>().calendar; }

std::int64_t timeAsMinutes(Date date) {
    const Calendar::Fields fields = implCalendar().fields(date);
    return fields.hour * 60 + fields.minute;
}

Date dateWithTimesAsMinutes(Date date, std::int64_t minutes) {
    constexpr auto kYearMonthDay = CalendarUnit::year | CalendarUnit::month | CalendarUnit::day;
    return withMinutes(implCalendar().components(kYearMonthDay, date), minutes, date);
}

Date dateWithTimeAsMinutes(std::int64_t minutes) { return withMinutes({}, minutes, Date()); }

}  // namespace dayward
