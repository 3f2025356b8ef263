// dayward missed [--clear]
#include <CLI/CLI.hpp>
#include <memory>

#include "Classes/Event/EventLocalStore.h"
#include "Classes/Event/HHEvent.h"
#include "alerts/MissedEventsHelper.h"
#include "cli/Command.h"
#include "cli/Output.h"
#include "cli/Terminal.h"
#include "platform/Environment.h"
#include "platform/Strings.h"

namespace dayward {

namespace {

/// Nothing where the event has been removed.
std::optional<std::string> nameOf(const std::string& identifier) {
    const auto event = EventLocalStore::shared().eventByIdentifier(identifier);
    return event ? std::optional(event->name().value_or("")) : std::nullopt;
}

std::string label(const std::string& identifier) {
    const auto name = nameOf(identifier);
    if (!name) return identifier + " (" + localized("removed") + ")";
    return name->empty() ? localized("No name") : *name;
}

void print(const std::vector<std::string>& identifiers, bool json) {
    JSON missed = JSON::array();
    for (const std::string& identifier : identifiers) {
        const auto name = nameOf(identifier);
        missed.push_back({{"identifier", identifier}, {"name", name ? JSON(*name) : JSON(nullptr)}});
        if (!json) printLine(printable(label(identifier)));
    }
    if (json) return printJSON({{"missed", std::move(missed)}});
    if (identifiers.empty()) printLine(localized("No missed events"));
}

void clearMissed() {
    MissedEventsHelper::find();
    MissedEventsHelper::clear();
}

}  // namespace

void addMissedCommand(CLI::App& app, ChosenCommand& chosen) {
    const auto clear = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("missed", "The events whose alerts fired unseen");
    command->add_flag("--clear", *clear, "Forget them");
    command->callback([clear, &chosen] {
        chosen.action = [clear](Environment&, const GlobalOptions& options) -> Result<> {
            if (*clear) clearMissed();
            print(MissedEventsHelper::missedEventsIfFound(), options.json);
            return {};
        };
    });
}

}  // namespace dayward
