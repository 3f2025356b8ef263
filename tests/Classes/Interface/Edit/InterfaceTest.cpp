#include "Classes/Interface/General/Interface.h"

#include <gtest/gtest.h>

#include "Classes/Other/Date/HHEventDateFormat.h"
#include "support/TestEnvironment.h"

namespace dayward {
namespace {

TEST(InterfaceTexts, TellEachValue) {
    const TestEnvironment environment;
    const auto day = [](double value) { return XDIDateInterval(CalendarUnit::day, value); };
    const Date date = environment.at("2026-12-24T23:59:00");
    const std::pair<std::string, std::string> texts[] = {
        {Interface::descriptionTime(0), "12:00 AM"},
        {Interface::descriptionTimes({540, 1110}), "9:00 AM, 6:30 PM"},
        {Interface::descriptionTimes({}), ""},
        {Interface::descriptionDate(date, {}), "Dec 24, 2026"},
        {Interface::descriptionDate(date, {540}), "Dec 24, 2026, 9:00 AM"},
        {Interface::descriptionDate(date, {540, 600}), "Dec 24, 2026\n(9:00 AM, 10:00 AM)"},
        {Interface::descriptionDuration({}), "None"},
        {Interface::descriptionDuration(day(2)), "2 Days"},
        {Interface::descriptionRRule({}), "Never"},
        {Interface::descriptionRRule("FREQ=NO;INTERVAL=1"), "Never"},
        {Interface::descriptionRRule("FREQ=WEEKLY;INTERVAL=2"), "Every 2 Weeks"},
        {Interface::descriptionIntervalFormat({CalendarUnit::year | CalendarUnit::week, TextStyle::full}),
         "Years, Weeks"},
        {Interface::descriptionIntervalFormat({CalendarUnit::hour, TextStyle::symbol}), "Hours (Symbol)"},
        {Interface::descriptionAlert({}), "On Event"},
        {Interface::descriptionAlert(day(0)), "On Event"},
        {Interface::descriptionAlerts({}), "None"},
        {Interface::descriptionAlerts({{}, day(1)}), "On Event, 1 Day"},
        {Interface::descriptionSound({}), "Default"},
        {Interface::descriptionSound("Default"), "Default"},
        {Interface::descriptionSound("UILocalNotificationDefaultSoundName"), "Default"},
        {Interface::descriptionSound(""), "No Sound"},
        {Interface::descriptionSound("/sounds/wind_chimes.v2.mp3"), "wind chimes.v2"},
    };
    for (const auto& [text, expected] : texts) EXPECT_EQ(text, expected);
}

TEST(InterfaceTexts, SpeakRussian) {
    const TestEnvironment environment({.locale = "ru_RU"});
    EXPECT_EQ(Interface::descriptionTime(1110), "18:30");
    EXPECT_EQ(Interface::descriptionAlerts({{}, {CalendarUnit::hour, 1}}), "В момент события, 1 Час");
    EXPECT_EQ(Interface::descriptionIntervalFormat({CalendarUnit::day, TextStyle::symbol}), "Дни (Символ)");
    EXPECT_EQ(Interface::descriptionAlerts({{CalendarUnit::day, 3}, {CalendarUnit::hour, -2}}), "3 Дня, - 2 Часа");
    EXPECT_EQ(Interface::descriptionDuration(XDIDateInterval(CalendarUnit::minute, 21)), "21 Минута");
    const std::pair<const char*, const char*> rules[] = {
        {"FREQ=DAILY;INTERVAL=1", "Каждый день"},
        {"FREQ=WEEKLY;INTERVAL=2", "Каждые 2 Недели"},
        {"FREQ=YEARLY;INTERVAL=4", "Каждые 4 Года"},
        {"FREQ=DAILY;INTERVAL=5", "Каждые 5 Дней"},
        {"FREQ=MONTHLY;INTERVAL=11", "Каждые 11 Месяцев"},
        {"FREQ=WEEKLY;INTERVAL=21", "Каждые 21 Неделю"},
        {"FREQ=DAILY;INTERVAL=22;BYMONTH=3", "Каждые 22 Дня март"},
        {"FREQ=HOURLY;INTERVAL=25", "Каждые 25 Часов"},
        {"FREQ=MINUTELY;INTERVAL=111", "Каждые 111 Минут"},
    };
    for (const auto& [rule, text] : rules) EXPECT_EQ(Interface::descriptionRRule(rule), text);
}

}  // namespace
}  // namespace dayward
