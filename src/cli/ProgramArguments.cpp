#include "cli/ProgramArguments.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/Terminal.h"
#include "intervals/ISODate.h"
#include "platform/Calendar.h"
#include "platform/TimeZone.h"

namespace dayward {

namespace {

constexpr int kWrongUsage = 2;

}  // namespace

std::optional<int> parseArguments(CLI::App& parser, int argc, const char* const* argv) {
    try {
        parser.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success)) return parser.exit(error);
        std::cerr << parser.get_name() << ": " << printable(error.what()) << "; try --help" << std::endl;
        return kWrongUsage;
    }
}

Result<std::optional<Date>> givenNow(const std::string& now, const std::string& zone) {
    const auto here = zone.empty() ? Result<TimeZone>(TimeZone::system()) : TimeZone::named(zone);
    if (!here) return failure("--tz: there is no time zone '" + zone + "'");
    if (now.empty()) return std::nullopt;
    const auto date = dateFromISOText(now, Calendar(*here));
    if (!date) return failure("--now: '" + now + "' is not a time such as 2027-03-14T09:00:00");
    return date;
}

}  // namespace dayward
