#include "recurrence/ParsedRule.h"

#include <libical/ical.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <functional>
#include <mutex>

#include "platform/CivilDay.h"

namespace dayward {

namespace {

/// libical stops the process at a malformed rule unless it is told not to, and sets up its zones when
/// first asked.
void prepareLibical() {
    static std::once_flag once;
    std::call_once(once, [] {
        icalerror_set_errors_are_fatal(0);
        icaltimezone_get_utc_timezone();
    });
}

struct ListLimit {
    std::string_view key;
    std::size_t values;
};

// libical writes a terminator behind the last value, so a list that fills its array overruns it.
constexpr std::array<ListLimit, 9> kListLimits = {{{"BYSECOND", ICAL_BY_SECOND_SIZE - 1},
                                                   {"BYMINUTE", ICAL_BY_MINUTE_SIZE - 1},
                                                   {"BYHOUR", ICAL_BY_HOUR_SIZE - 1},
                                                   {"BYDAY", ICAL_BY_DAY_SIZE - 1},
                                                   {"BYMONTHDAY", ICAL_BY_MONTHDAY_SIZE - 1},
                                                   {"BYYEARDAY", ICAL_BY_YEARDAY_SIZE - 1},
                                                   {"BYWEEKNO", ICAL_BY_WEEKNO_SIZE - 1},
                                                   {"BYMONTH", ICAL_BY_MONTH_SIZE - 1},
                                                   {"BYSETPOS", ICAL_BY_SETPOS_SIZE - 1}}};

std::string upperCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return result;
}

bool isListTooLong(const std::string& key, std::string_view value) {
    const auto limit = std::ranges::find(kListLimits, std::string_view(key), &ListLimit::key);
    if (limit == kListLimits.end()) return false;
    return static_cast<std::size_t>(std::ranges::count(value, ',')) >= limit->values;
}

struct CheckedText {
    std::string text;             ///< what libical may read
    std::optional<int> interval;  ///< one below 1, which libical refuses and is kept beside it
};

/// Nothing for a text that libical must not see.
std::optional<CheckedText> checkedText(std::string_view text) {
    if (text.size() > ParsedRule::kMaximumLength || text.find('\0') != std::string_view::npos) return std::nullopt;
    CheckedText result;
    while (!text.empty()) {
        const std::size_t end = text.find(';');
        const bool isLast = end == std::string_view::npos;
        const std::string_view clause = text.substr(0, end);
        text = isLast ? std::string_view() : text.substr(end + 1);
        const std::size_t equals = clause.find('=');
        if (equals == std::string_view::npos && isLast) break;
        if (!result.text.empty()) result.text += ';';
        const std::string key = upperCase(clause.substr(0, equals));
        const std::string_view value =
            equals == std::string_view::npos ? std::string_view() : clause.substr(equals + 1);
        if (key == "RSCALE" || key == "SKIP" || isListTooLong(key, value)) return std::nullopt;
        if (key == "BYMONTH" && value.find_first_of("Ll") != std::string_view::npos) return std::nullopt;
        const auto interval = static_cast<short>(std::strtol(std::string(value).c_str(), nullptr, 10));
        if (key == "INTERVAL" && interval < 1) {
            result.interval = interval;
            result.text += "INTERVAL=1";
        } else {
            result.text += clause;
        }
    }
    return result;
}

ParsedRule::Values valuesOf(const short* array, std::size_t size) {
    ParsedRule::Values values;
    for (std::size_t i = 0; i < size && array[i] != ICAL_RECURRENCE_ARRAY_MAX; ++i) values.push_back(array[i]);
    return values;
}

/// The rules that one thread asked for lately. What a text means depends on nothing else, so that
/// neither an environment nor a lock is needed. A text has a few places; a new one takes the oldest.
class RuleCache {
public:
    std::shared_ptr<const ParsedRule> rule(std::string_view text) {
        if (text.size() > kLongestText) return ParsedRule::parse(text);
        Set& set = sets_[std::hash<std::string_view>{}(text) % kSets];
        for (const Entry& entry : set.entries) {
            if (entry.rule && entry.text == text) return entry.rule;
        }
        Entry& oldest = set.entries[set.oldest++ % kPlaces];
        oldest = {std::string(text), ParsedRule::parse(text)};
        return oldest.rule;
    }

private:
    static constexpr std::size_t kSets = 64;
    static constexpr std::size_t kPlaces = 4;
    static constexpr std::size_t kLongestText = 512;

    struct Entry {
        std::string text;
        std::shared_ptr<const ParsedRule> rule;
    };
    struct Set {
        std::array<Entry, kPlaces> entries;
        std::size_t oldest = 0;
    };
    std::array<Set, kSets> sets_;
};

}  // namespace

std::shared_ptr<const ParsedRule> ParsedRule::parse(std::string_view text) {
    prepareLibical();
    const std::shared_ptr<ParsedRule> rule(new ParsedRule);
    const auto checked = checkedText(text);
    if (!checked) return rule;
    const icalrecurrencetype recurrence = icalrecurrencetype_from_string(checked->text.c_str());
    if (recurrence.freq == ICAL_NO_RECURRENCE) return rule;
    rule->take(recurrence);
    if (checked->interval) rule->interval_ = *checked->interval;
    return rule;
}

std::shared_ptr<const ParsedRule> ParsedRule::cached(std::string_view text) {
    thread_local RuleCache cache;
    return cache.rule(text);
}

void ParsedRule::take(const icalrecurrencetype& recurrence) {
    frequency_ = static_cast<Frequency>(recurrence.freq);
    interval_ = recurrence.interval;
    count_ = recurrence.count;
    weekStart_ = recurrence.week_start;
    const icaltimetype& end = recurrence.until;
    if (!icaltime_is_null_time(end)) {
        until_ = IcalTime{end.year, end.month, end.day, end.is_date == 0, end.hour, end.minute, end.second};
    }
    seconds_ = valuesOf(recurrence.by_second, ICAL_BY_SECOND_SIZE);
    minutes_ = valuesOf(recurrence.by_minute, ICAL_BY_MINUTE_SIZE);
    hours_ = valuesOf(recurrence.by_hour, ICAL_BY_HOUR_SIZE);
    days_ = valuesOf(recurrence.by_day, ICAL_BY_DAY_SIZE);
    daysOfMonth_ = valuesOf(recurrence.by_month_day, ICAL_BY_MONTHDAY_SIZE);
    daysOfYear_ = valuesOf(recurrence.by_year_day, ICAL_BY_YEARDAY_SIZE);
    weeks_ = valuesOf(recurrence.by_week_no, ICAL_BY_WEEKNO_SIZE);
    months_ = valuesOf(recurrence.by_month, ICAL_BY_MONTH_SIZE);
    setPositions_ = valuesOf(recurrence.by_set_pos, ICAL_BY_SETPOS_SIZE);
    hasLists_ = std::ranges::any_of(std::array{&seconds_, &minutes_, &hours_, &days_, &daysOfMonth_, &daysOfYear_,
                                               &weeks_, &months_, &setPositions_},
                                    [](const Values* values) { return !values->empty(); });
}

std::shared_ptr<const ParsedRule> ParsedRule::anchored(std::shared_ptr<const ParsedRule> rule,
                                                       const IcalTime& start) {
    if (rule->weeks_.empty() || !rule->days_.empty()) return rule;
    const std::shared_ptr<ParsedRule> anchored(new ParsedRule(*rule));
    anchored->days_ = {weekdayIndexOf(dayNumberOf(start.year, start.month, start.day)) + 1};
    return anchored;
}

bool ParsedRule::hasNumberedDays() const {
    return std::ranges::any_of(days_, [](int day) { return std::abs(day) >= 8; });
}

}  // namespace dayward
