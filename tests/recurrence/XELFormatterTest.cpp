#include "recurrence/XELFormatter.h"

#include <gtest/gtest.h>

#include "recurrence/XELCalendarUnit.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(XELFormatter, DescribesRulesInBothLanguages) {
    struct Case {
        const char* rule;
        std::optional<std::string> english, russian;
    };
    const Case cases[] = {
        {"FREQ=DAILY;INTERVAL=1", "Daily", "Каждый день"},
        {"FREQ=SECONDLY", "Secondly", "Каждую секунду"},
        {"FREQ=HOURLY;INTERVAL=12", "Every 12 Hours", "Каждые 12 Часов"},
        {"FREQ=YEARLY;INTERVAL=-1", std::nullopt, std::nullopt},
        {"FREQ=DAILY;INTERVAL=0", std::nullopt, std::nullopt},
        {"FREQ=NO;INTERVAL=1", std::nullopt, std::nullopt},
        {"", std::nullopt, std::nullopt},
        {"nonsense;=;==", std::nullopt, std::nullopt},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,FR", "Every 2 Weeks (Monday, Friday)",
         "Каждые 2 Недель (понедельник, пятница)"},
        {"FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TU,WE,TH,FR", "Every 2 Weeks weekday", "Каждые 2 Недель будний день"},
        {"FREQ=WEEKLY;BYDAY=SA,SU", "Weekly weekend day", "Каждую неделю выходной день"},
        {"FREQ=WEEKLY;BYDAY=SA,FR,TH,WE,TU,MO,SU", "Weekly day", "Каждую неделю день"},
        {"FREQ=WEEKLY;BYDAY=SA", "Weekly Saturday", "Каждую неделю суббота"},
        {"FREQ=MONTHLY;BYDAY=-1FR", "Monthly Last Friday", "Каждый месяц Последний пятница"},
        {"FREQ=MONTHLY;BYDAY=2MO,2TU", "Monthly (2 Monday, 2 Tuesday)", "Каждый месяц (2 понедельник, 2 вторник)"},
        {"FREQ=MONTHLY;BYDAY=2SU,2SA", "Monthly weekend day", "Каждый месяц выходной день"},
        {"FREQ=MONTHLY;BYMONTHDAY=13;BYDAY=FR", "Monthly 13 Friday", "Каждый месяц 13 пятница"},
        {"FREQ=MONTHLY;BYMONTHDAY=-1,15,1", "Monthly (1, 15, Last)", "Каждый месяц (1, 15, Последний)"},
        {"FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1", "Monthly Last weekday", "Каждый месяц Последний будний день"},
        {"FREQ=MONTHLY;BYDAY=SU;BYSETPOS=1,3", "Monthly (1, 3) Sunday", "Каждый месяц (1, 3) воскресенье"},
        {"FREQ=MONTHLY;BYSETPOS=1", "Monthly", "Каждый месяц"},
        {"FREQ=YEARLY;BYMONTH=5;BYDAY=2SU", "Yearly May 2 Sunday", "Каждый год май 2 воскресенье"},
        {"FREQ=YEARLY;BYMONTH=12,1;BYMONTHDAY=31", "Yearly (January, December) 31", "Каждый год (январь, декабрь) 31"},
        {"FREQ=YEARLY;BYMONTH=13,0;BYMONTHDAY=-2;BYDAY=XX", "Yearly", "Каждый год"},
        {"FREQ=YEARLY;BYWEEKNO=3;BYYEARDAY=100;COUNT=5", "Yearly", "Каждый год"},
        {"FREQ=DAILY;UNTIL=20200131T120000Z", "Daily, Until 1/31/20", "Каждый день, до 31.01.2020"},
        {"FREQ=DAILY;UNTIL=20200131", "Daily", "Каждый день"},
        {"FREQ=DAILY;INTERVAL=1000000", "Every 1,000,000 Days", "Каждые 1 000 000 Дней"},
    };
    for (const char* locale : {"en_US", "ru_RU"}) {
        const TestEnvironment environment({.zone = "America/New_York", .locale = locale});
        for (const auto& each : cases) {
            const auto& expected = std::string(locale) == "ru_RU" ? each.russian : each.english;
            EXPECT_EQ(XELFormatter().stringForRRule(each.rule), expected) << each.rule;
        }
    }
}

TEST(XELFormatter, StyleChoosesTheLengthOfNames) {
    const TestEnvironment environment({.locale = "de_DE"});
    XELFormatter formatter;
    const auto text = [&](const char* rule) { return formatter.stringForRRule(rule); };
    const char* rule = "FREQ=YEARLY;BYMONTH=9,10;BYDAY=1WE";
    EXPECT_EQ(text(rule), "Yearly (September, October) 1 Wednesday") << "other languages read English";
    formatter.style = XELFormatter::Style::short_;
    EXPECT_EQ(text(rule), "Yearly (Sep, Oct) 1 Wed");
    formatter.style = XELFormatter::Style::veryShort;
    EXPECT_EQ(text(rule), "Yearly (S, O) 1 W");
    EXPECT_EQ(formatter.stringForIndex(3, CalendarUnit::month, XELFormatter::Style::full), "March");
}

TEST(XELFormatter, NamesSingleValues) {
    const TestEnvironment environment;
    const XELFormatter formatter;
    const char* words[] = {"Never", "Secondly", "Minutely", "Hourly", "Daily", "Weekly", "Monthly", "Yearly"};
    for (std::int64_t number = 0; number < 8; ++number) {
        const auto frequency = static_cast<RuleFrequency>(number);
        EXPECT_EQ(formatter.stringForFrequency(frequency), words[number]);
        EXPECT_EQ(formatter.stringForFrequency(frequency, 1), words[number]);
    }
    EXPECT_EQ(formatter.stringForFrequency(RuleFrequency::none, 0), "Never");
    EXPECT_EQ(formatter.stringForFrequency(RuleFrequency::daily, 0), std::nullopt);
    EXPECT_EQ(formatter.stringForFrequency(RuleFrequency::minutely, 2), "Every 2 Minutes");
    EXPECT_EQ(formatter.stringForFrequency(static_cast<RuleFrequency>(8)), "");
    EXPECT_EQ(formatter.stringForFrequency(static_cast<RuleFrequency>(-1), 3), std::nullopt);

    EXPECT_EQ(formatter.stringForIndexes({1, 40, 0, -1, -2}, CalendarUnit::day), "1, 40, Last");
    EXPECT_EQ(formatter.stringForIndexes({1, 8, 7}, CalendarUnit::weekday), "Sunday, Saturday");
    EXPECT_EQ(formatter.stringForIndex(2, CalendarUnit::weekOfMonth), "2");
    EXPECT_EQ(formatter.stringForIndex(2, CalendarUnit::hour), std::nullopt);
    EXPECT_EQ(formatter.stringForSetPositions({2, -1, -2}), "2, Last, -2");
    EXPECT_EQ(
        formatter.stringForDaysOfWeek({XELRecurrenceDayOfWeek::dayOfWeek(1), XELRecurrenceDayOfWeek::dayOfWeek(7)}),
        "weekend day");
    EXPECT_EQ(XELFormatter::numberArrayFrom(-1, 2), (std::vector<std::string>{"-1", "0", "1", "2"}));
    EXPECT_EQ(XELFormatter::numberArrayFrom(2, 1), std::vector<std::string>{});
    EXPECT_EQ(XELFormatter::numberArrayFrom(INT64_MAX, INT64_MAX), std::vector{std::to_string(INT64_MAX)});
}

TEST(XELCalendarUnit, TablesHaveTheNamesOfTheUsersLanguageOrEnglish) {
    struct Case {
        const char* locale;
        XELCalendarUnit::Symbols march, wednesday;
        const char* last;
    };
    const Case cases[] = {
        {"en_GB", {"March", "Mar", "M"}, {"Wednesday", "Wed", "W"}, "Last"},
        {"ru_RU", {"март", "март", "М"}, {"среда", "ср", "С"}, "Последний"},
        {"ja_JP", {"March", "Mar", "M"}, {"Wednesday", "Wed", "W"}, "Last"},
    };
    for (const auto& each : cases) {
        const TestEnvironment environment({.locale = each.locale});
        EXPECT_EQ(XELCalendarUnit::months().at(3), each.march) << XELCalendarUnit::months().at(3).ss;
        EXPECT_EQ(XELCalendarUnit::weekdays().at(4), each.wednesday) << XELCalendarUnit::weekdays().at(4).ss;
        for (const auto unit : {CalendarUnit::day, CalendarUnit::weekOfMonth})
            EXPECT_EQ(XELCalendarUnit::symbolAtIndex(-1, unit), each.last);
    }
}

TEST(XELCalendarUnit, IndexesAndSymbolsByUnit) {
    const TestEnvironment environment;
    EXPECT_EQ(XELCalendarUnit::indexes(CalendarUnit::weekOfMonth), (std::vector<std::int64_t>{1, 2, 3, 4, -1}));
    EXPECT_EQ(XELCalendarUnit::indexes(CalendarUnit::day).size(), 32U);
    EXPECT_EQ(XELCalendarUnit::indexes(CalendarUnit::day).back(), -1);
    EXPECT_EQ(XELCalendarUnit::indexes(CalendarUnit::month).size(), 12U);
    EXPECT_EQ(XELCalendarUnit::indexes(CalendarUnit::weekday).size(), 7U);
    EXPECT_TRUE(XELCalendarUnit::indexes(CalendarUnit::hour).empty());
    EXPECT_EQ(XELCalendarUnit::source(CalendarUnit::year), nullptr);

    EXPECT_EQ(XELCalendarUnit::symbolAtIndex(-12, CalendarUnit::year), "-12");
    EXPECT_EQ(XELCalendarUnit::shortSymbolAtIndex(2, CalendarUnit::month), "Feb");
    EXPECT_EQ(XELCalendarUnit::veryShortSymbolAtIndex(1, CalendarUnit::weekday), "S");
    EXPECT_EQ(XELCalendarUnit::symbolAtIndex(31, CalendarUnit::day), "31");
    EXPECT_EQ(XELCalendarUnit::symbolAtIndex(32, CalendarUnit::day), std::nullopt);
    EXPECT_EQ(XELCalendarUnit::symbolAtIndex(1, CalendarUnit::second), std::nullopt);
}

}  // namespace
}  // namespace dayward
