#include "cli/Output.h"

#include <iostream>

#include "intervals/ISODate.h"

namespace dayward {

namespace {

constexpr int kIndent = 2;

std::string margin(int depth) { return "\n" + std::string(static_cast<std::size_t>(kIndent * depth), ' '); }

std::string jsonText(const JSON& value, int depth) {
    const std::string text = value.dump(kIndent, ' ', false, JSON::error_handler_t::replace);
    if (depth == 0) return text;
    // Line breaks in texts are escaped: those in the document are all between its parts.
    std::string moved;
    for (const char character : text) {
        if (character == '\n') {
            moved += margin(depth);
        } else {
            moved += character;
        }
    }
    return moved;
}

}  // namespace

void printJSON(const JSON& document) { std::cout << jsonText(document, 0) << '\n'; }

void printJSONValue(const JSON& value, int depth) { std::cout << jsonText(value, depth); }

void printJSONObject(const JSON& fields, const std::string& lastField, int depth,
                     const std::function<void()>& printLast) {
    std::cout << '{';
    for (const auto& [name, value] : fields.items()) {
        std::cout << margin(depth + 1) << JSON(name) << ": ";
        printJSONValue(value, depth + 1);
        std::cout << ',';
    }
    std::cout << margin(depth + 1) << JSON(lastField) << ": ";
    printLast();
    std::cout << margin(depth) << '}';
}

void printJSONArray(std::size_t count, int depth, const std::function<void(std::size_t)>& printElement) {
    std::cout << '[';
    for (std::size_t index = 0; index < count; ++index) {
        std::cout << (index == 0 ? "" : ",") << margin(depth + 1);
        printElement(index);
    }
    if (count > 0) std::cout << margin(depth);
    std::cout << ']';
}

void printLine(std::string_view line) { std::cout << line << '\n'; }

JSON datesJSON(const std::vector<Date>& dates) {
    JSON texts = JSON::array();
    JSON seconds = JSON::array();
    for (const Date date : dates) {
        texts.push_back(isoText(date));
        seconds.push_back(date.secondsSinceReference());
    }
    return {{"dates", std::move(texts)}, {"datesSeconds", std::move(seconds)}};
}

}  // namespace dayward
