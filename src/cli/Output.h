// What commands print: one JSON document, or lines for people.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace dayward {

using JSON = nlohmann::ordered_json;

/// One document, indented, with a newline; broken UTF-8 becomes U+FFFD.
void printJSON(const JSON& document);
void printLine(std::string_view line);

/// {"dates": […], "datesSeconds": […]}
JSON datesJSON(const std::vector<Date>& dates);

}  // namespace dayward
