// dayward widget [type|events]
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/AppWidget.h"
#include "cli/Command.h"
#include "cli/EventLookup.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"

namespace dayward {

namespace {

constexpr const char* kProgram = "dayward-widget";
const std::map<std::string, WidgetType> kTypes{{"today", WidgetType::todaysEvents},
                                               {"selected", WidgetType::selectedEvents}};

std::vector<std::string> passedOn(const GlobalOptions& global, const std::vector<std::string>& own) {
    std::vector<std::string> arguments{kProgram};
    const auto pass = [&](const char* option, const std::string& value) {
        if (!value.empty()) arguments.insert(arguments.end(), {option, value});
    };
    pass("--home", global.home);
    pass("--now", global.now);
    pass("--tz", global.zone);
    pass("--locale", global.locale);
    arguments.insert(arguments.end(), own.begin(), own.end());
    return arguments;
}

/// The widget's program takes this one's place; returns only where it could not.
Result<> runWidget(std::vector<std::string> arguments) {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error).parent_path() / kProgram;
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    execv(program.c_str(), pointers.data());
    return failure(program.string() + " cannot be started: " + std::strerror(errno));
}

Result<> typeCommand(const std::optional<std::string>& text, bool json) {
    if (text) AppWidget::setType(kTypes.at(*text));
    const WidgetType type = AppWidget::type();
    if (json) {
        printJSON({{"type", type == WidgetType::selectedEvents ? "selected" : "today"},
                   {"name", AppWidget::displayName(type)}});
    } else {
        printLine(AppWidget::displayName(type));
    }
    return {};
}

Result<> eventsCommand(const std::vector<std::string>& texts, bool none, bool json) {
    if (none) AppWidget::setEventsKeys({});
    if (!texts.empty()) {
        std::vector<std::string> keys;
        for (const auto& event : TRY(eventsNamed(texts))) keys.push_back(event->identifier());
        AppWidget::setEventsKeys(keys);
    }
    const auto keys = AppWidget::eventsKeys().value_or(std::vector<std::string>());
    if (json) {
        printJSON({{"events", keys}});
        return {};
    }
    for (const std::string& key : keys) {
        const auto event = EventLocalStore::shared().eventByIdentifier(key);
        printLine((event ? printable(event->name().value_or("???")) + " (" + printable(key) + ")" : printable(key)));
    }
    return {};
}

void addTypeCommand(CLI::App& widget, ChosenCommand& chosen) {
    const auto type = std::make_shared<std::optional<std::string>>();
    CLI::App* command = widget.add_subcommand("type", "What the widget shows: today or selected");
    command->add_option("type", *type, "The new type")->check(CLI::IsMember(kTypes));
    command->callback([type, &chosen] {
        chosen.changesEvents = type->has_value();
        chosen.action = [type](Environment&, const GlobalOptions& global) { return typeCommand(*type, global.json); };
    });
}

void addEventsCommand(CLI::App& widget, ChosenCommand& chosen) {
    const auto events = std::make_shared<std::vector<std::string>>();
    const auto none = std::make_shared<bool>(false);
    CLI::App* command = widget.add_subcommand("events", "The events selected for the widget, in its order");
    CLI::Option* named = command->add_option("events", *events, "Identifiers or names to select instead");
    command->add_flag("--none", *none, "Select no event")->excludes(named);
    command->callback([=, &chosen] {
        chosen.changesEvents = *none || !events->empty();
        chosen.action = [=](Environment&, const GlobalOptions& global) {
            return eventsCommand(*events, *none, global.json);
        };
    });
}

}  // namespace

void addWidgetCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto format = std::make_shared<std::string>();
    const auto count = std::make_shared<std::string>();
    const auto separator = std::make_shared<std::string>();
    const auto follows = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("widget", "The widget as a line, and what it shows");
    command->add_option("--format", *format, "text, json or waybar")->check(CLI::IsMember({"text", "json", "waybar"}));
    command->add_option("--count", *count, "So many events, 1 to 10")->check(CLI::Range(1, 10));
    command->add_option("--separator", *separator, "Between the events of a line");
    command->add_flag("--follow", *follows, "Print a line whenever it changes");
    command->require_subcommand(0, 1);
    addTypeCommand(*command, chosen);
    addEventsCommand(*command, chosen);
    command->callback([=, &chosen] {
        if (!command->get_subcommands().empty()) return;
        chosen.needsStore = false;
        chosen.action = [=](Environment&, const GlobalOptions& global) {
            std::vector<std::string> own{"--format", !format->empty() ? *format : global.json ? "json" : "text"};
            if (!count->empty()) own.insert(own.end(), {"--count", *count});
            if (!separator->empty()) own.insert(own.end(), {"--separator", *separator});
            if (*follows) own.emplace_back("--follow");
            return runWidget(passedOn(global, own));
        };
    });
}

}  // namespace dayward
