#include "recurrence/XELCalendarUnit.h"

#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

using Symbols = XELCalendarUnit::Symbols;
using Table = XELCalendarUnit::Table;

Table tableOfNames(const std::vector<std::string>& full, const std::vector<std::string>& shortNames,
                   const std::vector<std::string>& veryShort) {
    Table table;
    for (std::size_t index = 0; index < full.size(); ++index)
        table[static_cast<std::int64_t>(index) + 1] = {full[index], shortNames.at(index), veryShort.at(index)};
    return table;
}

Table tableOfNumbers(std::int64_t last, const std::string& lastName) {
    Table table;
    for (std::int64_t number = 1; number <= last; ++number) {
        const auto text = std::to_string(number);
        table[number] = {text, text, text};
    }
    table[-1] = {lastName, lastName, lastName};
    return table;
}

struct Tables {
    explicit Tables(Environment& environment) {
        const auto& names = XELCalendarUnit::dateFormater();
        const auto& last = environment.strings().localized("Last");
        months = tableOfNames(names.standaloneMonths, names.shortStandaloneMonths, names.veryShortStandaloneMonths);
        days = tableOfNumbers(31, last);
        weekdays =
            tableOfNames(names.standaloneWeekdays, names.shortStandaloneWeekdays, names.veryShortStandaloneWeekdays);
        weekOfMonths = tableOfNumbers(4, last);
    }

    Table months, days, weekdays, weekOfMonths;
};

const Tables& tables() { return Environment::current().shared<Tables>(); }

std::optional<std::string> nameAt(std::int64_t index, CalendarUnit unit, std::string Symbols::*length) {
    if (unit == CalendarUnit::year) return std::to_string(index);
    const auto* table = XELCalendarUnit::source(unit);
    if (table == nullptr) return std::nullopt;
    const auto found = table->find(index);
    if (found == table->end()) return std::nullopt;
    return found->second.*length;
}

}  // namespace

const Table& XELCalendarUnit::months() { return tables().months; }
const Table& XELCalendarUnit::days() { return tables().days; }
const Table& XELCalendarUnit::weekdays() { return tables().weekdays; }
const Table& XELCalendarUnit::weekOfMonths() { return tables().weekOfMonths; }

const Table* XELCalendarUnit::source(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::month: return &months();
        case CalendarUnit::day: return &days();
        case CalendarUnit::weekday: return &weekdays();
        case CalendarUnit::weekOfMonth: return &weekOfMonths();
        default: return nullptr;
    }
}

std::vector<std::int64_t> XELCalendarUnit::indexes(CalendarUnit unit) {
    std::vector<std::int64_t> result;
    const auto* table = source(unit);
    if (table == nullptr) return result;
    const auto firstPositive = table->lower_bound(0);
    for (auto entry = firstPositive; entry != table->end(); ++entry) result.push_back(entry->first);
    for (auto entry = firstPositive; entry != table->begin();) result.push_back((--entry)->first);
    return result;
}

std::optional<std::string> XELCalendarUnit::symbolAtIndex(std::int64_t index, CalendarUnit forCalendarUnit) {
    return nameAt(index, forCalendarUnit, &Symbols::sf);
}

std::optional<std::string> XELCalendarUnit::shortSymbolAtIndex(std::int64_t index, CalendarUnit forCalendarUnit) {
    return nameAt(index, forCalendarUnit, &Symbols::ss);
}

std::optional<std::string> XELCalendarUnit::veryShortSymbolAtIndex(std::int64_t index, CalendarUnit forCalendarUnit) {
    return nameAt(index, forCalendarUnit, &Symbols::sv);
}

const DateSymbols& XELCalendarUnit::dateFormater() { return DateSymbols::of(locale()); }

Locale XELCalendarUnit::locale() {
    return Locale(Environment::current().locale().languageCode() == "ru" ? "ru" : "en");
}

}  // namespace dayward
