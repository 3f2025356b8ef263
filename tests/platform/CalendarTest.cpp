// Fields, additions, distances and ranges: against ICU's calendar, by tables made by hand, and by
// properties over random dates and zones.
#include "platform/Calendar.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>

#include <algorithm>
#include <array>
#include <limits>
#include <random>

namespace dayward {
namespace {

constexpr auto kAllFields = CalendarUnits::fromMask(65534);

Calendar calendarIn(const std::string& zone, int firstWeekday = 1, int minimumDays = 1) {
    return Calendar(*TimeZone::named(zone), firstWeekday, minimumDays);
}

class Random {
public:
    Random() : seed_(std::random_device()()), engine_(seed_) {}
    [[nodiscard]] std::string trace() const { return "seed " + std::to_string(seed_); }
    std::int64_t in(std::int64_t low, std::int64_t high) { return std::uniform_int_distribution(low, high)(engine_); }
    Date date() { return Date::sinceReference(static_cast<double>(in(-3000000000, 3000000000))); }
    template <class T, std::size_t N>
    T of(const std::array<T, N>& values) {
        return values[static_cast<std::size_t>(in(0, N - 1))];
    }

private:
    unsigned seed_;
    std::mt19937_64 engine_;
};

const std::array<const char*, 8> kZones = {
    "UTC",          "Europe/Berlin",     "America/New_York", "Australia/Lord_Howe",
    "Pacific/Apia", "America/Sao_Paulo", "Asia/Kathmandu",   "Africa/Casablanca"};

TEST(Calendar, WeeksAndFieldsAgreeWithAnotherCalendar) {
    Random random;
    SCOPED_TRACE(random.trace());
    for (int round = 0; round < 4000; ++round) {
        const int firstWeekday = static_cast<int>(random.in(1, 7)), minimumDays = static_cast<int>(random.in(1, 7));
        UErrorCode status = U_ZERO_ERROR;
        icu::GregorianCalendar other(*icu::TimeZone::getGMT(), icu::Locale::getRoot(), status);
        other.setGregorianChange(-8.64e18, status);
        other.setFirstDayOfWeek(static_cast<UCalendarDaysOfWeek>(firstWeekday));
        other.setMinimalDaysInFirstWeek(static_cast<std::uint8_t>(minimumDays));
        const Date date = Date::sinceReference(static_cast<double>(random.in(-70000000000, 70000000000)));
        other.setTime(date.secondsSince1970() * 1000, status);
        const auto get = [&](UCalendarDateFields field) { return std::int64_t{other.get(field, status)}; };
        const DateComponents own = calendarIn("UTC", firstWeekday, minimumDays).components(kAllFields, date);
        SCOPED_TRACE(std::to_string(date.secondsSince1970()) + " first " + std::to_string(firstWeekday) + " minimum " +
                     std::to_string(minimumDays));
        const std::pair<std::optional<std::int64_t>, UCalendarDateFields> fields[] = {
            {own.year, UCAL_EXTENDED_YEAR},
            {own.day, UCAL_DATE},
            {own.hour, UCAL_HOUR_OF_DAY},
            {own.minute, UCAL_MINUTE},
            {own.second, UCAL_SECOND},
            {own.weekday, UCAL_DAY_OF_WEEK},
            {own.weekdayOrdinal, UCAL_DAY_OF_WEEK_IN_MONTH},
            {own.weekOfMonth, UCAL_WEEK_OF_MONTH},
            {own.weekOfYear, UCAL_WEEK_OF_YEAR},
            {own.week, UCAL_WEEK_OF_YEAR},
            {own.yearForWeekOfYear, UCAL_YEAR_WOY}};
        for (const auto& [value, field] : fields) ASSERT_EQ(value, get(field)) << field;
        ASSERT_EQ(own.month, get(UCAL_MONTH) + 1);
        ASSERT_TRUE(U_SUCCESS(status));
    }
}

TEST(Calendar, FieldsLeadBackToTheirDate) {
    Random random;
    SCOPED_TRACE(random.trace());
    for (int round = 0; round < 20000; ++round) {
        const Calendar calendar =
            calendarIn(random.of(kZones), static_cast<int>(random.in(1, 7)), static_cast<int>(random.in(1, 7)));
        const Date date = random.date();
        const auto fields = calendar.fields(date);
        const Date back = calendar.date(fields);
        ASSERT_EQ(calendar.fields(back), fields);
        ASSERT_LE(back, date);  // earlier by the repeated length where the date is a second pass
        const DateComponents all = calendar.components(kAllFields, date);
        ASSERT_EQ(calendar.dateFromComponents(all), back);
        DateComponents byMonth = all;
        byMonth.day.reset();
        byMonth.weekdayOrdinal.reset();
        ASSERT_EQ(calendar.dateFromComponents(byMonth), back);
        DateComponents byYear = byMonth;
        byYear.weekOfMonth.reset();
        ASSERT_EQ(calendar.dateFromComponents(byYear), back);
        DateComponents byOrdinal = all;
        byOrdinal.day.reset();
        byOrdinal.weekOfMonth.reset();
        byOrdinal.yearForWeekOfYear.reset();
        ASSERT_EQ(calendar.dateFromComponents(byOrdinal), back);
    }
}

TEST(Calendar, FieldsRollOverAndDefaultToTheFirst) {
    const Calendar utc = calendarIn("UTC");
    EXPECT_EQ(utc.fields(utc.date({2026, 14, 0, 25, -1, 61})), (Calendar::Fields{2027, 2, 1, 1, 0, 1}));
    EXPECT_EQ(utc.fields(utc.date({2026, -1, 1, 0, 0, 0})), (Calendar::Fields{2025, 11, 1, 0, 0, 0}));
    EXPECT_EQ(utc.fields(*utc.dateFromComponents({})), (Calendar::Fields{1, 1, 1, 0, 0, 0}));
    EXPECT_EQ(utc.fields(utc.date({0, 2, 29, 0, 0, 0})),
              (Calendar::Fields{0, 2, 29, 0, 0, 0}));  // 1 BC was a leap year
    EXPECT_EQ(Calendar::weekdayOf(1582, 10, 15), 6);
    EXPECT_EQ(Calendar::weekdayOf(1582, 10, 14), 5);  // no Julian calendar before it
    EXPECT_EQ(Calendar::daysInMonth(1900, 2), 28);
    EXPECT_EQ(utc.components(CalendarUnit::nanosecond, Date::sinceReference(-0.25)).nanosecond, 750000000);
}

/// "y m w d h m s" of a distance, "-" for what was not asked.
std::string text(const DateComponents& components) {
    std::string result;
    for (const auto* field : {&components.year, &components.month, &components.week, &components.day, &components.hour,
                              &components.minute, &components.second}) {
        result += (result.empty() ? "" : " ") + (*field ? std::to_string(**field) : std::string("-"));
    }
    return result;
}

struct DistanceCase {
    const char* zone;
    Calendar::Fields from, to;
    std::uint64_t units;
    const char* there;  ///< from the first to the second
    const char* back;   ///< from the second to the first
};

TEST(Calendar, Distances) {
    constexpr std::uint64_t kYear = 4, kMonth = 8, kDay = 16, kHour = 32, kMinute = 64, kWeek = 256;
    const DistanceCase cases[] = {
        {"UTC", {2026, 1, 31}, {2026, 2, 28}, kMonth | kDay, "- 1 - 0 - - -", "- 0 - -28 - - -"},
        {"UTC", {2026, 1, 31}, {2026, 3, 1}, kMonth | kDay, "- 1 - 1 - - -", "- -1 - -1 - - -"},
        {"UTC", {2024, 2, 29}, {2025, 2, 28}, kYear | kDay, "1 - - 0 - - -", "0 - - -365 - - -"},
        {"UTC", {2024, 2, 29}, {2025, 3, 29}, kYear | kMonth | kDay, "1 1 - 1 - - -", "-1 -1 - 0 - - -"},
        {"UTC", {2026, 1, 1}, {2026, 12, 31, 23, 59, 59}, 252 | kWeek, "0 11 4 2 23 59 59", "0 -11 -4 -2 -23 -59 -59"},
        {"UTC", {2026, 1, 1}, {2026, 1, 1}, 252 | kWeek, "0 0 0 0 0 0 0", "0 0 0 0 0 0 0"},
        {"UTC", {2026, 1, 1}, {2026, 1, 3, 1, 30}, kDay | kMinute, "- - - 2 - 90 -", "- - - -2 - -90 -"},
        // A day across a change of the clocks is a day, and as hours 23 or 25.
        {"Europe/Berlin", {2026, 3, 28, 12}, {2026, 3, 29, 12}, kDay | kHour, "- - - 1 0 - -", "- - - -1 0 - -"},
        {"Europe/Berlin", {2026, 3, 28, 12}, {2026, 3, 29, 12}, kHour, "- - - - 23 - -", "- - - - -23 - -"},
        {"Europe/Berlin", {2026, 10, 24, 12}, {2026, 10, 25, 11}, kDay | kHour, "- - - 0 24 - -", "- - - 0 -24 - -"},
        {"Europe/Berlin", {2026, 3, 28, 2, 30}, {2026, 3, 29, 3, 30}, kDay | kHour, "- - - 1 0 - -", "- - - -1 -1 - -"},
        {"Pacific/Apia", {2011, 12, 29}, {2011, 12, 31}, kDay | kHour, "- - - 2 0 - -", "- - - -2 0 - -"},
    };
    for (const auto& c : cases) {
        const Calendar calendar = calendarIn(c.zone);
        const Date from = calendar.date(c.from), to = calendar.date(c.to);
        const auto units = CalendarUnits::fromMask(c.units);
        SCOPED_TRACE(::testing::Message() << c.zone << " " << c.from.year << "-" << c.from.month << "-" << c.from.day);
        EXPECT_EQ(text(calendar.components(units, from, to)), c.there);
        EXPECT_EQ(text(calendar.components(units, to, from)), c.back);
    }
}

TEST(Calendar, DistancesAreTheBiggestThatDoNotPassTheTarget) {
    Random random;
    SCOPED_TRACE(random.trace());
    constexpr std::array kUnits = {CalendarUnit::year, CalendarUnit::month,  CalendarUnit::week,  CalendarUnit::day,
                                   CalendarUnit::hour, CalendarUnit::minute, CalendarUnit::second};
    for (int round = 0; round < 20000; ++round) {
        const Calendar calendar = calendarIn(random.of(kZones));
        const Date from = random.date();
        const Date to = random.in(0, 1) == 0 ? random.date()
                                             : from + TimeInterval(static_cast<double>(random.in(-9000000, 9000000)));
        const auto units = CalendarUnits::fromMask(static_cast<std::uint64_t>(random.in(1, 127)) << 2 | 128);
        const DateComponents distance = calendar.components(units, from, to);
        SCOPED_TRACE(::testing::Message() << calendar.timeZone().name() << " " << from.secondsSinceReference() << " to "
                                          << to.secondsSinceReference() << " units " << units.mask());
        ASSERT_EQ(calendar.dateByAddingComponents(distance, from), to);
        const int sign = to < from ? -1 : 1;
        DateComponents upToHere;
        for (const CalendarUnit unit : kUnits) {
            const auto& count = *distance.field(unit);
            ASSERT_EQ(count.has_value(), units.contains(unit));
            if (!count) continue;
            ASSERT_GE(*count * sign, 0);
            *upToHere.field(unit) = *count + sign;
            const Date next = *calendar.dateByAddingComponents(upToHere, from);
            ASSERT_TRUE(sign > 0 ? next > to : next < to)
                << "one more " << static_cast<std::uint64_t>(unit) << " would fit";
            *upToHere.field(unit) = *count;
        }
    }
}

TEST(Calendar, Additions) {
    struct Case {
        const char* zone;
        Calendar::Fields from;
        CalendarUnit unit;
        std::int64_t value;
        Calendar::Fields to;
    };
    const Case cases[] = {
        {"UTC", {2026, 1, 31}, CalendarUnit::month, 1, {2026, 2, 28}},
        {"UTC", {2026, 3, 31}, CalendarUnit::month, -13, {2025, 2, 28}},
        {"UTC", {2024, 2, 29}, CalendarUnit::quarter, 4, {2025, 2, 28}},
        {"UTC", {2026, 1, 1}, CalendarUnit::weekOfYear, 2, {2026, 1, 15}},
        {"UTC", {2026, 1, 1}, CalendarUnit::second, -1, {2025, 12, 31, 23, 59, 59}},
        {"Europe/Berlin", {2026, 3, 28, 2, 30}, CalendarUnit::day, 1, {2026, 3, 29, 3, 30}},
        {"Europe/Berlin", {2026, 3, 28, 2, 30}, CalendarUnit::hour, 24, {2026, 3, 29, 3, 30}},
        {"Europe/Berlin", {2026, 10, 24, 12}, CalendarUnit::hour, 24, {2026, 10, 25, 11}},
        {"Pacific/Apia", {2011, 12, 29, 12}, CalendarUnit::day, 1, {2011, 12, 31, 12}},
    };
    for (const Case& c : cases) {
        const Calendar calendar = calendarIn(c.zone);
        const auto sum = calendar.dateByAddingUnit(c.unit, c.value, calendar.date(c.from));
        EXPECT_EQ(calendar.fields(*sum), c.to) << c.zone << " " << static_cast<std::uint64_t>(c.unit) << " " << c.value;
    }
    const Calendar berlin = calendarIn("Europe/Berlin");
    const Date secondPass = berlin.date({2026, 10, 25, 2, 30}) + TimeInterval(3600);
    EXPECT_EQ(berlin.dateByAddingUnit(CalendarUnit::day, 0, secondPass), secondPass);
    EXPECT_EQ(berlin.dateByAddingUnit(CalendarUnit::minute, 1, secondPass), secondPass + TimeInterval(60));
    EXPECT_FALSE(berlin.dateByAddingUnit(CalendarUnit::timeZone, 1, Date()));
}

TEST(Calendar, Ranges) {
    const Calendar monday = calendarIn("Europe/Berlin", 2, 4);
    using Unit = CalendarUnit;
    struct Case {
        Unit smaller, larger;
        Calendar::Fields at;
        std::optional<Calendar::Range> range;
    };
    const Case cases[] = {
        {Unit::day, Unit::month, {2024, 2, 5}, Calendar::Range{1, 29}},
        {Unit::day, Unit::year, {2026, 2, 5}, Calendar::Range{1, 365}},
        {Unit::month, Unit::quarter, {2026, 5, 5}, Calendar::Range{4, 3}},
        {Unit::day, Unit::weekOfMonth, {2026, 4, 1}, Calendar::Range{1, 5}},    // Wednesday to Sunday
        {Unit::day, Unit::weekOfMonth, {2026, 4, 30}, Calendar::Range{27, 4}},  // Monday to Thursday
        {Unit::weekOfMonth, Unit::month, {2026, 5, 1}, Calendar::Range{0, 5}},  // begins on a Friday
        {Unit::weekdayOrdinal, Unit::month, {2026, 5, 8}, Calendar::Range{1, 5}},
        {Unit::hour, Unit::day, {2026, 5, 8}, Calendar::Range{0, 24}},
        {Unit::month, Unit::day, {2026, 5, 8}, std::nullopt},
        {Unit::era, Unit::year, {2026, 5, 8}, std::nullopt},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(monday.rangeOfUnit(c.smaller, c.larger, monday.date(c.at)), c.range)
            << static_cast<std::uint64_t>(c.smaller) << " in " << static_cast<std::uint64_t>(c.larger);
    }
}

TEST(Calendar, UnitsAroundADate) {
    const Calendar monday = calendarIn("Europe/Berlin", 2, 4);
    struct Case {
        CalendarUnit unit;
        Calendar::Fields at, start;
        double hours;
    };
    const Case cases[] = {
        {CalendarUnit::day, {2026, 3, 29, 15}, {2026, 3, 29}, 23},
        {CalendarUnit::day, {2026, 10, 25, 15}, {2026, 10, 25}, 25},
        {CalendarUnit::weekOfMonth, {2026, 4, 1, 15}, {2026, 3, 30}, 168},
        {CalendarUnit::quarter, {2026, 2, 28, 15}, {2026, 1, 1}, 90 * 24 - 1},
        {CalendarUnit::year, {2026, 12, 31, 23, 59, 59}, {2026, 1, 1}, 8760},
        {CalendarUnit::hour, {2026, 10, 25, 2, 30}, {2026, 10, 25, 2}, 1},
    };
    for (const Case& c : cases) {
        const auto span = monday.rangeOfUnit(c.unit, monday.date(c.at));
        ASSERT_TRUE(span);
        EXPECT_EQ(monday.fields(span->start), c.start) << static_cast<std::uint64_t>(c.unit);
        EXPECT_EQ(span->length.seconds(), c.hours * 3600) << static_cast<std::uint64_t>(c.unit);
    }
    // The hour is not there twice: the second pass has its own.
    const Date secondPass = monday.date({2026, 10, 25, 2, 30}) + TimeInterval(3600);
    EXPECT_EQ(monday.rangeOfUnit(CalendarUnit::hour, secondPass)->start, secondPass - TimeInterval(1800));
    // A midnight that the clocks skip: the day begins at 01:00.
    const Calendar saoPaulo = calendarIn("America/Sao_Paulo");
    const auto day = saoPaulo.rangeOfUnit(CalendarUnit::day, saoPaulo.date({2017, 10, 15, 12}));
    EXPECT_EQ(saoPaulo.fields(day->start), (Calendar::Fields{2017, 10, 15, 1}));
    EXPECT_EQ(day->length.seconds(), 23 * 3600);
}

TEST(Calendar, BearsAnyNumber) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::array<double, 11> numbers = {0,     1e12,  -1e12,  1e15,      -1e15,     1e18,
                                            -1e18, 1e300, -1e300, kInfinity, -kInfinity};
    const Calendar berlin = calendarIn("Europe/Berlin", 2, 4);
    for (const double number : numbers) {
        const Date date = Date::sinceReference(number);
        const DateComponents all = berlin.components(kAllFields, date);
        EXPECT_TRUE(*all.month >= 1 && *all.month <= 12 && *all.day >= 1 && *all.day <= 31);
        EXPECT_TRUE(berlin.dateFromComponents(all)) << "the fields of any date are a date's";
        (void)berlin.rangeOfUnit(CalendarUnit::week, date);
        (void)berlin.rangeOfUnit(CalendarUnit::weekOfYear, CalendarUnit::year, date);
        for (const double other : numbers) {
            const auto distance = berlin.components(CalendarUnits::fromMask(33276), date, Date::sinceReference(other));
            const double length = std::clamp(other, -1e18, 1e18) - std::clamp(number, -1e18, 1e18);
            EXPECT_NEAR(static_cast<double>(*distance.year) * 31556952, length, 4e7) << number << " to " << other;
        }
    }
    (void)berlin.components(kAllFields, Date::sinceReference(std::nan("")), Date());
    EXPECT_FALSE(berlin.dateByAddingUnit(CalendarUnit::second, INT64_MAX, Date()));
    for (const std::int64_t value : {INT64_MAX, INT64_MIN, INT64_MAX / 7, INT64_MIN / 12}) {
        for (std::uint64_t unit = 2; unit <= 32768; unit <<= 1) {
            (void)berlin.dateByAddingUnit(static_cast<CalendarUnit>(unit), value, Date());
            DateComponents components;
            *components.field(static_cast<CalendarUnit>(unit)) = value;
            (void)berlin.dateFromComponents(components);
            components.weekday = value;
            components.yearForWeekOfYear = value;
            (void)berlin.dateFromComponents(components);
        }
        EXPECT_FALSE(berlin.dateByAddingUnit(CalendarUnit::year, value, Date()));
        (void)berlin.date({value, 2000000000, -2000000000, 2000000000, -2000000000, 2000000000});
    }
}

}  // namespace
}  // namespace dayward
