#include "cli/Output.h"

#include <iostream>

#include "intervals/ISODate.h"

namespace dayward {

void printJSON(const JSON& document) {
    std::cout << document.dump(2, ' ', false, JSON::error_handler_t::replace) << '\n';
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
