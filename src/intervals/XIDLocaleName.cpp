#include "intervals/XIDLocaleName.h"

#include <vector>

#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

const char* baseWord(CalendarUnit unit) {
    switch (unit) {
        case CalendarUnit::year: return "year";
        case CalendarUnit::month: return "month";
        case CalendarUnit::day: return "day";
        case CalendarUnit::hour: return "hour";
        case CalendarUnit::minute: return "minute";
        case CalendarUnit::second: return "second";
        case CalendarUnit::week: return "week";
        default: return nullptr;
    }
}

std::string baseInStyle(std::string word, TextStyle style) {
    if (style == TextStyle::symbol) return formatText("%@-symbol", {word});
    if (style == TextStyle::short_) return formatText("%@-short", {word});
    return word;
}

std::uint64_t withoutSign(std::int64_t value) {
    const auto bits = static_cast<std::uint64_t>(value);
    return value < 0 ? std::uint64_t{0} - bits : bits;
}

/// Nothing where the table has none of the keys.
std::optional<std::string> textInTable(const std::string& base, std::uint64_t number) {
    std::vector<std::string> keys{formatText("%@##%lu", {base, std::to_string(number)})};
    if (number >= 2) {
        keys.push_back(formatText("%@##x%lu", {base, std::to_string(number % 10)}));
        keys.push_back(formatText("%@##plural", {base}));
    }
    const auto& strings = Environment::current().strings();
    for (const auto& key : keys)
        if (strings.contains(key, kXIDLocaleTable)) return strings.localized(key, kXIDLocaleTable);
    return std::nullopt;
}

}  // namespace

std::optional<std::string> xidLocaleName(CalendarUnit unit, std::int64_t value, TextStyle style, UnitRole role) {
    const char* word = baseWord(unit);
    if (value == 0 || style == TextStyle::number || word == nullptr) return std::nullopt;
    const auto base = baseInStyle(word, style);
    const auto number = withoutSign(value);
    const bool isPeriod = role == UnitRole::period && base == word;
    if (auto text = isPeriod ? textInTable(base + "-period", number) : std::nullopt) return text;
    return textInTable(base, number).value_or(base);
}

}  // namespace dayward
