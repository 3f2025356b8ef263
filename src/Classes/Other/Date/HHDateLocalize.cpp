#include "Classes/Other/Date/HHDateLocalize.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "platform/Environment.h"
#include "platform/FatalError.h"
#include "platform/Strings.h"
#include "platform/TextCase.h"

namespace dayward {

namespace {

struct UnitKey {
    const char* key;
    CalendarUnit unit;
};

constexpr std::array<UnitKey, 7> kUnitKeys{{
    {"DY", CalendarUnit::year},
    {"DM", CalendarUnit::month},
    {"DW", CalendarUnit::week},
    {"DD", CalendarUnit::day},
    {"Dh", CalendarUnit::hour},
    {"Dm", CalendarUnit::minute},
    {"Ds", CalendarUnit::second},
}};

constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<const char*, 7> kWeekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};

constexpr const char* kOtherForm = "other";

std::map<std::string, std::string, std::less<>> formsIn(const nlohmann::json& name, const char* key) {
    std::map<std::string, std::string, std::less<>> forms;
    if (name.is_string()) forms[kOtherForm] = name.get<std::string>();
    if (name.is_object()) {
        for (const auto& [form, text] : name.items()) {
            if (text.is_string()) forms[form] = text.get<std::string>();
        }
    }
    if (!forms.contains(kOtherForm)) fatalError(std::string("a unit's name is no text: ") + key);
    return forms;
}

std::string nameKey(CalendarUnit unit, std::string_view style, std::string_view numberWord) {
    return std::to_string(CalendarUnits(unit).mask()) + "_" + std::string(style) + "_" + std::string(numberWord);
}

template <std::size_t count>
std::string localizedAt(const std::array<const char*, count>& names, std::int64_t value) {
    if (value < 1 || value > static_cast<std::int64_t>(count)) fatalError("no name for the value of a repeat rule");
    return localized(names[static_cast<std::size_t>(value - 1)]);
}

std::string weekOfMonthName(std::int64_t value) {
    if (value == -1) return localized("Last");
    if (value < 1 || value > 4) fatalError("no name for the week of a month");
    return std::to_string(value);
}

}  // namespace

HHDateLocalize::Style HHDateLocalize::styleFromString(std::string_view word) {
    if (word == "symbol") return Style::symbol;
    if (word == "short") return Style::short_;
    if (word == "full") return Style::full;
    return Style::unknown;
}

std::string_view HHDateLocalize::stringFromStyle(Style style) {
    switch (style) {
        case Style::symbol: return "symbol";
        case Style::short_: return "short";
        case Style::full: return "full";
        case Style::unknown: break;
    }
    return "";
}

HHDateLocalize::Style HHDateLocalize::styleFromTextStyle(TextStyle style) {
    switch (style) {
        case TextStyle::symbol: return Style::symbol;
        case TextStyle::short_: return Style::short_;
        case TextStyle::full: return Style::full;
        case TextStyle::number: break;
    }
    return Style::unknown;
}

HHDateLocalize::HHDateLocalize(Environment& environment) : rules_(environment.locale()) {
    const auto locale = environment.locale();
    for (const auto& [key, unit] : kUnitKeys) {
        const auto styles = nlohmann::json::parse(environment.strings().localized(key), nullptr, false);
        if (!styles.is_object()) fatalError(std::string("the unit names are no JSON object: ") + key);
        for (const auto& [style, names] : styles.items()) {
            for (const auto& [numberWord, name] : names.items()) {
                auto forms = formsIn(name, key);
                if (styleFromString(style) != Style::symbol) {
                    for (auto& [form, text] : forms) text = capitalized(text, locale);
                }
                names_[nameKey(unit, style, numberWord)] = std::move(forms);
            }
        }
    }
}

const std::string& HHDateLocalize::nameForUnit(CalendarUnit unit, double value, Style style) {
    const auto& localize = Environment::current().shared<HHDateLocalize>();
    const auto key = nameKey(unit, stringFromStyle(style), value == 1.0 ? "singular" : "plural");
    const auto found = localize.names_.find(key);
    if (found == localize.names_.end()) fatalError("no name for a unit: " + key);
    const auto& forms = found->second;
    const auto form = forms.size() > 1 ? forms.find(localize.rules_.form(value)) : forms.end();
    return form != forms.end() ? form->second : forms.find(kOtherForm)->second;
}

std::string HHDateLocalize::nameForUnit(CalendarUnit unit, std::int64_t value) {
    switch (unit) {
        case CalendarUnit::year:
        case CalendarUnit::day: return std::to_string(value);
        case CalendarUnit::month: return localizedAt(kMonths, value);
        case CalendarUnit::weekday: return localizedAt(kWeekdays, value);
        case CalendarUnit::weekOfMonth: return weekOfMonthName(value);
        default: fatalError("values of this unit have no names");
    }
}

std::string HHDateLocalize::nameForUnit(CalendarUnit unit, std::vector<std::int64_t> values) {
    std::sort(values.begin(), values.end());
    std::string result;
    for (std::size_t index = 0; index < values.size(); ++index) {
        if (index > 0) result += ", ";
        result += nameForUnit(unit, values[index]);
    }
    return result;
}

}  // namespace dayward
