// dayward add|edit|remove
#include <CLI/CLI.hpp>
#include <memory>

#include "Classes/App/EventFactory.h"
#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "cli/Command.h"
#include "cli/EventLookup.h"
#include "cli/EventOptions.h"
#include "cli/Output.h"
#include "platform/PercentFormat.h"
#include "platform/Strings.h"
#include "cli/Terminal.h"

namespace dayward {

namespace {

/// "NAME (IDENTIFIER)"
std::string label(const HHEvent& event) {
    return printable(event.name().value_or("???")) + " (" + event.identifier() + ")";
}

Result<> addEvent(const EventOptions& options, bool json) {
    const auto event = EventFactory::createEvent();
    TRY_VOID(options.apply(*event));
    EventLocalStore& store = EventLocalStore::shared();
    store.updateEvent(event);
    TRY_VOID(store.flush());
    if (json) {
        printJSON({{"identifier", event->identifier()}});
    } else {
        printLine(formatText(localized("Added %@"), {label(*event)}));
    }
    return {};
}

Result<> editEvent(const std::string& text, const EventOptions& options, bool json) {
    EventLocalStore& store = EventLocalStore::shared();
    const auto changed = std::make_shared<HHEvent>(*TRY(eventNamed(text)));
    TRY_VOID(options.apply(*changed));
    store.updateEvent(changed);
    TRY_VOID(store.flush());
    if (json) {
        printJSON({{"updated", {changed->identifier()}}});
    } else {
        printLine(formatText(localized("Updated %@"), {label(*changed)}));
    }
    return {};
}

Result<> removeEvents(const std::vector<std::string>& texts, bool json) {
    const auto events = TRY(eventsNamed(texts));
    EventLocalStore& store = EventLocalStore::shared();
    store.removeEvents(events);
    TRY_VOID(store.flush());
    JSON removed = JSON::array();
    for (const auto& event : events) {
        removed.push_back(event->identifier());
        if (!json) printLine(formatText(localized("Removed %@"), {label(*event)}));
    }
    if (json) printJSON({{"removed", std::move(removed)}});
    return {};
}

}  // namespace

void addAddCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<EventOptions>();
    CLI::App* command = app.add_subcommand("add", "A new event");
    command->add_option("name", options->name, "The event's name")->required();
    options->declare(*command);
    command->callback([options, &chosen] {
        chosen.changesEvents = true;
        chosen.action = [options](Environment&, const GlobalOptions& global) { return addEvent(*options, global.json); };
    });
}

void addEditCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto options = std::make_shared<EventOptions>();
    const auto identifier = std::make_shared<std::string>();
    CLI::App* command = app.add_subcommand("edit", "Change an event; the value \"none\" takes a field away");
    command->add_option("event", *identifier, "Identifier or name")->required();
    command->add_option("--name", options->name, "A new name");
    options->declare(*command);
    command->add_flag("--no-show-age", options->hideAge, "Hide the count of years");
    command->callback([options, identifier, &chosen] {
        chosen.changesEvents = true;
        chosen.action = [=](Environment&, const GlobalOptions& global) {
            return editEvent(*identifier, *options, global.json);
        };
    });
}

void addRemoveCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto identifiers = std::make_shared<std::vector<std::string>>();
    CLI::App* command = app.add_subcommand("remove", "Remove events");
    command->add_option("events", *identifiers, "Identifiers or names")->required();
    command->callback([identifiers, &chosen] {
        chosen.changesEvents = true;
        chosen.action = [=](Environment&, const GlobalOptions& global) { return removeEvents(*identifiers, global.json); };
    });
}

}  // namespace dayward
