#include "Classes/Interface/Edit/RRuleExViewController.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "intervals/XIDLocaleName.h"
#include "platform/DateFormatter.h"
#include "platform/Environment.h"
#include "platform/Locale.h"
#include "platform/NumberFormatter.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

constexpr const char* kNoValue = "-";
constexpr std::size_t kMonthColumns = 4;
constexpr std::size_t kDayColumns = 7;
constexpr std::array kFrequencies{RuleFrequency::minutely, RuleFrequency::hourly,  RuleFrequency::daily,
                                  RuleFrequency::weekly,   RuleFrequency::monthly, RuleFrequency::yearly};

CalendarUnit unitOf(RuleFrequency frequency) {
    switch (frequency) {
        case RuleFrequency::minutely: return CalendarUnit::minute;
        case RuleFrequency::hourly: return CalendarUnit::hour;
        case RuleFrequency::daily: return CalendarUnit::day;
        case RuleFrequency::weekly: return CalendarUnit::week;
        case RuleFrequency::monthly: return CalendarUnit::month;
        default: return CalendarUnit::year;
    }
}

std::vector<std::int64_t> numbersTo(std::int64_t last) {
    std::vector<std::int64_t> numbers(static_cast<std::size_t>(last));
    std::iota(numbers.begin(), numbers.end(), 1);
    return numbers;
}

std::vector<std::int64_t> daysOfMonthChoices() {
    auto days = numbersTo(31);
    days.push_back(RRuleState::kLastDayOfMonth);
    return days;
}

template <class NameOf>
GridContent gridOf(std::size_t columns, const std::vector<std::int64_t>& values,
                   const std::vector<std::int64_t>& selected, const NameOf& nameOf) {
    GridContent grid{columns, {}};
    for (const std::int64_t value : values) {
        grid.items.push_back({nameOf(value), std::ranges::find(selected, value) != selected.end()});
    }
    return grid;
}

/// In the form that it has without a day beside it.
std::string shortMonth(std::int64_t number) {
    const DateSymbols& symbols = DateSymbols::of(Environment::current().locale());
    return symbols.shortStandaloneMonths.at(static_cast<std::size_t>(number - 1));
}

TableRow closed(TableRow row) {
    row.open = false;
    return row;
}

std::string orNoValue(std::string text) { return text.empty() ? kNoValue : text; }

}  // namespace

RRuleExViewController::RRuleExViewController(const std::optional<std::string>& rrule, EventStart start,
                                             Completion completionBlock)
    : state_(RRuleState::ofRule(rrule)), start_(std::move(start)), completionBlock_(std::move(completionBlock)) {
    setTitle(localized("Repeat"));
}

void RRuleExViewController::setRrule(const std::optional<std::string>& rrule) {
    state_ = RRuleState::ofRule(rrule);
    reloadData();
}

void RRuleExViewController::viewWillDisappear(Disappearance) { completionBlock_(rrule()); }

std::vector<TableSection> RRuleExViewController::makeSections() {
    std::vector<TableSection> groups{frequencyGroup()};
    if (state_.showsMonthsOfYear()) groups.push_back(monthsOfYearGroup());
    if (state_.showsDaysOfMonth()) groups.push_back(daysOfMonthGroup());
    if (state_.showsDaysOfWeek()) groups.push_back(daysOfWeekGroup());
    if (state_.showsCustomDay()) groups.push_back(customDayGroup());
    groups.push_back(endRepeatGroup());
    if (auto next = nextDatesSection(rrule(), start_)) groups.push_back(*std::move(next));
    return groups;
}

TableSection RRuleExViewController::frequencyGroup() {
    Wheel frequencies;
    for (const RuleFrequency frequency : kFrequencies) {
        if (frequency == state_.frequency) frequencies.selected = frequencies.titles.size();
        frequencies.titles.push_back(formatter_.stringForFrequency(frequency));
    }
    const auto pickFrequency = [this](const std::vector<std::size_t>& rows) {
        state_.frequency = kFrequencies[rows[0]];
        reloadData();
    };
    const auto pickInterval = [this](const std::vector<std::size_t>& rows) {
        state_.interval = static_cast<std::int64_t>(rows[0]) + 1;
        reloadData();
    };
    const auto position = static_cast<std::size_t>(state_.interval - 1);
    return {"frequency",
            {},
            {},
            {closed(wheelsRow("frequency", localized("Frequency"), frequencies.titles[frequencies.selected],
                              {frequencies}, pickFrequency)),
             closed(wheelsRow("interval", localized("Every"), intervalTitles()[position],
                              {{intervalTitles(), position}}, pickInterval))}};
}

const std::vector<std::string>& RRuleExViewController::intervalTitles() {
    if (std::exchange(titlesFrequency_, state_.frequency) == state_.frequency) return intervalTitles_;
    const NumberFormatter numbers(Environment::current().locale(), 0, 0);
    const CalendarUnit unit = unitOf(state_.frequency);
    intervalTitles_.clear();
    for (std::int64_t interval = 1; interval <= RRuleState::kLastInterval; ++interval) {
        intervalTitles_.push_back(numbers.string(static_cast<double>(interval)) + " " +
                                  xidLocaleName(unit, interval, TextStyle::full).value_or(std::string()));
    }
    return intervalTitles_;
}

TableSection RRuleExViewController::monthsOfYearGroup() {
    const auto months = numbersTo(12);
    TableRow row =
        closed(gridRow("months", localized("Months"),
                       gridOf(kMonthColumns, months, state_.monthsOfYear, shortMonth),
                       [this, months](std::size_t item) { flip(state_.monthsOfYear, months[item], months); }));
    row.detail = orNoValue(formatter_.stringForIndexes(state_.monthsOfYear, CalendarUnit::month));
    return {"months", {}, {}, {std::move(row)}};
}

TableSection RRuleExViewController::daysOfMonthGroup() {
    const auto days = daysOfMonthChoices();
    const auto nameOf = [this](std::int64_t day) {
        return formatter_.stringForIndex(day, CalendarUnit::day).value_or(kNoValue);
    };
    TableRow row = closed(gridRow("days", localized("Month Days"),
                                  gridOf(kDayColumns, days, state_.daysOfMonth, nameOf),
                                  [this, days](std::size_t item) { flip(state_.daysOfMonth, days[item], days); }));
    row.detail = orNoValue(formatter_.stringForIndexes(state_.daysOfMonth, CalendarUnit::day));
    return {"days", {}, {}, {std::move(row)}};
}

void RRuleExViewController::flip(std::vector<std::int64_t>& selected, std::int64_t value,
                                 const std::vector<std::int64_t>& all) {
    if (std::erase(selected, value) == 0) selected.push_back(value);
    std::ranges::sort(selected, {}, [&](std::int64_t number) { return std::ranges::find(all, number) - all.begin(); });
    reloadData();
}

TableSection RRuleExViewController::daysOfWeekGroup() {
    TableSection group{"weekdays", localized("Days of Week"), {}, {}};
    const auto first = static_cast<std::size_t>(Environment::current().locale().firstWeekday() - 1);
    for (std::size_t place = 0; place < 7; ++place) {
        const std::size_t day = (first + place) % 7;
        const auto number = static_cast<std::int64_t>(day) + 1;
        group.rows.push_back(checkRow("weekday" + std::to_string(number),
                                      formatter_.stringForIndex(number, CalendarUnit::weekday).value_or(kNoValue),
                                      state_.daysOfWeek[day], [this, day] {
                                          state_.daysOfWeek[day] = !state_.daysOfWeek[day];
                                          reloadData();
                                      }));
    }
    return group;
}

TableSection RRuleExViewController::customDayGroup() {
    Wheel ordinals{{}, state_.customDay.ordinal};
    for (const std::int64_t number : {1, 2, 3, 4, 5, -1}) {
        ordinals.titles.push_back(formatter_.stringForIndex(number, CalendarUnit::weekOfMonth).value_or(kNoValue));
    }
    Wheel weekdays{{}, state_.customDay.weekday};
    for (const std::int64_t day : numbersTo(7)) {
        weekdays.titles.push_back(formatter_.stringForIndex(day, CalendarUnit::weekday).value_or(kNoValue));
    }
    const auto day = state_.customDayOfWeek();
    TableRow row =
        closed(wheelsRow("customDay", localized("Days of Week"), day ? formatter_.stringForDayOfWeek(*day) : kNoValue,
                         {ordinals, weekdays}, [this](const std::vector<std::size_t>& rows) {
                             state_.customDay = {true, rows[0], rows[1]};
                             reloadData();
                         }));
    row.on = state_.customDay.on;
    row.actions.toggle = [this](bool on) {
        state_.customDay.on = on;
        reloadData();
    };
    return {"customDay", {}, {}, {std::move(row)}};
}

TableSection RRuleExViewController::endRepeatGroup() {
    const auto mode = state_.endsByDay() ? DateContent::Mode::date : DateContent::Mode::dateAndTime;
    TableRow row = closed(dateRow("end", localized("End Repeat"), endText(),
                                  {state_.until.value_or(Environment::current().now()), mode},
                                  [this](Date date) { endAt(date); }));
    row.on = state_.until.has_value();
    row.actions.toggle = [this](bool on) { endRepeat(on); };
    return {"end", {}, {}, {std::move(row)}};
}

std::string RRuleExViewController::endText() const {
    if (!state_.until) return kNoValue;
    using Style = DateFormatter::Style;
    const Environment& environment = Environment::current();
    const Style time = state_.endsByDay() ? Style::none : Style::short_;
    return DateFormatter::withStyles(Style::medium, time, environment.locale(), environment.timeZone())
        .stringFromDate(*state_.until);
}

void RRuleExViewController::endRepeat(bool on) {
    state_.until = on ? std::optional(Environment::current().now()) : std::nullopt;
    if (on && state_.endsByDay()) endAt(*state_.until);
    reloadData();
}

// A rule that ends by day has that whole day, whatever the time of the event.
void RRuleExViewController::endAt(Date picked) {
    const Environment& environment = Environment::current();
    auto fields = environment.calendar()->fields(picked);
    if (state_.endsByDay()) {
        fields.hour = 23;
        fields.minute = 59;
    }
    state_.until = environment.calendar()->date(fields);
    reloadData();
}

}  // namespace dayward
