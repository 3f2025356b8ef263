// Wall-clock fields to an instant and back in New York, over one summer's times in random order:
// ours, a reused ICU calendar, and a conversion that already knows the offset (its best case).
#include <unicode/gregocal.h>
#include <unicode/timezone.h>

#include <chrono>
#include <memory>
#include <random>
#include <vector>

#include "platform/Calendar.h"
#include "support/Bench.h"

namespace {

using dayward::Calendar;
using dayward::Date;
using dayward::TimeZone;

const Calendar& newYork() {
    static const Calendar calendar(*TimeZone::named("America/New_York"));
    return calendar;
}

const std::vector<Date>& instants() {
    static const auto made = [] {
        const Date first = newYork().date({2026, 4, 1, 0, 0, 0});
        std::mt19937 random(1);
        std::uniform_int_distribution<int> seconds(0, 200 * 86400);
        std::vector<Date> result;
        for (int count = 0; count < 1024; ++count) 
            result.push_back(Date::since1970(first.secondsSince1970() + seconds(random)));
        return result;
    }();
    return made;
}

const std::vector<Calendar::Fields>& fields() {
    static const auto made = [] {
        std::vector<Calendar::Fields> result;
        for (const Date instant : instants()) result.push_back(newYork().fields(instant));
        return result;
    }();
    return made;
}

/// Runs one conversion for each element in turn.
template <typename Values, typename Convert>
void cycle(benchmark::State& state, const Values& values, Convert convert) {
    std::size_t at = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(convert(values[at]));
        at = (at + 1) % values.size();
    }
}

icu::GregorianCalendar& icuCalendar() {
    static const auto made = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::make_unique<icu::GregorianCalendar>(icu::TimeZone::createTimeZone("America/New_York"), status);
    }();
    return *made;
}

/// The summer's offset is known, the rest is the standard library's civil calendar.
constexpr std::chrono::seconds kOffset = std::chrono::hours(-4);

Date instantWithOffset(const Calendar::Fields& fields) {
    using namespace std::chrono;
    const sys_days day = year(static_cast<int>(fields.year)) / fields.month / fields.day;
    const auto time = day + hours(fields.hour) + minutes(fields.minute) + seconds(fields.second) - kOffset;
    return Date::since1970(static_cast<double>(time.time_since_epoch().count()));
}

Calendar::Fields fieldsWithOffset(Date instant) {
    using namespace std::chrono;
    const auto since = static_cast<std::int64_t>(instant.secondsSince1970());
    const sys_seconds local(seconds(since) + kOffset);
    const auto days = floor<std::chrono::days>(local);
    const year_month_day date(days);
    const hh_mm_ss clock(local - days);
    return {int(date.year()),
            int(unsigned(date.month())),
            int(unsigned(date.day())),
            int(clock.hours().count()),
            int(clock.minutes().count()),
            int(clock.seconds().count())};
}

}  // namespace

DAYWARD_BENCH(fields_to_instant, ours) {
    cycle(state, fields(), [&](const Calendar::Fields& value) { return newYork().date(value); });
}

DAYWARD_BENCH(fields_to_instant, icu) {
    icu::GregorianCalendar& calendar = icuCalendar();
    cycle(state, fields(), [&](const Calendar::Fields& value) {
        UErrorCode status = U_ZERO_ERROR;
        calendar.set(static_cast<int>(value.year), value.month - 1, value.day, value.hour, value.minute,
                     value.second);
        return calendar.getTime(status);
    });
}

DAYWARD_BENCH(fields_to_instant, cached_offset) { cycle(state, fields(), instantWithOffset); }

DAYWARD_BENCH(instant_to_fields, ours) {
    cycle(state, instants(), [&](Date value) { return newYork().fields(value); });
}

DAYWARD_BENCH(instant_to_fields, icu) {
    icu::GregorianCalendar& calendar = icuCalendar();
    cycle(state, instants(), [&](Date value) {
        UErrorCode status = U_ZERO_ERROR;
        calendar.setTime(value.secondsSince1970() * 1000, status);
        int sum = 0;
        for (const auto field : {UCAL_YEAR, UCAL_MONTH, UCAL_DATE, UCAL_HOUR_OF_DAY, UCAL_MINUTE, UCAL_SECOND})
            sum += calendar.get(field, status);
        return sum;
    });
}

DAYWARD_BENCH(instant_to_fields, cached_offset) { cycle(state, instants(), fieldsWithOffset); }
