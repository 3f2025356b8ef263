// dayward interval --from T --to T [--units …] [--style …] [--as countdown|rounded|plain|detail]
#include <CLI/CLI.hpp>
#include <memory>

#include "Classes/Other/Date/HHDateHelper.h"
#include "Classes/Other/Date/HHDateIntervalFormat.h"
#include "cli/Arguments.h"
#include "cli/Command.h"
#include "cli/IntervalFields.h"
#include "cli/Output.h"

namespace dayward {

namespace {

struct IntervalArguments {
    std::string from, to, units = "day", style = "full", as = "countdown";
};

struct Answer {
    XDIDateInterval interval;
    std::string text;
};

Answer answer(const IntervalArguments& arguments, Date from, Date to, CalendarUnits units, TextStyle style) {
    HHDateIntervalFormat format(style, arguments.as == "detail" ? NumberStyle::twoDecimals : NumberStyle::whole);
    format.setNumberStyle(NumberStyle::whole, CalendarUnit::second);
    if (arguments.as == "detail") {
        const XDIDateInterval interval = HHDateHelper::detailDateIntervalFromDate(from, to);
        return {interval, format.resultForDetailDateInterval(interval)};
    }
    if (arguments.as == "plain") {
        const XDIDateInterval interval = HHDateHelper::dateIntervalFromDate(from, to, units);
        return {interval, format.resultForDateInterval(interval)};
    }
    const XDIDateInterval interval = HHDateHelper::roundDateIntervalFromDate(from, to, units);
    if (arguments.as == "countdown") format.separator = " ";
    return {interval, format.resultForDateInterval(interval)};
}

Result<> run(const IntervalArguments& arguments, bool json) {
    const Date from = TRY(parseMoment(arguments.from));
    const Date to = TRY(parseMoment(arguments.to));
    const CalendarUnits units = TRY(parseUnits(arguments.units));
    const TextStyle style = TRY(parseTextStyle(arguments.style));
    const Answer result = answer(arguments, from, to, units, style);
    if (json) {
        printJSON({{"fields", intervalFieldsJSON(result.interval)}, {"text", result.text}});
    } else {
        printLine(result.text);
    }
    return {};
}

}  // namespace

void addIntervalCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto arguments = std::make_shared<IntervalArguments>();
    CLI::App* command = app.add_subcommand("interval", "The distance between two moments");
    command->add_option("--from", arguments->from, "The first moment")->required();
    command->add_option("--to", arguments->to, "The second moment")->required();
    command->add_option("--units", arguments->units, "Units, separated by commas (day)");
    command->add_option("--style", arguments->style, "number, symbol, short or full (full)");
    command->add_option("--as", arguments->as, "What kind of distance (countdown)")
        ->check(CLI::IsMember({"countdown", "rounded", "plain", "detail"}));
    command->callback([arguments, &chosen] {
        chosen.needsStore = false;
        chosen.action = [arguments](Environment&, const GlobalOptions& options) { return run(*arguments, options.json); };
    });
}

}  // namespace dayward
