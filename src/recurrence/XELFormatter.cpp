#include "recurrence/XELFormatter.h"

#include <array>

#include "intervals/XDIFormatter.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"
#include "recurrence/XELCalendarUnit.h"

namespace dayward {

namespace {

struct FrequencyWord {
    const char* key;
    CalendarUnit unit;  ///< what "Every" counts
};

constexpr std::array<FrequencyWord, 8> kFrequencies{{
    {"Never", CalendarUnit::era},  // counts nothing
    {"Secondly", CalendarUnit::second},
    {"Minutely", CalendarUnit::minute},
    {"Hourly", CalendarUnit::hour},
    {"Daily", CalendarUnit::day},
    {"Weekly", CalendarUnit::week},
    {"Monthly", CalendarUnit::month},
    {"Yearly", CalendarUnit::year},
}};

struct DaySet {
    const char* key;
    std::vector<std::int64_t> days;
};

std::string word(const std::string& key) { return localized(key, XELFormatter::kTable); }

const FrequencyWord* wordOf(RuleFrequency frequency) {
    const auto number = static_cast<std::int64_t>(frequency);
    return number >= 0 && number < std::ssize(kFrequencies) ? &kFrequencies[static_cast<std::size_t>(number)] : nullptr;
}

std::string joined(const std::vector<std::string>& names) {
    std::string result;
    for (const auto& name : names) result += (&name == names.data() ? "" : ", ") + name;
    return result;
}

/// One name stands alone, several in parentheses.
std::string group(const std::vector<std::string>& names) {
    if (names.empty()) return "";
    return formatText(names.size() == 1 ? " %@" : " (%@)", {joined(names)});
}

std::optional<std::string> symbolAt(const std::vector<std::string>& symbols, std::int64_t index) {
    if (index < 1 || index > std::ssize(symbols)) return std::nullopt;
    return symbols[static_cast<std::size_t>(index - 1)];
}

std::optional<std::string> monthName(std::int64_t index, XELFormatter::Style style) {
    const auto& symbols = XELCalendarUnit::dateFormater();
    if (style == XELFormatter::Style::veryShort) return symbolAt(symbols.veryShortMonths, index);
    if (style == XELFormatter::Style::short_) return symbolAt(symbols.shortMonths, index);
    return symbolAt(symbols.standaloneMonths, index);
}

std::optional<std::string> weekdayName(std::int64_t index, XELFormatter::Style style) {
    const auto& symbols = XELCalendarUnit::dateFormater();
    if (style == XELFormatter::Style::veryShort) return symbolAt(symbols.veryShortWeekdays, index);
    if (style == XELFormatter::Style::short_) return symbolAt(symbols.shortWeekdays, index);
    return symbolAt(symbols.standaloneWeekdays, index);
}

template <class T>
const std::vector<T>& elements(const std::optional<std::vector<T>>& list) {
    static const std::vector<T> none;
    return list ? *list : none;
}

}  // namespace

const DateFormatter& XELFormatter::dateFormatter() {
    if (!dateFormatter_) {
        dateFormatter_ = DateFormatter::withStyles(DateFormatter::Style::short_, DateFormatter::Style::none,
                                                   XELCalendarUnit::locale(), Environment::current().timeZone());
    }
    return *dateFormatter_;
}

std::string XELFormatter::stringForFrequency(RuleFrequency frequency) const {
    const auto* known = wordOf(frequency);
    return known != nullptr ? word(known->key) : "";
}

std::optional<std::string> XELFormatter::stringForFrequency(RuleFrequency frequency, std::int64_t andInterval) const {
    if (frequency == RuleFrequency::none || andInterval == 1) return stringForFrequency(frequency);
    const auto* known = wordOf(frequency);
    if (andInterval == 0 || known == nullptr) return std::nullopt;
    const XDIDateInterval interval(known->unit, static_cast<double>(andInterval));
    return formatText(word("Every %@"), {XDIFormatter::stringForDateInterval(interval, TextStyle::full)});
}

std::optional<std::string> XELFormatter::stringForIndex(std::int64_t index, CalendarUnit atCalendarUnit,
                                                        Style inStyle) const {
    if (index == -1) return word("Last");
    if (index < 1) return std::nullopt;
    switch (atCalendarUnit) {
        case CalendarUnit::month: return monthName(index, inStyle);
        case CalendarUnit::weekday: return weekdayName(index, inStyle);
        case CalendarUnit::day:
        case CalendarUnit::weekOfMonth: return std::to_string(index);
        default: return std::nullopt;
    }
}

std::optional<std::string> XELFormatter::stringForIndex(std::int64_t index, CalendarUnit atCalendarUnit) const {
    return stringForIndex(index, atCalendarUnit, style);
}

std::vector<std::string> XELFormatter::namesForIndexes(const std::vector<std::int64_t>& indexes,
                                                       CalendarUnit unit) const {
    std::vector<std::string> names;
    for (const auto index : indexes)
        if (auto name = stringForIndex(index, unit)) names.push_back(std::move(*name));
    return names;
}

std::string XELFormatter::stringForIndexes(const std::vector<std::int64_t>& indexes,
                                           CalendarUnit atCalendarUnit) const {
    return joined(namesForIndexes(indexes, atCalendarUnit));
}

std::string XELFormatter::stringForDayOfWeek(const XELRecurrenceDayOfWeek& day) const {
    const auto name = stringForIndex(day.dayOfWeek(), CalendarUnit::weekday).value_or("");
    if (day.weekNumber() == 0 || name.empty()) return name;
    const auto week = stringForIndex(day.weekNumber(), CalendarUnit::weekOfMonth);
    return week ? formatText("%@ %@", {*week, name}) : name;
}

std::vector<std::string> XELFormatter::namesForDaysOfWeek(const std::vector<XELRecurrenceDayOfWeek>& days) const {
    static const std::array<DaySet, 3> sets{
        {{"weekend day", {1, 7}}, {"weekday", {2, 3, 4, 5, 6}}, {"day", {1, 2, 3, 4, 5, 6, 7}}}};
    std::vector<std::int64_t> numbers;
    std::vector<std::string> names;
    for (const auto& day : days) {
        numbers.push_back(day.dayOfWeek());
        if (auto name = stringForDayOfWeek(day); !name.empty()) names.push_back(std::move(name));
    }
    for (const auto& set : sets)
        if (set.days == numbers) return {word(set.key)};
    return names;
}

std::string XELFormatter::stringForDaysOfWeek(const std::vector<XELRecurrenceDayOfWeek>& days) const {
    return joined(namesForDaysOfWeek(days));
}

std::string XELFormatter::stringForSetPosition(std::int64_t position) const {
    return position == -1 ? word("Last") : std::to_string(position);
}

std::string XELFormatter::stringForSetPositions(const std::vector<std::int64_t>& positions) const {
    std::vector<std::string> names;
    for (const auto position : positions) names.push_back(stringForSetPosition(position));
    return joined(names);
}

std::optional<std::string> XELFormatter::stringForRRule(std::string_view rrule) {
    const XELRRuleComponents rule(rrule);
    if (rule.frequency() == RuleFrequency::none || rule.interval() <= 0) return std::nullopt;
    auto text = stringForFrequency(rule.frequency(), rule.interval());
    if (!text) return std::nullopt;

    *text += group(namesForIndexes(elements(rule.monthsOfYear()), CalendarUnit::month));
    *text += group(namesForIndexes(elements(rule.daysOfMonth()), CalendarUnit::day));
    if (const auto& days = elements(rule.daysOfWeek()); !days.empty()) {
        std::vector<std::string> positions;
        for (const auto position : elements(rule.setPositions())) positions.push_back(stringForSetPosition(position));
        *text += group(positions) + group(namesForDaysOfWeek(days));
    }
    if (rule.until()) *text += ", " + formatText(word("Until %@"), {dateFormatter().stringFromDate(*rule.until())});
    return text;
}

std::vector<std::string> XELFormatter::numberArrayFrom(std::int64_t from, std::int64_t to) {
    std::vector<std::string> numbers;
    if (from > to) return numbers;
    for (std::int64_t number = from; number < to; ++number) numbers.push_back(std::to_string(number));
    numbers.push_back(std::to_string(to));
    return numbers;
}

}  // namespace dayward
