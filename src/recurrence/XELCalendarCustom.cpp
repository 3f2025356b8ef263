#include "recurrence/XELCalendarCustom.h"

#include <algorithm>
#include <utility>

#include "platform/Environment.h"
#include "platform/KeyedArchiver.h"
#include "platform/KeyedUnarchiver.h"

namespace dayward {

namespace {

bool isGiven(const std::optional<XELCalendarBase::Numbers>& numbers) { return numbers && !numbers->empty(); }

bool passes(const std::optional<XELCalendarBase::Numbers>& numbers, std::int64_t value) {
    return !isGiven(numbers) || std::ranges::find(*numbers, value) != numbers->end();
}

}  // namespace

void XELCalendarCustom::setLists(Lists lists) {
    lists_ = std::move(lists);
    fieldsChanged();
}

CalendarUnit XELCalendarCustom::periodUnit() const {
    if (!isGiven(lists_.dayOfMonth)) return CalendarUnit::day;
    if (!isGiven(lists_.months)) return CalendarUnit::month;
    if (!isGiven(lists_.years)) return CalendarUnit::year;
    return CalendarUnit{};
}

bool XELCalendarCustom::repeatDate(const XELRepeatDate&, Date testDate) const {
    const Calendar::Fields fields = Environment::current().calendar()->fields(testDate);
    return passes(lists_.years, fields.year) && passes(lists_.months, fields.month) &&
           passes(lists_.dayOfMonth, fields.day) &&
           passes(lists_.dayOfWeek, Calendar::weekdayOf(fields.year, fields.month, fields.day)) &&
           passes(lists_.dayOfWeekInMonth, (fields.day - 1) / 7 + 1);
}

void XELCalendarCustom::encodeWithCoder(KeyedArchiver& coder) const {
    XELCalendarBase::encodeWithCoder(coder);
    encodeNumbers(coder, lists_.years, kYearsKey);
    encodeNumbers(coder, lists_.months, kMonthsKey);
    encodeNumbers(coder, lists_.dayOfMonth, kDayOfMonthKey);
    encodeNumbers(coder, lists_.dayOfWeek, kDayOfWeekKey);
    encodeNumbers(coder, lists_.dayOfWeekInMonth, kDayOfWeekInMonthKey);
}

std::shared_ptr<Archivable> XELCalendarCustom::read(KeyedUnarchiver& coder) {
    auto calendar = std::make_shared<XELCalendarCustom>();
    if (!calendar->decode(coder)) return nullptr;
    calendar->lists_.years = decodeNumbers(coder, kYearsKey);
    calendar->lists_.months = decodeNumbers(coder, kMonthsKey);
    calendar->lists_.dayOfMonth = decodeNumbers(coder, kDayOfMonthKey);
    calendar->lists_.dayOfWeek = decodeNumbers(coder, kDayOfWeekKey);
    calendar->lists_.dayOfWeekInMonth = decodeNumbers(coder, kDayOfWeekInMonthKey);
    return calendar;
}

}  // namespace dayward
