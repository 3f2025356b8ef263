// What commands print: one JSON document, or lines for people.
#pragma once

#include <cstddef>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace dayward {

using JSON = nlohmann::ordered_json;

/// One document, indented, with a newline; broken UTF-8 becomes U+FFFD.
void printJSON(const JSON& document);
/// An object that is printed piece by piece, for documents that are too large to be held whole: its first fields, then
/// one more, whose value the caller prints. Looks as if printed in one. `depth` is that of the object.
void printJSONObject(const JSON& fields, const std::string& lastField, int depth, const std::function<void()>& printLast);
/// The same for an array.
void printJSONArray(std::size_t count, int depth, const std::function<void(std::size_t)>& printElement);
/// A value inside such a document, without a newline.
void printJSONValue(const JSON& value, int depth);
void printLine(std::string_view line);

/// {"dates": […], "datesSeconds": […]}
JSON datesJSON(const std::vector<Date>& dates);

}  // namespace dayward
