#include "platform/PercentFormat.h"

#include <charconv>
#include <optional>
#include <vector>

namespace dayward {

namespace {

struct Place {
    std::size_t length;                 ///< of the whole place, the percent sign included
    std::optional<std::size_t> number;  ///< 1 for "%1$@"
    bool isPercentSign = false;
};

std::size_t skipNumber(std::string_view text, std::size_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() ? static_cast<std::size_t>(end - text.data()) : 0;
}

/// The place at the percent sign with which `text` begins; nothing where it is plain text.
std::optional<Place> placeAt(std::string_view text) {
    if (text.starts_with("%%")) return Place{2, std::nullopt, true};
    Place place{1, std::nullopt};
    std::size_t number = 0;
    if (const auto digits = skipNumber(text.substr(1), number); digits > 0) {
        if (text.substr(1 + digits, 1) != "$") return std::nullopt;
        place.number = number;
        place.length += digits + 1;
    }
    const auto kind = text.find_first_not_of("hl", place.length);
    if (kind == std::string_view::npos || std::string_view("@diu").find(text[kind]) == std::string_view::npos)
        return std::nullopt;
    place.length = kind + 1;
    return place;
}

}  // namespace

std::string formatText(std::string_view format, std::initializer_list<std::string_view> arguments) {
    const std::vector<std::string_view> texts(arguments);
    std::string result;
    std::size_t next = 0;
    while (!format.empty()) {
        const auto percent = std::min(format.find('%'), format.size());
        result += format.substr(0, percent);
        format.remove_prefix(percent);
        if (format.empty()) break;
        const auto place = placeAt(format);
        if (!place || place->isPercentSign) {
            result += '%';
        } else {
            const std::size_t index = place->number ? *place->number - 1 : next++;
            if (index < texts.size()) result += texts[index];
        }
        format.remove_prefix(place ? place->length : 1);
    }
    return result;
}

}  // namespace dayward
