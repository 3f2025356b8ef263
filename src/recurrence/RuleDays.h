// The days of a weekly, monthly or yearly rule, one by one, as libical finds them: its order of the
// parts, its readings and its omissions. COUNT, UNTIL and the times of day are not looked at.
// One thread for each object.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "recurrence/DateIcal.h"
#include "recurrence/ParsedRule.h"

namespace dayward {

/// The days of one month or year as a set, numbered from 1. The weeks of a year may take a few days of
/// its neighbours.
class PeriodDays {
public:
    static constexpr int kFirst = -3;
    static constexpr int kEnd = 373;

    /// Found in a month, or in a year where `month` is 0. The start fills in what the rule leaves open.
    PeriodDays(const ParsedRule& rule, const IcalTime& start, int year, int month);

    /// The first day of the set after the given one, which is kFirst - 1 or later; kEnd where none is.
    [[nodiscard]] int after(int day) const;
    /// The year, after this one, in which libical's search for the weeks of an ordinal ends; else 0.
    [[nodiscard]] int yearsBeyond() const { return yearsBeyond_; }

private:
    /// Days in which weekdays are counted: a month, a year, or the weeks of a year.
    struct Part {
        int year;
        int before;  ///< the days of the year before the part
        int length;
        int firstWeekday, lastWeekday;
    };
    static Part month(int year, int month);
    static Part wholeYear(int year);
    static Part weeksOf(int year, int weekStart);

    void expandMonth(const ParsedRule& rule, const IcalTime& start, Part part);
    void expandYear(const ParsedRule& rule, const IcalTime& start, int year);
    void addDaysOfMonth(const ParsedRule& rule, const IcalTime& start, const Part& part);
    void addDaysOfYear(const ParsedRule& rule, int length);
    void takeWeekdays(const ParsedRule& rule, const Part& part, bool limits);
    void addWeekdays(const ParsedRule& rule, const Part& part, int item, std::uint64_t weeks);
    void keepPositions(const ParsedRule& rule, int length);

    void add(int day) { word(day) |= bit(day); }
    void remove(int day) { word(day) &= ~bit(day); }
    [[nodiscard]] bool contains(int day) const { return (words_[indexOf(day) / 64] & bit(day)) != 0; }
    static std::size_t indexOf(int day) { return static_cast<std::size_t>(day - kFirst); }
    static std::uint64_t bit(int day) { return 1ULL << (indexOf(day) % 64); }
    std::uint64_t& word(int day) { return words_[indexOf(day) / 64]; }

    std::array<std::uint64_t, (kEnd - kFirst + 63) / 64> words_ = {};
    int total_ = 0;  ///< what BYSETPOS counts back from: a day that is named twice counts twice
    int yearsBeyond_ = 0;
};

class RuleDays {
public:
    /// The rule must be legal and the start walkable (see RuleWalk).
    RuleDays(const ParsedRule& rule, const IcalTime& start);

    /// The next day's number. Days before `skipTo` may be left out, where they are many. Nothing after
    /// the last year; then the walk is over.
    std::optional<std::int64_t> next(std::int64_t skipTo);

private:
    void beginWeeks();
    std::optional<std::int64_t> nextOfWeeks(std::int64_t skipTo);
    void goToNextInWeek(std::int64_t skipTo);
    std::optional<std::int64_t> nextOfPeriods();
    bool goToNextPeriod();
    std::int64_t firstOfPeriod(int day);
    [[nodiscard]] bool isMonthListed(int month) const;
    [[nodiscard]] int daysIntoWeek(std::int64_t day) const;

    const ParsedRule& rule_;
    IcalTime start_;
    std::int64_t day_;       ///< of weekly rules: the day given last
    std::size_t index_ = 0;  ///< of weekly rules: its place in BYDAY
    bool hasBegun_ = false;
    std::int64_t months_;  ///< of the others: the period's first month, since the year 0
    std::int64_t periodStart_ = 0;
    int dayInPeriod_ = PeriodDays::kFirst - 1;
    bool isFirstPeriod_ = true;
    std::optional<PeriodDays> period_;
};

}  // namespace dayward
