// dayward show ID
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

#include "Classes/Category/CategoryLocalStore.h"
#include "Classes/Category/EventCategory.h"
#include "Classes/Event/EventJSONValue.h"
#include "Classes/Event/HHEvent.h"
#include "Classes/Interface/Detail/EventDetailUnits.h"
#include "Classes/Interface/List/EventRowText.h"
#include "Classes/Other/Date/HHDateHelper.h"
#include "Classes/Share/TextActivitySource.h"
#include "cli/Command.h"
#include "cli/EventLookup.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"
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

void printField(const std::string& label, const std::string& value) {
    if (!value.empty()) printLine(padded(label, 10) + fitted(value, std::max(20, terminalWidth() - 10)));
}

void printEventText(const HHEvent& event) {
    const EventRowText text = eventRowText(event);
    printLine(fitted(text.title, terminalWidth()));
    printLine(fitted(text.date, terminalWidth()));
    printLine(fitted(text.interval.value_or(""), terminalWidth()));
    printLine("");
    if (event.rrule()) printField("repeats", XELFormatter().stringForRRule(*event.rrule()).value_or(*event.rrule()));
    const auto category = CategoryLocalStore::shared().getCategory(event.categoryKey());
    if (category) printField("category", category->name.value_or(""));
    printField("note", event.note().value_or(""));
    printField("id", event.identifier());
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
