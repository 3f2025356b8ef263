// dayward show ID
#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <memory>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Detail/EventDetailUnits.h"
#include "Classes/Interface/List/EventRowText.h"
#include "Classes/Other/Date/HHDateHelper.h"
#include "Classes/Other/Date/HHDateIntervalFormat.h"
#include "Classes/Share/TextActivitySource.h"
#include "cli/Arguments.h"
#include "cli/Command.h"
#include "cli/EventLookup.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"
#include "recurrence/XELFormatter.h"

namespace dayward {

namespace {

std::vector<DetailUnitRow> unitRows(const HHEvent& event) {
    const std::optional<Date> next = event.nextDate();
    if (!next || event.isComing()) return {};
    return detailUnitRows(HHDateHelper::detailDateIntervalFromDate(Environment::current().now(), *next));
}

void printEventJSON(const std::shared_ptr<HHEvent>& event) {
    JSON document = eventJSONValue(*event, {.computedFields = true});
    JSON units = JSON::array();
    for (const DetailUnitRow& row : unitRows(*event)) units.push_back({row.label, row.value});
    document["units"] = std::move(units);
    document["shareText"] = TextActivitySource(event).text();
    printJSON(document);
}

constexpr int kLabelWidth = 16;

void printField(const char* label, const std::string& value) {
    if (!value.empty()) {
        printLine(padded(localized(label), kLabelWidth) + fitted(value, std::max(20, terminalWidth() - kLabelWidth)));
    }
}

std::string joined(const std::vector<std::string>& texts) {
    std::string result;
    for (const std::string& text : texts) result += (result.empty() ? "" : ", ") + text;
    return result;
}

std::string timesText(const std::vector<std::int64_t>& times) {
    if (times == std::vector<std::int64_t>{0}) return {};  // an event of a whole day
    std::vector<std::string> texts;
    for (const std::int64_t minutes : times) texts.push_back(timeOfDayText(minutes));
    return joined(texts);
}

/// "1 Day Before", "On Event".
std::string alertText(const XDIDateInterval& alert) {
    if (!alert.isSet()) return localized("On Event");
    XDIDateInterval distance;
    bool after = false;
    for (const CalendarUnit unit : {CalendarUnit::year, CalendarUnit::month, CalendarUnit::week, CalendarUnit::day,
                                    CalendarUnit::hour, CalendarUnit::minute, CalendarUnit::second}) {
        if (!alert.getUnits().contains(unit)) continue;
        after = after || alert.valueForUnit(unit) < 0;
        distance.setValue(std::abs(alert.valueForUnit(unit)), unit);
    }
    HHDateIntervalFormat format;
    format.separator = " ";
    return formatText(localized(after ? "%@ After" : "%@ Before"), {format.resultForDateInterval(distance)});
}

std::string alertsText(const HHEvent& event) {
    std::vector<std::string> texts;
    for (const XDIDateInterval& alert : event.alerts().list.value_or(std::vector<XDIDateInterval>())) {
        texts.push_back(alertText(alert));
    }
    return joined(texts);
}

void printFields(const HHEvent& event) {
    printField("Time", timesText(event.times()));
    if (event.rrule()) printField("Repeat", XELFormatter().stringForRRule(*event.rrule()).value_or(*event.rrule()));
    if (event.duration()) printField("Duration", HHDateIntervalFormat().resultForDateInterval(*event.duration()));
    printField("Alerts", alertsText(event));
    const auto category = CategoryLocalStore::shared().getCategory(event.categoryKey());
    if (category) printField("Category", category->name.value_or(""));
    printField("Note", event.note().value_or(""));
    printField("Identifier", event.identifier());
}

void printEventText(const HHEvent& event) {
    const EventRowText text = eventRowText(event);
    printLine(fitted(text.title, terminalWidth()));
    printLine(fitted(text.date, terminalWidth()));
    printLine(fitted(text.interval.value_or(""), terminalWidth()));
    printLine("");
    printFields(event);
    const std::vector<DetailUnitRow> rows = unitRows(event);
    int labels = 0;
    int values = 0;
    for (const DetailUnitRow& row : rows) {
        labels = std::max(labels, displayWidth(row.label));
        values = std::max(values, displayWidth(row.value));
    }
    if (!rows.empty()) printLine("");
    for (const DetailUnitRow& row : rows) {
        const std::string blanks(static_cast<std::size_t>(values - displayWidth(row.value)), ' ');
        printLine(padded(row.label, labels) + "  " + blanks + row.value);
    }
}

}  // namespace

void addShowCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto identifier = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("show", "One event with its countdown in every unit");
    command->add_option("event", *identifier, "Identifier or name")->required();
    command->callback([=, &chosen] {
        chosen.action = [=](Environment&, const GlobalOptions& options) -> Result<> {
            const auto event = TRY(eventNamed(*identifier));
            if (options.json) {
                printEventJSON(event);
            } else {
                printEventText(*event);
            }
            return {};
        };
    });
}

}  // namespace dayward
