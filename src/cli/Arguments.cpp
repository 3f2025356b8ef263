#include "cli/Arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "intervals/ISODate.h"
#include "platform/Environment.h"
#include "recurrence/XELRRule.h"
#include "recurrence/XELRRuleComponents.h"

namespace dayward {

namespace {

std::unexpected<Error> refused(std::string_view text, std::string_view expected) {
    return failure("'" + std::string(text) + "' is not " + std::string(expected));
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](unsigned char c) { return c < 128 ? static_cast<char>(std::tolower(c)) : c; });
    return result;
}

std::vector<std::string> words(std::string_view text, std::string_view separators) {
    std::vector<std::string> result;
    for (std::size_t start = text.find_first_not_of(separators); start != std::string_view::npos;) {
        const std::size_t end = std::min(text.find_first_of(separators, start), text.size());
        result.emplace_back(text.substr(start, end - start));
        start = text.find_first_not_of(separators, end);
    }
    return result;
}

struct UnitName {
    std::string_view singular, plural, abbreviation;
    CalendarUnit unit;
};

constexpr std::array<UnitName, 7> kUnitNames{{{"year", "years", "y", CalendarUnit::year},
                                              {"month", "months", "mo", CalendarUnit::month},
                                              {"week", "weeks", "w", CalendarUnit::week},
                                              {"day", "days", "d", CalendarUnit::day},
                                              {"hour", "hours", "h", CalendarUnit::hour},
                                              {"minute", "minutes", "m", CalendarUnit::minute},
                                              {"second", "seconds", "s", CalendarUnit::second}}};

std::optional<CalendarUnit> unitNamed(std::string_view name) {
    for (const UnitName& entry : kUnitNames) {
        if (name == entry.singular || name == entry.plural || name == entry.abbreviation) return entry.unit;
    }
    return std::nullopt;
}

/// "2hours" is the two words "2" and "hours".
std::vector<std::string> splitAmounts(std::string_view text) {
    std::vector<std::string> result;
    for (const std::string& word : words(text, " ,")) {
        const std::size_t digits = std::min(word.find_first_not_of("0123456789"), word.size());
        if (digits > 0) result.push_back(word.substr(0, digits));
        if (digits < word.size()) result.push_back(word.substr(digits));
    }
    return result;
}

std::optional<std::int64_t> wholeNumber(std::string_view text) {
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

constexpr std::string_view kIntervalForm = "a length such as \"2 hours\" or \"1 day 12 hours\"";
constexpr std::string_view kAlertForm = "an alert such as \"1 day before\", \"on event\" or \"2 hours after\"";
constexpr std::int64_t kLargestAmount = 1'000'000;

}  // namespace

Result<Date> parseMoment(std::string_view text) {
    const Environment& environment = Environment::current();
    const std::string word = lowered(text);
    if (word == "now") return environment.now();
    if (word == "today" || word == "tomorrow" || word == "yesterday") {
        const auto calendar = environment.calendar();
        Calendar::Fields day = calendar->fields(environment.now());
        day.hour = day.minute = day.second = 0;
        day.day += word == "tomorrow" ? 1 : word == "yesterday" ? -1 : 0;
        return calendar->date(day);
    }
    if (const std::optional<Date> date = dateFromISOText(text)) return *date;
    return refused(text, "a date such as 2027-03-14 or 2027-03-14T09:00:00");
}

Result<std::int64_t> parseTimeOfDay(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon != std::string_view::npos && colon > 0 && colon <= 2 && text.size() == colon + 3) {
        const auto hour = wholeNumber(text.substr(0, colon));
        const auto minute = wholeNumber(text.substr(colon + 1));
        if (hour && minute && *hour >= 0 && *hour < 24 && *minute >= 0 && *minute < 60) return *hour * 60 + *minute;
    }
    return refused(text, "a time of day such as 09:30");
}

std::string timeOfDayText(std::int64_t minutes) {
    const auto twoDigits = [](std::int64_t value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    return twoDigits(minutes / 60) + ":" + twoDigits(minutes % 60);
}

Result<std::optional<std::string>> parseRepeat(std::string_view text) {
    constexpr std::array<std::pair<std::string_view, RuleFrequency>, 7> kFrequencies{
        {{"secondly", RuleFrequency::secondly},
         {"minutely", RuleFrequency::minutely},
         {"hourly", RuleFrequency::hourly},
         {"daily", RuleFrequency::daily},
         {"weekly", RuleFrequency::weekly},
         {"monthly", RuleFrequency::monthly},
         {"yearly", RuleFrequency::yearly}}};
    const std::string word = lowered(text);
    if (word == "never" || word == "none") return std::nullopt;
    for (const auto& [name, frequency] : kFrequencies) {
        if (word == name) return XELRRule::rruleForFrequency(frequency);
    }
    const XELRRuleComponents components(text);
    if (components.frequency() == RuleFrequency::none) {
        return refused(text, "daily, weekly, monthly, yearly, never or a rule such as FREQ=MONTHLY;BYDAY=-1MO");
    }
    return components.rfc2445String();
}

Result<XDIDateInterval> parseInterval(std::string_view text) {
    const std::vector<std::string> parts = splitAmounts(lowered(text));
    if (parts.empty() || parts.size() % 2 != 0) return refused(text, kIntervalForm);
    XDIDateInterval interval;
    CalendarUnits seen;
    for (std::size_t index = 0; index < parts.size(); index += 2) {
        const auto amount = wholeNumber(parts[index]);
        const auto unit = unitNamed(parts[index + 1]);
        if (!amount || *amount < 0 || *amount > kLargestAmount || !unit || seen.contains(*unit)) return refused(text, kIntervalForm);
        seen |= *unit;
        interval.setValue(static_cast<double>(*amount), *unit);
    }
    return interval;
}

Result<XDIDateInterval> parseAlert(std::string_view text) {
    const std::string lower = lowered(text);
    const std::vector<std::string> parts = words(lower, " ");
    if (parts.size() == 2 && parts[0] == "on" && parts[1] == "event") return XDIDateInterval();
    if (parts.size() < 2) return refused(text, kAlertForm);
    const bool after = parts.back() == "after";
    if (!after && parts.back() != "before") return refused(text, kAlertForm);
    const auto length = parseInterval(std::string_view(lower).substr(0, lower.rfind(parts.back())));
    if (!length) return refused(text, kAlertForm);
    XDIDateInterval alert = *length;
    if (!after) return alert;
    for (const UnitName& entry : kUnitNames) {
        if (alert.getUnits().contains(entry.unit)) alert.setValue(-alert.valueForUnit(entry.unit), entry.unit);
    }
    return alert;
}

Result<CalendarUnits> parseUnits(std::string_view text) {
    CalendarUnits units;
    for (const std::string& name : words(lowered(text), ", ")) {
        const auto unit = unitNamed(name);
        if (!unit) return refused(name, "one of the units year, month, week, day, hour, minute, second");
        units |= *unit;
    }
    if (units.isEmpty()) return refused(text, "a list of units such as day,hour");
    return units;
}

Result<TextStyle> parseTextStyle(std::string_view text) {
    constexpr std::array<std::string_view, 4> kStyles{"number", "symbol", "short", "full"};
    const auto found = std::ranges::find(kStyles, lowered(text));
    if (found == kStyles.end()) return refused(text, "one of number, symbol, short, full");
    return static_cast<TextStyle>(found - kStyles.begin());
}

Result<Color> parseColor(std::string_view text) {
    if (const std::optional<Color> color = Color::fromHex(text)) return *color;
    return refused(text, "a colour such as #AA0000");
}

Result<std::int64_t> parseInteger(std::string_view text, std::int64_t minimum, std::int64_t maximum) {
    const auto value = wholeNumber(text);
    if (value && *value >= minimum && *value <= maximum) return *value;
    return refused(text, "a whole number from " + std::to_string(minimum) + " to " + std::to_string(maximum));
}

}  // namespace dayward
