#include "recurrence/DateIcal.h"

#include <cmath>

#include "platform/Environment.h"

namespace dayward {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
    return value / divisor - (value % divisor < 0 ? 1 : 0);
}

}  // namespace

std::int64_t dayNumberOf(std::int64_t year, std::int64_t month, std::int64_t day) {
    year += floorDivide(month - 1, 12);
    month = month - 1 - floorDivide(month - 1, 12) * 12 + 1;
    // Years that begin in March put the leap day last.
    if (month <= 2) --year;
    const std::int64_t era = floorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * 146097 + dayOfEra - 719468;
}

std::int64_t secondsOf(const IcalTime& time) {
    if (time.isNull()) return 0;
    return dayNumberOf(time.year, time.month, time.day) * kSecondsPerDay + time.hour * 3600LL + time.minute * 60LL +
           time.second;
}

IcalTime icalTimeOfSeconds(std::int64_t seconds) {
    const std::int64_t dayNumber = floorDivide(seconds, kSecondsPerDay);
    const auto secondOfDay = static_cast<int>(seconds - dayNumber * kSecondsPerDay);
    const std::int64_t shifted = dayNumber + 719468;
    const std::int64_t era = floorDivide(shifted, 146097);
    const std::int64_t dayOfEra = shifted - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t marchMonth = (5 * dayOfYear + 2) / 153;
    IcalTime time;
    time.day = static_cast<int>(dayOfYear - (153 * marchMonth + 2) / 5 + 1);
    time.month = static_cast<int>(marchMonth < 10 ? marchMonth + 3 : marchMonth - 9);
    time.year = static_cast<int>(yearOfEra + era * 400 + (time.month <= 2 ? 1 : 0));
    time.hour = secondOfDay / 3600;
    time.minute = secondOfDay / 60 % 60;
    time.second = secondOfDay % 60;
    return time;
}

int weekdayOfDayNumber(std::int64_t dayNumber) {
    const std::int64_t sinceSunday = dayNumber + 4;  // 1970-01-01 was a Thursday
    return static_cast<int>(sinceSunday - floorDivide(sinceSunday, 7) * 7) + 1;
}

bool hasIcalTime(Date date) {
    constexpr double limit = 100000 * 366.0 * kSecondsPerDay;
    return std::isfinite(date.secondsSince1970()) && std::abs(date.secondsSince1970()) <= limit;
}

IcalTime icaltime(Date date) { return icalTimeOfSeconds(static_cast<std::int64_t>(date.secondsSince1970())); }

Date dateForICalTime(const IcalTime& time) { return Date::since1970(static_cast<double>(secondsOf(time))); }

IcalTime notz_icaltime(Date date) { return notz_icaltime(date, *Environment::current().calendar()); }

IcalTime notz_icaltime(Date date, const Calendar& calendar) {
    const Calendar::Fields fields = calendar.fields(date);
    IcalTime time;
    time.year = static_cast<int>(fields.year);
    time.month = fields.month;
    time.day = fields.day;
    time.hour = fields.hour;
    time.minute = fields.minute;
    time.second = fields.second;
    return time;
}

Date notz_dateForICalTime(const IcalTime& time) {
    return notz_dateForICalTime(time, *Environment::current().calendar());
}

Date notz_dateForICalTime(const IcalTime& time, const Calendar& calendar) {
    return calendar.date({time.year, time.month, time.day, time.hour, time.minute, time.second});
}

}  // namespace dayward
