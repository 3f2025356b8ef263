#include "Classes/Event/EventJSONFields.h"

#include <algorithm>
#include <cmath>

namespace dayward {
namespace {

std::optional<std::int64_t> wholeNumber(const JSON& value) {
    if (value.is_number_unsigned()) {
        const auto number = value.get<std::uint64_t>();
        return number <= INT64_MAX ? std::optional(static_cast<std::int64_t>(number)) : std::nullopt;
    }
    if (value.is_number_integer()) return value.get<std::int64_t>();
    if (!value.is_number_float()) return std::nullopt;
    const double number = value.get<double>();
    // 2^63 is the first double beyond the range.
    const bool fits =
        number == std::trunc(number) && number >= -9223372036854775808.0 && number < 9223372036854775808.0;
    return fits ? std::optional(static_cast<std::int64_t>(number)) : std::nullopt;
}

}  // namespace

std::unexpected<Error> jsonFault(const std::string& field, const std::string& reason) {
    return failure("event json", 0, {{"reason", field.empty() ? reason : "field " + field + ": " + reason}});
}

Result<JSONFields> JSONFields::of(const JSON& value, std::string name) {
    if (!value.is_object()) return jsonFault(name, "must be an object");
    return JSONFields(value, std::move(name));
}

std::string JSONFields::path(const char* field) const { return name_.empty() ? field : name_ + "." + field; }

const JSON* JSONFields::value(const char* field) const {
    const auto found = value_->find(field);
    return found == value_->end() || found->is_null() ? nullptr : &*found;
}

Result<std::optional<std::string>> JSONFields::text(const char* field) const {
    const JSON* found = value(field);
    if (!found) return std::nullopt;
    if (!found->is_string()) return jsonFault(path(field), "must be a text");
    return found->get<std::string>();
}

Result<std::optional<bool>> JSONFields::boolean(const char* field) const {
    const JSON* found = value(field);
    if (!found) return std::nullopt;
    if (!found->is_boolean()) return jsonFault(path(field), "must be true or false");
    return found->get<bool>();
}

Result<std::optional<double>> JSONFields::number(const char* field) const {
    const JSON* found = value(field);
    if (!found) return std::nullopt;
    if (!found->is_number() || !std::isfinite(found->get<double>())) return jsonFault(path(field), "must be a number");
    return found->get<double>();
}

Result<std::optional<std::int64_t>> JSONFields::integer(const char* field) const {
    const JSON* found = value(field);
    if (!found) return std::nullopt;
    const auto number = wholeNumber(*found);
    if (!number) return jsonFault(path(field), "must be a whole number");
    return number;
}

Result<std::optional<std::vector<std::int64_t>>> JSONFields::integers(const char* field) const {
    const JSON* found = value(field);
    if (!found) return std::nullopt;
    if (!found->is_array()) return jsonFault(path(field), "must be a list of whole numbers");
    std::vector<std::int64_t> numbers;
    for (const auto& item : *found) {
        const auto number = wholeNumber(item);
        if (!number) return jsonFault(path(field), "must be a list of whole numbers");
        numbers.push_back(*number);
    }
    return numbers;
}

Result<std::optional<Color>> JSONFields::color(const char* field, const char* componentsField) const {
    if (const JSON* components = value(componentsField)) {
        const auto isComponent = [](const JSON& item) {
            return item.is_number() && item.get<double>() >= 0 && item.get<double>() <= 1;
        };
        const bool complete =
            components->is_array() && components->size() == 4 && std::ranges::all_of(*components, isComponent);
        if (!complete) return jsonFault(path(componentsField), "must be four numbers from 0 to 1");
        const auto at = [&](std::size_t index) { return (*components)[index].get<double>(); };
        return Color{at(0), at(1), at(2), at(3)};
    }
    const auto hex = TRY(text(field));
    if (!hex) return std::nullopt;
    const auto color = Color::fromHex(*hex);
    if (!color) return jsonFault(path(field), "must be #RRGGBB or #RRGGBBAA");
    return color;
}

}  // namespace dayward
