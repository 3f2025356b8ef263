#include "recurrence/DateIcal.h"

#include <cmath>

#include "platform/CivilDay.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

}  // namespace

std::int64_t secondsOf(const IcalTime& time) {
    if (time.isNull()) return 0;
    const std::int64_t months = time.year * 12LL + time.month - 1;
    const auto month = static_cast<int>(floorModulo(months, 12)) + 1;
    const std::int64_t day = dayNumberOf(floorDivide(months, 12), month, time.day);
    return day * kSecondsPerDay + time.hour * 3600LL + time.minute * 60LL + time.second;
}

IcalTime icalTimeOfSeconds(std::int64_t seconds) {
    const std::int64_t dayNumber = floorDivide(seconds, kSecondsPerDay);
    const auto secondOfDay = static_cast<int>(seconds - dayNumber * kSecondsPerDay);
    const CivilDay civil = civilDayOf(dayNumber);
    return {static_cast<int>(civil.year), civil.month,           civil.day,       true,
            secondOfDay / 3600,           secondOfDay / 60 % 60, secondOfDay % 60};
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
