#include "intervals/UnitAgreement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "intervals/XDIUnitIntervalFormatter.h"
#include "intervals/XIDLocaleName.h"
#include "platform/Environment.h"
#include "platform/TextCase.h"

namespace dayward {

namespace {

constexpr std::array kUnits{CalendarUnit::year, CalendarUnit::month,  CalendarUnit::week,  CalendarUnit::day,
                            CalendarUnit::hour, CalendarUnit::minute, CalendarUnit::second};
constexpr std::string_view kGroupSeparators[] = {"\u00a0", "\u202f", ","};
constexpr std::string_view kPunctuation = ",.!)";

std::optional<std::int64_t> wholeNumber(std::string_view word) {
    while (!word.empty() && word.front() == '(') word.remove_prefix(1);
    std::string digits(word);
    for (const std::string_view separator : kGroupSeparators) {
        for (std::size_t at = 0; (at = digits.find(separator, at)) != std::string::npos;) {
            digits.erase(at, separator.size());
        }
    }
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool isWhole = error == std::errc() && end == digits.data() + digits.size();
    return isWhole && !digits.empty() ? std::optional(number) : std::nullopt;
}

std::optional<CalendarUnit> unitNamed(std::string_view name, std::int64_t number) {
    for (const CalendarUnit unit : kUnits) {
        const auto known =
            XDIUnitIntervalFormatter::nameCalendarUnitForUnit(unit, static_cast<double>(number), TextStyle::full);
        if (known == name) return unit;
    }
    return std::nullopt;
}

/// The unit's name beside the number; as it stands where it is no unit's.
std::string agreeing(std::string_view name, std::int64_t number, UnitRole role) {
    const std::string_view core = name.substr(0, name.find_last_not_of(kPunctuation) + 1);
    const auto unit = unitNamed(core, number);
    const auto right = unit ? xidLocaleName(*unit, number, TextStyle::full, role) : std::nullopt;
    if (!right) return std::string(name);
    return capitalized(*right, Environment::current().locale()) + std::string(name.substr(core.size()));
}

}  // namespace

std::string unitsInAgreement(const std::string& text, UnitRole role) {
    std::string result;
    std::optional<std::int64_t> number;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find(' ', begin), text.size());
        const std::string_view word = std::string_view(text).substr(begin, end - begin);
        if (begin > 0) result += ' ';
        result += number ? agreeing(word, *number, role) : std::string(word);
        number = wholeNumber(word);
        begin = end + 1;
    }
    return result;
}

}  // namespace dayward
