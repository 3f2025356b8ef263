#include "recurrence/XELRRuleComponents.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "platform/Environment.h"
#include "platform/Mutex.h"

namespace dayward {

namespace {

using Numbers = XELRRuleComponents::Numbers;
using DaysOfWeek = XELRRuleComponents::DaysOfWeek;

constexpr std::array<std::string_view, 8> kFrequencyWords = {"NO",    "SECONDLY", "MINUTELY", "HOURLY",
                                                             "DAILY", "WEEKLY",   "MONTHLY",  "YEARLY"};
constexpr std::array<std::string_view, 7> kDayWords = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

/// The text's leading integer as the platform reads one: blanks and a sign may come first, what
/// follows the digits is ignored, no digits are 0, and a number out of range is the nearest end.
std::int64_t integerValue(std::string_view text) {
    while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())) != 0) text.remove_prefix(1);
    const bool isNegative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        const int digit = c - '0';
        if (value < (INT64_MIN + digit) / 10) return isNegative ? INT64_MIN : INT64_MAX;
        value = value * 10 - digit;  // kept negative, since that range is the wider one
    }
    if (isNegative) return value;
    return value == INT64_MIN ? INT64_MAX : -value;
}

std::vector<std::string_view> split(std::string_view text, std::string_view separators) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find_first_of(separators);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

Numbers numbersOf(std::string_view text) {
    Numbers numbers;
    for (const auto item : split(text, ",")) numbers.push_back(integerValue(item));
    return numbers;
}

/// The text without its last two characters (not bytes).
std::string_view withoutLastTwo(std::string_view text) {
    for (int characters = 0; characters < 2 && !text.empty(); ++characters) {
        while (text.size() > 1 && (static_cast<unsigned char>(text.back()) & 0xC0) == 0x80) text.remove_suffix(1);
        text.remove_suffix(1);
    }
    return text;
}

XELRecurrenceDayOfWeek dayOfWeekOf(std::string_view item) {
    const auto word = std::ranges::find_if(
        kDayWords, [item](std::string_view candidate) { return item.find(candidate) != std::string_view::npos; });
    const std::int64_t day = word == kDayWords.end() ? 0 : word - kDayWords.begin() + 1;
    return XELRecurrenceDayOfWeek::dayOfWeek(day, integerValue(withoutLastTwo(item)));
}

DaysOfWeek daysOfWeekOf(std::string_view text) {
    DaysOfWeek days;
    for (const auto item : split(text, ",")) days.push_back(dayOfWeekOf(item));
    return days;
}

std::string cutTo16Bits(std::int64_t number) { return std::to_string(static_cast<std::int16_t>(number)); }

void appendDays(std::string& rule, const std::optional<DaysOfWeek>& days) {
    if (!days || days->empty()) return;
    rule += ";BYDAY=";
    bool isFirst = true;
    for (const auto& day : *days) {
        if (day.dayOfWeek() < 1 || day.dayOfWeek() > 7) continue;
        if (!isFirst) rule += ',';
        isFirst = false;
        if (day.weekNumber() != 0) rule += cutTo16Bits(day.weekNumber());
        rule += kDayWords[static_cast<std::size_t>(day.dayOfWeek() - 1)];
    }
}

void appendNumbers(std::string& rule, std::string_view key, const std::optional<Numbers>& numbers) {
    if (!numbers || numbers->empty()) return;
    rule.append(";").append(key).append("=");
    for (std::size_t i = 0; i < numbers->size(); ++i) {
        if (i != 0) rule += ',';
        rule += std::to_string((*numbers)[i]);
    }
}

std::optional<Numbers> sorted(std::optional<Numbers> numbers) {
    if (numbers) {
        std::ranges::stable_sort(*numbers, [](auto left, auto right) { return compareRuleNumbers(left, right) < 0; });
    }
    return numbers;
}

/// The UNTIL formatter of the present zone, built again only where the zone has changed.
class UntilFormat {
public:
    explicit UntilFormat(Environment& environment) : environment_(environment) {}

    DateFormatter formatter() {
        const TimeZone zone = environment_.timeZone();
        const Lock lock(mutex_);
        if (!formatter_ || zoneName_ != zone.name()) {
            formatter_ = DateFormatter::withPattern("yyyyMMdd'T'HHmmss'Z'", Locale("en_US_POSIX"), zone);
            zoneName_ = zone.name();
        }
        return *formatter_;
    }

private:
    Environment& environment_;
    Mutex mutex_;
    std::optional<DateFormatter> formatter_ DAYWARD_GUARDED_BY(mutex_);
    std::string zoneName_ DAYWARD_GUARDED_BY(mutex_);
};

}  // namespace

XELRRuleComponents::XELRRuleComponents(const CalendarRecurrenceRule& recurrenceRule)
    : frequency_(static_cast<RuleFrequency>(static_cast<int>(recurrenceRule.frequency) +
                                            static_cast<int>(RuleFrequency::daily))),
      interval_(recurrenceRule.interval) {
    if (recurrenceRule.daysOfTheWeek) {
        DaysOfWeek days;
        for (const auto& day : *recurrenceRule.daysOfTheWeek) {
            days.push_back(XELRecurrenceDayOfWeek::dayOfWeek(day.dayOfTheWeek, day.weekNumber));
        }
        setDaysOfWeek(std::move(days));
    }
    setDaysOfMonth(recurrenceRule.daysOfTheMonth);
    setDaysOfYear(recurrenceRule.daysOfTheYear);
    setWeeksOfYear(recurrenceRule.weeksOfTheYear);
    setMonthsOfYear(recurrenceRule.monthsOfTheYear);
    setSetPositions(recurrenceRule.setPositions);
    if (!recurrenceRule.recurrenceEnd) return;
    until_ = recurrenceRule.recurrenceEnd->endDate;
    if (!until_) count_ = recurrenceRule.recurrenceEnd->occurrenceCount;
}

std::string XELRRuleComponents::rfc2445String() const {
    const auto frequency = static_cast<std::int64_t>(frequency_);
    std::string rule = "FREQ=";
    rule += kFrequencyWords[frequency >= 1 && frequency <= 7 ? static_cast<std::size_t>(frequency) : 0];
    rule += ";INTERVAL=" + cutTo16Bits(interval_);
    appendDays(rule, daysOfWeek_);
    appendNumbers(rule, "BYMONTHDAY", daysOfMonth_);
    appendNumbers(rule, "BYMONTH", monthsOfYear_);
    appendNumbers(rule, "BYWEEKNO", weeksOfYear_);
    appendNumbers(rule, "BYYEARDAY", daysOfYear_);
    appendNumbers(rule, "BYSETPOS", setPositions_);
    if (count_ != 0) rule += ";COUNT=" + std::to_string(static_cast<std::int32_t>(count_));
    if (until_) rule += ";UNTIL=" + stringFromDate(*until_);
    return rule;
}

void XELRRuleComponents::setRfc2445String(std::string_view rrule) {
    *this = XELRRuleComponents();
    std::string text(rrule);
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    const auto tokens = split(text, ";=");
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (readPart(tokens[i], tokens[i + 1])) ++i;
    }
}

bool XELRRuleComponents::readPart(std::string_view key, std::string_view value) {
    if (key == "FREQ") {
        const auto word = std::ranges::find(kFrequencyWords, value);
        if (word != kFrequencyWords.end()) frequency_ = static_cast<RuleFrequency>(word - kFrequencyWords.begin());
    } else if (key == "INTERVAL") {
        interval_ = integerValue(value);
    } else if (key == "BYDAY") {
        setDaysOfWeek(daysOfWeekOf(value));
    } else if (key == "BYMONTHDAY") {
        setDaysOfMonth(numbersOf(value));
    } else if (key == "BYMONTH") {
        setMonthsOfYear(numbersOf(value));
    } else if (key == "BYWEEKNO") {
        setWeeksOfYear(numbersOf(value));
    } else if (key == "BYYEARDAY") {
        setDaysOfYear(numbersOf(value));
    } else if (key == "BYSETPOS") {
        setSetPositions(numbersOf(value));
    } else if (key == "COUNT") {
        count_ = static_cast<std::uint64_t>(integerValue(value));
    } else if (key == "UNTIL") {
        until_ = dateFromString(value);
    } else {
        return false;
    }
    return true;
}

void XELRRuleComponents::setDaysOfWeek(std::optional<DaysOfWeek> days) {
    if (days) std::ranges::stable_sort(*days);
    daysOfWeek_ = std::move(days);
}
void XELRRuleComponents::setDaysOfMonth(std::optional<Numbers> days) { daysOfMonth_ = sorted(std::move(days)); }
void XELRRuleComponents::setMonthsOfYear(std::optional<Numbers> months) { monthsOfYear_ = sorted(std::move(months)); }
void XELRRuleComponents::setDaysOfYear(std::optional<Numbers> days) { daysOfYear_ = sorted(std::move(days)); }
void XELRRuleComponents::setWeeksOfYear(std::optional<Numbers> weeks) { weeksOfYear_ = sorted(std::move(weeks)); }
void XELRRuleComponents::setSetPositions(std::optional<Numbers> positions) {
    setPositions_ = sorted(std::move(positions));
}

DateFormatter XELRRuleComponents::dateFormatter() {
    return Environment::current().shared<UntilFormat>().formatter();
}

std::optional<Date> XELRRuleComponents::dateFromString(std::string_view text) {
    return dateFormatter().dateFromString(text);
}

std::string XELRRuleComponents::stringFromDate(Date date) { return dateFormatter().stringFromDate(date); }

}  // namespace dayward
