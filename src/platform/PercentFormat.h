// Inserting arguments into localised texts such as "Countdown to %@".
//
// "%@" and the integer forms ("%d", "%i", "%u", "%ld", "%lu", "%li", "%hd" …) take the next argument;
// "%1$@" takes the numbered one, for languages that need another order; "%%" is a percent sign. The
// arguments are never read as formats themselves. A place without an argument becomes empty, anything
// else stays as it stands. Any thread.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace dayward {

[[nodiscard]] std::string formatText(std::string_view format, std::initializer_list<std::string_view> arguments);

}  // namespace dayward
