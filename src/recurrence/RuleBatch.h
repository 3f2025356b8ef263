// The line protocol of `dayward rule batch`: one request a line, one answer a line.
//
// Requests, their fields separated by tabs: "next RULE START AFTER", "between RULE START FROM TO MAX",
// "last RULE START", "describe RULE", "normalize RULE". Dates are ISO 8601 texts, read in the current
// environment's zone where they have no offset, and written with one. An empty RULE or "-" is no rule.
// Nothing is kept between lines; any thread.
#pragma once

#include <string>
#include <string_view>

namespace dayward {

/// The dates joined by blanks, or the text, or "-" for none, or "error: " and what is wrong with the
/// line. A carriage return at the line's end is ignored. MAX is at most a million.
std::string answerRuleRequest(std::string_view line);

}  // namespace dayward
